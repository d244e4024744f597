// What a played session does on "ROM Information" and "File Contents".
#include "PlayedSession.h"
#include "filedisplay/FileDisplay.h"

#include <algorithm>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace {
constexpr std::size_t mostPages = 12;
constexpr std::size_t mostSpecs = 12;

void AnswerOffsetEntry(const std::array<int, 6> &places) {
    constexpr std::array names{"edtFuelPTMapOffset",   "edtFuelIdMapOffset",
                               "edtFuelFTMapOffset",   "edtTimingPTMapOffset",
                               "edtTimingIdMapOffset", "edtTimingFTMapOffset"};
    QWidget *dialog = QApplication::activeModalWidget();
    Demand(dialog != nullptr, "no dialog has opened");
    for (std::size_t i = 0; i < names.size(); ++i)
        FindControl<QLineEdit>(*dialog, names[i])
            .setText((i % 2 == 0 ? "$" : "") + QString::number(places[i], i % 2 == 0 ? 16 : 10));
    QTest::mouseClick(&FindControl<QAbstractButton>(*dialog, "btnOK"), Qt::LeftButton);
}
} // namespace

void TPlayedSession::WriteSpec(const TPlayedSpec &spec) {
    std::string text =
        SpecText(spec.label, {spec.places.begin(), spec.places.end()}, spec.revPlace);
    if (!spec.brokenRevPlace.empty())
        text.replace(text.find("revlimit_offset="), std::string::npos,
                     "revlimit_offset=" + spec.brokenRevPlace + "\n");
    text += "[Main]\ntiming_divider=" + FormatReal("0.0#", spec.constants.divider) +
            "\ntiming_subtractor=" + FormatReal("0.0#", spec.constants.subtractor) + "\n";
    session_.Write("spec" + std::to_string(specs_.size()) + ".SPC", text);
    specs_.push_back(spec);
}

void TPlayedSession::Load() {
    GoTo(0);
    const int choice = input_.Byte();
    if (fuel_.Modified() || timing_.Modified()) {
        questions_ << "Save Changes?";
        const bool save = input_.Flag();
        session_.dialogs.answers.push_back(save ? TAnswer::Yes : TAnswer::No);
        if (save && !PlaySave()) {
            world_.messages.emplace_back("Save unsuccessful");
            return session_.Click(romPage, "btnLoad");
        }
    }
    // Cancelling loads the current file again.
    if (choice % 4 == 0) {
        session_.dialogs.opens.emplace_back("");
    } else {
        auto file = files_.begin();
        std::advance(file, choice / 4 % static_cast<int>(files_.size()));
        romFile_ = file->first;
        session_.dialogs.opens.push_back(
            QString::fromStdString((session_.folder / romFile_).string()));
    }
    LoadBytes();
    listed_ = specs_.size();
    chosen_ = -1;
    maySaveSpec_ = true;
    fuel_.Zero();
    timing_.Zero();
    session_.Click(romPage, "btnLoad");
}

void TPlayedSession::LoadBytes() {
    const TBytes &bytes = files_.at(romFile_);
    std::copy(bytes.begin(), bytes.end(), world_.image.begin());
    size_ = static_cast<std::int32_t>(bytes.size());
}

void TPlayedSession::Choose() {
    GoTo(0);
    const auto item = static_cast<int>(input_.Byte() % listed_);
    if (item == chosen_)
        return;
    const TPlayedSpec &spec = specs_[static_cast<std::size_t>(item)];
    if (spec.brokenRevPlace.empty())
        Place(spec);
    chosen_ = item;
    ApplyROM();
    if (!spec.brokenRevPlace.empty())
        world_.messages.push_back("'" + spec.brokenRevPlace + "' is not a valid integer value");
    session_.Choose(QString::fromStdString(spec.label));
    Demand(!spec.brokenRevPlace.empty() ||
               (TimingConstants().divider == spec.constants.divider &&
                TimingConstants().subtractor == spec.constants.subtractor),
           "other timing constants");
}

/// From the image as it stands, before it is read again.
void TPlayedSession::Place(const TPlayedSpec &spec) {
    fuel_.PlaceRevLimiter(spec.revPlace);
    if (spec.throughPointers) {
        fuel_.Zero();
        timing_.Zero();
    }
    for (std::size_t i = 0; i < 6; ++i) {
        TLiteralSet &set = i < 3 ? fuel_ : timing_;
        TLiteralEntry &entry = set.entries[i % 3];
        if (spec.throughPointers)
            set.PlaceThroughPointer(entry, spec.places[i], spec.mask);
        else
            set.PlaceDirectly(entry, spec.places[i]);
        set.SetSingleLoadPoint(i % 3);
    }
}

