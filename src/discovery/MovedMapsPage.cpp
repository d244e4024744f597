#include "discovery/MovedMapsPage.h"

#include "discovery/MapSide.h"
#include "discovery/MovedTexts.h"
#include "filedisplay/FileDisplay.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Hourglass.h"
#include "forms/KelvaneNotebook.h"
#include "forms/Named.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <algorithm>

#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTreeWidget>

void TfrmMovedMaps::LetSaveSpec(QPushButton &stated) {
    statedSave_ = &stated;
    btnSaveMoved_->setEnabled(stated.isEnabled());
}

void TfrmMovedMaps::ShowPage() {
    TEmbeddedForm::ShowPage();
    btnSaveMoved_->setEnabled(statedSave_ && statedSave_->isEnabled());
    Look();
}

void TfrmMovedMaps::LookFrom(TOtherImage known) {
    line_->Take(std::move(known));
    line_->ChooseOwnSpec();
}

void TfrmMovedMaps::btnOtherClick() {
    if (line_->Ask(workspace_.romFileName))
        line_->ChooseOwnSpec();
}

QString TfrmMovedMaps::Missing() const {
    if (!ROMImage() || ROMImage()->size == 0)
        return tr("No ROM image is loaded");
    if (!HasKnown())
        return tr("No known image is chosen");
    if (line_->Other()->Specs().empty())
        return tr("Beside the known image lies no spec file that says where its maps are");
    if (!line_->Spec())
        return tr("Choose the spec file of the known image: it says where its maps are");
    return {};
}

void TfrmMovedMaps::Look() {
    const int chosen = std::max(Chosen(), 0);
    outcome_.reset();
    lstMoved_->clear();
    lblTiming_->clear();
    lblMoved_->setText(Missing());
    TellChosen(); // reading the spec file may fail
    if (Missing().isEmpty()) {
        const THourglass hourglass;
        outcome_.emplace(LookedFor());
        FillList();
        lblMoved_->setText(Headline());
        lblTiming_->setText(NoteOnTiming());
        lstMoved_->setCurrentItem(lstMoved_->topLevelItem(chosen));
    }
    TellPlaced();
}

TfrmMovedMaps::TOutcome TfrmMovedMaps::LookedFor() const {
    TOutcome outcome{line_->Other()->Mapped(workspace_, line_->Spec()),
                     TMappedImage(CommittedBytes(workspace_)),
                     {}};
    outcome.moved = FindMovedMaps(KnownImage(outcome.known), outcome.here.Bytes());
    std::array<std::optional<std::uint32_t>, 6> places;
    for (std::size_t map = 0; map < places.size(); ++map)
        if (const std::optional<TMapPlace> &place = outcome.moved.maps[map].place)
            places[map] = place->offset;
    outcome.here.PlaceAt(places, outcome.known.Timing(), workspace_);
    return outcome;
}

QString TfrmMovedMaps::Headline() const {
    const auto count = [this](TSureness sureness) {
        return std::ranges::count(outcome_->moved.maps, sureness, &TMovedMap::sureness);
    };
    const QString file = QFileInfo(QString::fromStdString(line_->Other()->Name())).fileName();
    return tr("Maps of %1 in this image: %2 sure, %3 unsure, %4 not found")
        .arg(file)
        .arg(count(TSureness::Sure))
        .arg(count(TSureness::Unsure))
        .arg(count(TSureness::NotFound));
}

QString TfrmMovedMaps::NoteOnTiming() const {
    const TTimingConstants &timing = outcome_->known.Timing();
    const auto number = [](double value) {
        return QString::fromStdString(FormatReal("0.0####", value));
    };
    return tr("To be added to the new spec file by hand: timing_divider=%1, timing_subtractor=%2")
        .arg(number(timing.divider), number(timing.subtractor));
}

int TfrmMovedMaps::Chosen() const {
    return lstMoved_->indexOfTopLevelItem(lstMoved_->currentItem());
}

std::optional<std::uint32_t> TfrmMovedMaps::Proposed(int line) const {
    if (line < 0)
        return std::nullopt;
    if (line == limiterLine)
        return outcome_->moved.revLimiter.offset;
    const std::optional<TMapPlace> &place =
        outcome_->moved.maps[static_cast<std::size_t>(line)].place;
    if (!place || place->offset == 0) // 0 stands for no place
        return std::nullopt;
    return place->offset;
}

bool TfrmMovedMaps::IsSure(int line) const {
    return Proposed(line) &&
           (line == limiterLine ||
            outcome_->moved.maps[static_cast<std::size_t>(line)].sureness == TSureness::Sure);
}

bool TfrmMovedMaps::IsPlaced(int line) const {
    const std::optional<std::uint32_t> place = Proposed(line);
    const std::int64_t now =
        line == limiterLine
            ? workspace_.fuelMapSet.revLimiter.offset
            : MapOf(workspace_, allMaps[static_cast<std::size_t>(line)]).GetLocation();
    return place && now == *place;
}

void TfrmMovedMaps::btnPlaceSureClick() {
    std::vector<int> sure;
    for (int line = 0; line <= limiterLine; ++line)
        if (IsSure(line))
            sure.push_back(line);
    Place(sure);
}

void TfrmMovedMaps::btnPlaceClick() {
    if (Proposed(Chosen()))
        Place({Chosen()});
}

void TfrmMovedMaps::Place(const std::vector<int> &lines) {
    auto *contents = Notebook()->FindPage<TfrmFileContents>();
    QStringList names;
    for (const int line : lines) {
        const auto offset = static_cast<std::int32_t>(*Proposed(line));
        names << lstMoved_->topLevelItem(line)->text(0);
        if (line == limiterLine) {
            workspace_.fuelMapSet.revLimiter.SetOffset(offset);
            continue;
        }
        const auto [set, kind] = allMaps[static_cast<std::size_t>(line)];
        contents->placing.MoveNotebookMap(
            set == TMapSetKind::Fuel ? TMapContents::Fuel : TMapContents::Timing, kind, offset);
    }
    TellPlaced();
    TellState();
    Say(tr("Placed: %1").arg(names.join(", ")));
}

void TfrmMovedMaps::btnSaveMovedClick() {
    if (statedSave_)
        statedSave_->click(); // nothing while it is disabled
}
