#include "discovery/FindMapsPage.h"

#include "discovery/FindPageTexts.h"
#include "discovery/FindTexts.h"
#include "discovery/FoundList.h"
#include "discovery/GiveBox.h"
#include "filedisplay/FileDisplay.h"
#include "forms/Commands.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Hourglass.h"
#include "forms/KelvaneNotebook.h"
#include "forms/Named.h"
#include "forms/PageControl.h"
#include "maps/FoldingLine.h"
#include "model/ROMImage.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace {
TRomBytes BytesInMemory() {
    if (!ROMImage())
        return {};
    return TRomBytes(ROMImage()->data).first(static_cast<std::size_t>(ROMImage()->size));
}

QString Text(const std::string &text) {
    return QString::fromStdString(text);
}
} // namespace

TfrmFindMaps::TfrmFindMaps(QWidget *parent, TWorkspace &workspace)
    : TEmbeddedForm(parent),
      workspace_(workspace),
      lblFound_(Named("lblFound", new QLabel(this))),
      btnSearch_(Named("btnSearch", new QPushButton(tr("Search"), this))),
      lstFound_(new TFoundList(this)),
      memReasons_(Named("memReasons", new QPlainTextEdit(this))),
      grpGive_(new TGiveBox(this)),
      lblLocations_(Named("lblLocations", new QLabel(this))),
      btnUseLocations_(
          Named("btnUseLocations", new QPushButton(tr("Use These for the Searches"), this))),
      btnShowContents_(
          Named("btnShowContents", new QPushButton(tr("Show in File Contents"), this))),
      btnSaveFound_(Named("btnSaveFound", new QPushButton(tr("Save Spec"), this))) {
    setObjectName("frmFindMaps");
    MakeControls();
    Connect();
    AddCommands();
    LayOut();
    TellChosen();
}

void TfrmFindMaps::MakeControls() {
    lblFound_->setWordWrap(true);
    lblLocations_->setWordWrap(true);
    memReasons_->setReadOnly(true);
    memReasons_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    memReasons_->setTabChangesFocus(true);
    memReasons_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // as high as the box
    memReasons_->setAccessibleName(tr("Reasons"));
    SetHint(btnSearch_, tr("Search the image in memory again"));
    SetHint(memReasons_, tr("What speaks for the chosen map and against it, the strongest first"));
    SetHint(btnUseLocations_,
            tr("Set the RAM locations of the searches on \"File Contents\" to these"));
    SetHint(btnShowContents_, tr("Go to the bytes of the chosen map, with its parts in colours"));
    SetHint(btnSaveFound_, tr("Save a new spec file using offsets listed on map pages"));
    btnSaveFound_->setEnabled(false);
}

void TfrmFindMaps::Connect() {
    const auto onClick = [this](QPushButton *button, void (TfrmFindMaps::*handler)()) {
        ConnectGuarded(button, &QPushButton::clicked, this,
                       [this, handler] { (this->*handler)(); });
    };
    onClick(btnSearch_, &TfrmFindMaps::btnSearchClick);
    onClick(btnUseLocations_, &TfrmFindMaps::btnUseLocationsClick);
    onClick(btnShowContents_, &TfrmFindMaps::btnShowContentsClick);
    onClick(btnSaveFound_, &TfrmFindMaps::btnSaveFoundClick);
    ConnectGuarded(lstFound_, &QTreeWidget::currentItemChanged, this, [this] { TellChosen(); });
    ConnectGuarded(lstFound_, &QTreeWidget::itemActivated, this, [this] { DrawChosen(); });
    grpGive_->OnGive = [this](const TNotebookMap &map) { Give(map); };
    grpGive_->OnGiveSix = [this] { btnGiveSixClick(); };
}

void TfrmFindMaps::AddCommands() {
    grpGive_->AddCommandsTo(*this, [this] { return Chosen() != nullptr; });
    lstFound_->AddCommandsTo(*this);
}

void TfrmFindMaps::LayOut() {
    auto *top = new QHBoxLayout;
    top->addWidget(lblFound_, 1);
    top->addWidget(btnSearch_, 0, Qt::AlignTop);
    auto *chosen = new QHBoxLayout;
    chosen->addWidget(memReasons_, 1);
    chosen->addWidget(grpGive_);
    auto *locations = new QHBoxLayout;
    locations->addWidget(lblLocations_, 1);
    locations->addWidget(btnUseLocations_, 0, Qt::AlignTop);
    auto *buttons = new TFoldingLine(this);
    buttons->Start().addWidget(btnShowContents_);
    buttons->Start().addWidget(btnSaveFound_);
    buttons->End().addWidget(MakeCloseButton());
    auto *column = new QVBoxLayout(this);
    column->addLayout(top);
    column->addWidget(lstFound_, 1);
    column->addLayout(chosen);
    column->addLayout(locations);
    column->addWidget(buttons);
}