/// The maps are placed as typed; neither the image is read again nor the rev limiter moved.
void TPlayedSession::ChooseManually() {
    GoTo(0);
    const auto last = static_cast<int>(listed_);
    std::array<int, 6> places{};
    for (int &place : places)
        place = input_.Flag() ? input_.Word() : 0;
    if (chosen_ == last)
        return;
    chosen_ = last;
    for (const std::size_t first : {0U, 3U}) {
        TLiteralSet &set = first == 0 ? fuel_ : timing_;
        set.Zero();
        for (std::size_t i = 0; i < 3; ++i) {
            set.PlaceDirectly(set.entries[i], places[first + i]);
            set.SetSingleLoadPoint(i);
        }
    }
    QTimer::singleShot(0, qApp, [places] { AnswerOffsetEntry(places); });
    session_.Choose("Use Manual Offset Method");
}

void TPlayedSession::ApplyROM() {
    maySave_ = false;
    maySaveSpec_ = chosen_ >= 0;
    if (chosen_ >= 0)
        LoadBytes();
}

void TPlayedSession::Save() {
    GoTo(0);
    Demand(session_.MayClick(romPage, "btnSave") == maySave_, "saving is allowed or not wrongly");
    if (!maySave_)
        return;
    PlaySave();
    session_.Click(romPage, "btnSave");
    for (const auto &[name, bytes] : files_)
        Demand(session_.Read(name) == bytes, "another file " + name);
}

/// Answers the save dialog and does to the model what the answer asks for; false when nothing is
/// saved.
bool TPlayedSession::PlaySave() {
    const int choice = input_.Byte();
    std::string target;
    if (choice % 8 == 0) {
        session_.dialogs.saves.emplace_back(""); // cancelled
    } else {
        target = choice % 8 < 3 ? romFile_ : "saved" + std::to_string(written_++) + ".BIN";
        dialogName_ = target;
        session_.dialogs.saves.push_back(
            QString::fromStdString((session_.folder / target).string()));
    }
    // After a cancelled dialog the question is about the name that it remembers.
    const bool exists =
        std::filesystem::exists(session_.folder / dialogName_) && !dialogName_.empty();
    if (exists) {
        questions_ << "Overwrite existing file?";
        const bool overwrite = !target.empty() && input_.Flag();
        session_.dialogs.answers.push_back(overwrite ? TAnswer::Yes : TAnswer::No);
        if (!overwrite)
            return false;
    } else if (target.empty()) {
        return false;
    }
    fuel_.SaveAll();
    timing_.SaveAll();
    files_[target] = {world_.image.begin(), world_.image.begin() + size_};
    romFile_ = target;
    ApplyROM();
    return true;
}

void TPlayedSession::SaveSpec() {
    GoTo(0);
    Demand(session_.MayClick(romPage, "btnSaveSpec") == maySaveSpec_,
           "saving a spec file is allowed or not wrongly");
    if (!maySaveSpec_ || specs_.size() >= mostSpecs)
        return;
    const std::string number = std::to_string(specs_.size());
    const std::string name = "spec" + number + ".SPC";
    TPlayedSpec spec{"own " + number, false, {}, 0, fuel_.revPlace, {0.65, 12.7}, {}};
    for (std::size_t i = 0; i < 6; ++i) {
        const TLiteralSet &set = i < 3 ? fuel_ : timing_;
        spec.places[i] = set.Location(set.entries[i % 3]);
    }
    dialogName_ = name;
    session_.dialogs.saves.push_back(QString::fromStdString((session_.folder / name).string()));
    session_.dialogs.inputs.push_back(QString::fromStdString(spec.label));
    session_.Click(romPage, "btnSaveSpec");
    const TBytes bytes = session_.Read(name);
    Demand(std::string(bytes.begin(), bytes.end()) ==
               SpecText(spec.label, {spec.places.begin(), spec.places.end()}, spec.revPlace),
           "another spec file");
    specs_.push_back(spec);
}

void TPlayedSession::AddFoundPages() {
    constexpr std::array searches{"Fuel5", "Timing5", "Fuel6", "Timing6"};
    GoTo(IndexOf(contentsPage));
    session_.Trigger(contentsPage, searches[static_cast<std::size_t>(input_.Below(4))]);
    if (pages_.size() >= mostPages)
        return;
    session_.Trigger(contentsPage, "AllHighlighted1");
    TakeNewPages();
}

void TPlayedSession::UpdateMap() {
    constexpr std::array actions{"Fuel1", "Fuel2", "WOTFuel1", "Timing1", "Timing2", "WOTTiming1"};
    GoTo(IndexOf(contentsPage));
    const auto map = static_cast<std::size_t>(input_.Below(6));
    auto &grid = session_.On<TStringAlignGrid>(contentsPage, "grdFile");
    const int place = input_.Word() % ((grid.RowCount() - 1) * 16);
    grid.SetCurrent(place % 16 + 1, place / 16 + 1);
    TLiteralSet &set = map < 3 ? fuel_ : timing_;
    for (std::size_t i = 0; i < 3; ++i) {
        TLiteralEntry &entry = set.entries[i];
        set.PlaceDirectly(entry, i == map % 3 ? place : set.Location(entry));
        set.SetSingleLoadPoint(i);
    }
    session_.Trigger(contentsPage, actions[map]);
}
