#include "changes/ChangesTexts.h"

#include "model/Numbers.h"
#include "system/Texts.h"

#include <algorithm>

namespace {
constexpr auto context = "ChangesTexts";

std::string Counted(std::size_t count, const char *one, const char *many) {
    return Filled(Translated(context, count == 1 ? one : many), {std::to_string(count)});
}

std::string CellsText(std::size_t cells) {
    return Counted(cells, Translatable("ChangesTexts", "1 cell"),
                   Translatable("ChangesTexts", "%1 cells"));
}

std::string ShapeText(const TMap &map) {
    return std::to_string(map.RPMCount()) + " x " + std::to_string(map.LoadCount());
}

std::string AxesText(const TMapChanges &changes) {
    if (changes.match == TMatch::OtherAxes)
        return Translated("ChangesTexts", "other axes");
    return Counted(changes.axes.size(), Translatable("ChangesTexts", "1 byte of the axes"),
                   Translatable("ChangesTexts", "%1 bytes of the axes"));
}
} // namespace

std::string BytesText(std::size_t bytes) {
    return Counted(bytes, Translatable("ChangesTexts", "1 byte"),
                   Translatable("ChangesTexts", "%1 bytes"));
}

TTextGrid MapTexts(const TMappedImage &image, TMapId map) {
    const TMap &shown = MapOf(image.Maps(), map);
    TTextGrid texts;
    std::string location;
    image.InForce([&] {
        shown.SizeGrid(texts);
        shown.FillGrid(texts, location, shown.GetCellFormat(), 0, 0);
    });
    return texts;
}

std::string MapText(const TMapChanges &changes, const TMap &here, const TMap &there) {
    switch (changes.match) {
    case TMatch::OtherShape:
        return Filled(Translated("ChangesTexts", "other shape: %1 here, %2 there"),
                      {ShapeText(here), ShapeText(there)});
    case TMatch::OnlyAfter:
        return Translated("ChangesTexts", "only here");
    case TMatch::OnlyBefore:
        return Translated("ChangesTexts", "only there");
    default:
        break;
    }
    std::string text = changes.cells.empty() ? std::string() : CellsText(changes.cells.size());
    if (!changes.axes.empty())
        text += (text.empty() ? "" : ", ") + AxesText(changes);
    return text;
}

std::string RevLimiterText(const TByteDifference &limiter) {
    const auto speed = [](std::uint8_t byte) {
        TRPMVal value;
        value.raw = byte;
        return FormatReal("####0", value.GetConverted());
    };
    return Filled(Translated("ChangesTexts", "%1 here, %2 there"),
                  {speed(limiter.after), speed(limiter.before)});
}

std::string ElsewhereText(const std::vector<TByteRun> &runs) {
    const std::string bytes = BytesText(BytesOf(runs));
    if (runs.size() == 1)
        return Filled(Translated("ChangesTexts", "%1 in 1 place"), {bytes});
    return Filled(Translated("ChangesTexts", "%1 in %2 places"),
                  {bytes, std::to_string(runs.size())});
}

std::string ExtentText(const TImageChanges &changes) {
    const std::string bytes = BytesText(BytesOf(changes.runs));
    const auto maps = std::count_if(changes.maps.begin(), changes.maps.end(),
                                    [](const TMapChanges &map) { return map.Any(); });
    if (maps == 0)
        return bytes;
    return maps == 1
               ? Filled(Translated("ChangesTexts", "%1 in 1 map"), {bytes})
               : Filled(Translated("ChangesTexts", "%1 in %2 maps"), {bytes, std::to_string(maps)});
}

std::string TotalText(const TImageChanges &changes, const std::string &there) {
    const std::size_t bytes = BytesOf(changes.runs);
    std::string text;
    if (bytes == 0)
        text = Filled(Translated("ChangesTexts", "No byte differs from %1"), {there});
    else if (bytes == 1)
        text = Filled(Translated("ChangesTexts", "1 byte differs from %1"), {there});
    else
        text = Filled(Translated("ChangesTexts", "%1 bytes differ from %2"),
                      {std::to_string(bytes), there});
    if (changes.sizeBefore != changes.sizeAfter)
        text += "; " + Filled(Translated("ChangesTexts",
                                         "%1 are here and %2 there: the longer end is left out"),
                              {BytesText(changes.sizeAfter), BytesText(changes.sizeBefore)});
    return text;
}

std::string CellText(const TCellSide &here, const TCellSide &there, const std::string &picture) {
    const double step = here.value - there.value;
    const std::string sign = step > 0 ? "+" : "";
    return Filled(Translated("ChangesTexts", "%1 (%2) here, %3 (%4) there: %5"),
                  {FormatReal(picture, here.value), std::to_string(here.byte),
                   FormatReal(picture, there.value), std::to_string(there.byte),
                   sign + FormatReal(picture, step)});
}

std::string HexText(std::span<const std::uint8_t> bytes, std::size_t most) {
    constexpr std::string_view upperCase = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes.first(std::min(bytes.size(), most))) {
        text += text.empty() ? "" : " ";
        text += {upperCase[byte >> 4], upperCase[byte & 0xF]};
    }
    return bytes.size() > most ? text + " ..." : text;
}