void TfrmFindMaps::LetSaveSpec(QPushButton &stated) {
    statedSave_ = &stated;
    btnSaveFound_->setEnabled(stated.isEnabled());
}

void TfrmFindMaps::ShowPage() {
    TEmbeddedForm::ShowPage();
    if (!ShowsImage())
        Search();
    TellGiven();
    btnSaveFound_->setEnabled(statedSave_ && statedSave_->isEnabled());
}

QWidget *TfrmFindMaps::FirstControl() {
    return lstFound_;
}

bool TfrmFindMaps::ShowsImage() const {
    const TRomBytes now = BytesInMemory();
    return !lblFound_->text().isEmpty() && std::ranges::equal(now, searched_);
}

void TfrmFindMaps::Search() {
    const THourglass hourglass;
    const TRomBytes now = BytesInMemory();
    searched_.assign(now.begin(), now.end());
    found_ = FindMaps(searched_);
    lstFound_->Show(found_, searched_);
    lblFound_->setText(Text(FoundText(found_, searched_.size())));
    lblLocations_->setText(Text(LocationsText(found_)));
    btnUseLocations_->setEnabled(found_.rpmLocation || found_.loadLocation);
    TellChosen();
}

void TfrmFindMaps::btnSearchClick() {
    Search();
    TellGiven();
    Say(lblFound_->text());
}

const TFoundMap *TfrmFindMaps::Chosen() const {
    const std::optional<std::size_t> chosen = lstFound_->Chosen();
    return chosen ? &found_.maps[*chosen] : nullptr;
}

void TfrmFindMaps::TellChosen() {
    const TFoundMap *map = Chosen();
    memReasons_->setPlainText(map ? Text(DetailsText(*map)) : QString());
    grpGive_->Allow(map ? &map->place : nullptr);
    btnShowContents_->setEnabled(map != nullptr);
}

void TfrmFindMaps::TellGiven() {
    lstFound_->TellGiven(found_, workspace_);
    grpGive_->AllowSix(std::ranges::any_of(notebookMaps, [this](const TNotebookMap &map) {
        return Proposed(found_, map).has_value();
    }));
}

TfrmFileContents *TfrmFindMaps::Contents() const {
    return Notebook() ? Notebook()->FindPage<TfrmFileContents>() : nullptr;
}

void TfrmFindMaps::DrawChosen() {
    const TFoundMap *map = Chosen();
    TfrmFileContents *contents = Contents();
    if (map && contents)
        contents->placing.QuickMapAt(map->place.shape, map->place.offset);
}

bool TfrmFindMaps::Move(const TNotebookMap &map, const TMapPlace &place) {
    TfrmFileContents *contents = Contents();
    if (!contents)
        return false;
    contents->placing.MoveNotebookMap(map.contents, map.kind,
                                      static_cast<std::int32_t>(place.offset));
    return place.offset != 0;
}

void TfrmFindMaps::Give(const TNotebookMap &map) {
    const TFoundMap *chosen = Chosen();
    if (!chosen)
        return;
    if (!map.Takes(chosen->place)) {
        Say(TGiveBox::WhyNot(chosen->place));
        return;
    }
    Move(map, chosen->place);
    TellGiven();
}

void TfrmFindMaps::btnGiveSixClick() {
    std::vector<TNotebookMap> missing;
    for (const TNotebookMap &map : notebookMaps) {
        const std::optional<std::size_t> proposed = Proposed(found_, map);
        if (!proposed || !Move(map, found_.maps[*proposed].place))
            missing.push_back(map);
    }
    TellGiven();
    Say(Text(GivenText(missing)));
}

void TfrmFindMaps::btnUseLocationsClick() {
    TfrmFileContents *contents = Contents();
    if (!contents)
        return;
    contents->ShowFile(); // the first time it sets all parameters back
    TSearchParameters &parameters = contents->session.parameters;
    if (found_.rpmLocation)
        parameters.rpmLocation = found_.rpmLocation->location;
    if (found_.loadLocation)
        parameters.loadLocation = found_.loadLocation->location;
    Say(Text(UsedText(parameters)));
}

void TfrmFindMaps::btnShowContentsClick() {
    const TFoundMap *map = Chosen();
    TfrmFileContents *contents = Contents();
    if (!map || !contents)
        return;
    const TFoundMap shown = *map; // the page is left
    Notebook()->PageControl1->SelectByMouse(Notebook()->PageIndex(contents));
    if (contents->PageVisible())
        contents->ShowMap(shown.place.offset, shown.place.shape, shown.contents);
}

void TfrmFindMaps::btnSaveFoundClick() {
    if (statedSave_)
        statedSave_->click();
}
