#include "spec/ProgramState.h"

#include "model/ROMImage.h"
#include "system/Texts.h"

#include <utility>

namespace {
constexpr auto context = "ProgramState";

/// A piece of the state that is a number, for one and for many.
struct TNumberTexts {
    const char *brief;
    const char *briefs;
    const char *sentence;
    const char *sentences;
};

constexpr TNumberTexts zerosWithoutMapping{
    Translatable("ProgramState", "no mapping: would save 1 zero"),
    Translatable("ProgramState", "no mapping: would save %1 zeros"),
    Translatable("ProgramState", "No mapping chosen: Save ROM would write 1 zero"),
    Translatable("ProgramState", "No mapping chosen: Save ROM would write %1 zeros")};

constexpr TNumberTexts cellsNotCommitted{
    Translatable("ProgramState", "would save 1 uncommitted cell"),
    Translatable("ProgramState", "would save %1 uncommitted cells"),
    Translatable("ProgramState", "Save ROM would write 1 cell that was not committed"),
    Translatable("ProgramState", "Save ROM would write %1 cells that were not committed")};

constexpr TNumberTexts bytesNotSaved{
    Translatable("ProgramState", "1 byte not saved"),
    Translatable("ProgramState", "%1 bytes not saved"),
    Translatable("ProgramState", "1 byte is committed and not in the file"),
    Translatable("ProgramState", "%1 bytes are committed and not in the file")};

TStateText NumberText(std::size_t number, const TNumberTexts &texts) {
    const auto fill = [number](const char *one, const char *many) {
        return Filled(Translated(context, number == 1 ? one : many), {std::to_string(number)});
    };
    return {fill(texts.brief, texts.briefs), fill(texts.sentence, texts.sentences)};
}

TStateText Warning(TStateText text) {
    text.warning = true;
    return text;
}

void CountCells(const TMapData &body, const TROMImage &image, TUncommittedCells &found) {
    if (!TROMImage::Contains(body.offset))
        return; // a save refuses such a body
    std::int64_t offset = body.offset;
    for (std::int32_t r = 0; r < body.values->Rows(); ++r)
        for (std::int32_t c = 0; c < body.values->Columns(); ++c, ++offset) {
            const TVal *cell = std::as_const(*body.values).GetItem(r, c);
            if (!cell || !image.IsInFile(offset) || LowByte(cell->raw) == image.Peek(offset))
                continue;
            ++(LowByte(cell->raw) == 0 ? found.zeros : found.others);
        }
}

bool HasZerosOfNoMapping(const TProgramState &state) {
    return state.mapping == TMappingType::None && state.cells.zeros > 0;
}

void AddWarnings(std::vector<TStateText> &texts, const TProgramState &state) {
    const auto &[zeros, others] = state.cells;
    const bool noMapping = HasZerosOfNoMapping(state);
    if (noMapping)
        texts.push_back(Warning(NumberText(zeros, zerosWithoutMapping)));
    if (const std::size_t cells = noMapping ? others : zeros + others; cells > 0)
        texts.push_back(Warning(NumberText(cells, cellsNotCommitted)));
    if (!state.elsewhere.empty())
        texts.push_back(
            Warning({Translated("ProgramState", "spec of another folder"),
                     Filled(Translated("ProgramState",
                                       "The spec file is of another folder than the image: %1"),
                            {state.elsewhere})}));
}

void AddEdits(std::vector<TStateText> &texts, const std::vector<TUncommitted> &edited) {
    std::string names;
    for (const auto &[name, tab] : edited)
        names += (names.empty() ? "" : ", ") + name;
    // All of them in the first one's brief text.
    for (const auto &[name, tab] : edited) {
        const std::string all = std::exchange(names, {});
        texts.push_back({all.empty() ? all : Filled(Translated("ProgramState", "%1 edited"), {all}),
                         Filled(Translated("ProgramState", "Edited and not committed: %1"), {name}),
                         tab});
    }
}

TStateText MappingText(const TProgramState &state) {
    switch (state.mapping) {
    case TMappingType::Spec:
        return {Filled(Translated("ProgramState", "spec %1"), {state.spec}),
                Filled(Translated("ProgramState", "Spec file in force: %1"), {state.spec})};
    case TMappingType::Manual:
        return {Translated("ProgramState", "manual"),
                Translated("ProgramState", "Manual offsets are in force")};
    case TMappingType::None:
        break;
    }
    return {Translated("ProgramState", "no mapping"),
            Translated("ProgramState", "No mapping is chosen")};
}
} // namespace

TUncommittedCells UncommittedCells(const TWorkspace &workspace) {
    TUncommittedCells found;
    if (const TROMImage *image = ROMImage())
        for (const TMapSet *set : {static_cast<const TMapSet *>(&workspace.fuelMapSet),
                                   static_cast<const TMapSet *>(&workspace.timingMapSet)})
            for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
                CountCells(*set->Map(kind).data, *image, found);
    return found;
}

bool RevLimiterIsUnsaved(const TFuelMapSet &maps) {
    const TRPMVal &limiter = maps.revLimiter;
    const TROMImage *image = ROMImage();
    return image && maps.HasRevLimiter() && image->IsInFile(limiter.offset) &&
           LowByte(limiter.raw) != image->Peek(limiter.offset);
}

std::vector<TStateText> StateTexts(const TProgramState &state) {
    if (!state.loaded)
        return {{Translated("ProgramState", "no image"),
                 Translated("ProgramState", "No ROM image is loaded")}};
    std::vector<TStateText> texts;
    AddWarnings(texts, state);
    AddEdits(texts, state.edited);
    if (state.unsavedBytes > 0) {
        texts.push_back(NumberText(state.unsavedBytes, bytesNotSaved));
        texts.back().tab = changesTab;
    }
    if (state.unsavedRevLimiter)
        texts.push_back(
            {Translated("ProgramState", "Max RPM not saved"),
             Translated("ProgramState", "Max RPM is in no file yet: Save ROM writes it")});
    if (texts.empty())
        texts.push_back(
            {{}, Translated("ProgramState", "Nothing is edited, and all is in the file")});
    if (!HasZerosOfNoMapping(state))
        texts.push_back(MappingText(state));
    return texts;
}

std::string StateLine(const std::vector<TStateText> &texts) {
    constexpr auto between = " \u00B7 ";
    std::string line;
    for (const TStateText &text : texts)
        if (!text.brief.empty())
            line += (line.empty() ? "" : between) + text.brief;
    return line;
}
