// The controls of the page "Moved Maps", and what they show of the proposals.
#include "changes/ChangesTexts.h"
#include "discovery/MapSide.h"
#include "discovery/MovedMapsPage.h"
#include "discovery/MovedTexts.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "maps/FoldingLine.h"
#include "model/Numbers.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
constexpr int placedColumn = 4;
constexpr int listLines = 9; // its header, six maps, Max RPM, and room
constexpr int leastMapLines = 8;

QString OffsetText(const std::optional<std::uint32_t> &offset) {
    return offset ? QString::fromStdString(FormatOffset(static_cast<std::int32_t>(*offset)))
                  : QString();
}

QString OffsetText(const std::optional<TMapPlace> &place) {
    return OffsetText(place ? std::optional(place->offset) : std::nullopt);
}
} // namespace

TfrmMovedMaps::TfrmMovedMaps(QWidget *parent, TWorkspace &workspace)
    : TEmbeddedForm(parent),
      workspace_(workspace),
      line_(new TOtherImageLine(
          this, {.choose = tr("&Known Image..."),
                 .chooseHint = tr("Choose an image file of the same family with its spec file"),
                 .specsHint = tr("The spec file that says where the known image has its maps"),
                 .noSpec = tr("no spec file is chosen")})),
      lblMoved_(Named("lblMoved", new QLabel(this))),
      lstMoved_(Named("lstMoved", new QTreeWidget(this))),
      memReasons_(Named("memReasons", new QPlainTextEdit(this))),
      there_(new TMapSide(this, {"lblThere", "grdThere", tr("Map of the known image"),
                                 tr("The map in the known image")})),
      here_(new TMapSide(this, {"lblHere", "grdHere", tr("Map here"),
                                tr("The map at the place that is proposed for it")})),
      lblTiming_(Named("lblTiming", new QLabel(this))),
      btnPlaceSure_(Named("btnPlaceSure", new QPushButton(tr("Place S&ure Maps"), this))),
      btnPlaceMap_(Named("btnPlaceMap", new QPushButton(tr("&Place"), this))),
      btnSaveMoved_(Named("btnSaveMoved", new QPushButton(tr("Save Spec"), this))) {
    setObjectName("frmMovedMaps");
    MakeControls();
    LayOut();
    lblMoved_->setText(Missing());
    TellPlaced();
}

void TfrmMovedMaps::MakeControls() {
    line_->OnChange = [this] { Look(); };
    lblMoved_->setWordWrap(true);
    lblTiming_->setWordWrap(true);
    lstMoved_->setHeaderLabels({tr("Map"), tr("There"), tr("Here"), tr("How sure"), tr("Placed")});
    lstMoved_->setRootIsDecorated(false);
    lstMoved_->setAllColumnsShowFocus(true);
    lstMoved_->setAccessibleName(tr("Moved maps"));
    const int height = listLines * (fontMetrics().height() + 2);
    lstMoved_->setMaximumHeight(height);
    memReasons_->setMaximumHeight(height);
    SetHint(lstMoved_, tr("Where the maps lie in the known image and here; Enter places one"));
    memReasons_->setReadOnly(true);
    memReasons_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    memReasons_->setTabChangesFocus(true);
    memReasons_->setAccessibleName(tr("Reasons"));
    SetHint(memReasons_, tr("Why the place is proposed, and what speaks against it"));
    SetHint(btnPlaceSure_, tr("Give the notebook's maps all places that are sure"));
    SetHint(btnPlaceMap_, tr("Give the chosen map its place, sure or not"));
    SetHint(btnSaveMoved_, tr("Save a new spec file using offsets listed on map pages"));
    btnSaveMoved_->setEnabled(false);
    ConnectGuarded(line_->Button(), &QPushButton::clicked, this, [this] { btnOtherClick(); });
    ConnectGuarded(lstMoved_, &QTreeWidget::currentItemChanged, this, [this] { TellChosen(); });
    ConnectGuarded(lstMoved_, &QTreeWidget::itemActivated, this, [this] { btnPlaceClick(); });
    ConnectGuarded(btnPlaceSure_, &QPushButton::clicked, this, [this] { btnPlaceSureClick(); });
    ConnectGuarded(btnPlaceMap_, &QPushButton::clicked, this, [this] { btnPlaceClick(); });
    ConnectGuarded(btnSaveMoved_, &QPushButton::clicked, this, [this] { btnSaveMovedClick(); });
}

void TfrmMovedMaps::LayOut() {
    const auto sideBySide = [this](QWidget *left, QWidget *right) {
        auto *splitter = new QSplitter(this);
        splitter->addWidget(left);
        splitter->addWidget(right);
        splitter->setChildrenCollapsible(false);
        return splitter;
    };
    auto *buttons = new TFoldingLine(this);
    for (QPushButton *button : {btnPlaceSure_, btnPlaceMap_, btnSaveMoved_})
        buttons->Start().addWidget(button);
    buttons->End().addWidget(MakeCloseButton());
    QSplitter *maps = sideBySide(there_, here_);
    maps->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored); // what room there is
    maps->setMinimumHeight(leastMapLines * fontMetrics().height());
    auto *column = new QVBoxLayout(this);
    column->addWidget(line_);
    column->addWidget(lblMoved_);
    column->addWidget(sideBySide(lstMoved_, memReasons_));
    column->addWidget(maps, 1);
    column->addWidget(lblTiming_);
    column->addWidget(buttons);
}

void TfrmMovedMaps::FillList() {
    const auto add = [this](const QStringList &texts, const QString &hint) {
        auto *line = new QTreeWidgetItem(lstMoved_, texts);
        line->setToolTip(0, hint);
    };
    for (std::size_t map = 0; map < allMaps.size(); ++map) {
        const TMovedMap &moved = outcome_->moved.maps[map];
        add({QString::fromStdString(MapName(allMaps[map])), OffsetText(moved.known),
             OffsetText(moved.place), QString::fromStdString(SurenessText(moved.sureness))},
            QString::fromStdString(ReasonsText(moved.reasons)));
    }
    const TMovedByte &limiter = outcome_->moved.revLimiter;
    add({tr("Max RPM"), OffsetText(KnownImage(outcome_->known).revLimiter),
         OffsetText(limiter.offset),
         QString::fromStdString(
             SurenessText(limiter.offset ? TSureness::Sure : TSureness::NotFound))},
        QString::fromStdString(ReasonsText(limiter.reasons)));
}

void TfrmMovedMaps::TellPlaced() {
    bool anySure = false;
    for (int line = 0; line < lstMoved_->topLevelItemCount(); ++line) {
        anySure = anySure || IsSure(line);
        lstMoved_->topLevelItem(line)->setText(placedColumn,
                                               IsPlaced(line) ? tr("yes") : QString());
    }
    for (int column = 0; column <= placedColumn; ++column)
        lstMoved_->resizeColumnToContents(column);
    btnPlaceSure_->setEnabled(anySure);
}

void TfrmMovedMaps::TellChosen() {
    const int line = Chosen();
    btnPlaceMap_->setEnabled(Proposed(line).has_value());
    if (line < 0) {
        memReasons_->clear();
        there_->Show({}, {});
        here_->Show({}, {});
        return;
    }
    if (line == limiterLine)
        ShowLimiter();
    else
        ShowMap(static_cast<std::size_t>(line));
}

void TfrmMovedMaps::ShowMap(std::size_t map) {
    const TMovedMap &moved = outcome_->moved.maps[map];
    memReasons_->setPlainText(QString::fromStdString(ReasonsText(moved.reasons)));
    there_->Show(moved.known ? tr("In the known image: %1").arg(OffsetText(moved.known))
                             : tr("In the known image: nowhere"),
                 moved.known ? MapTexts(outcome_->known, allMaps[map]) : TTextGrid());
    here_->Show(moved.place ? tr("Here: %1").arg(OffsetText(moved.place)) : tr("Here: not found"),
                moved.place ? MapTexts(outcome_->here, allMaps[map]) : TTextGrid());
}

void TfrmMovedMaps::ShowLimiter() {
    const TMovedByte &moved = outcome_->moved.revLimiter;
    memReasons_->setPlainText(QString::fromStdString(ReasonsText(moved.reasons)));
    const auto speed = [](const TMappedImage &image, std::uint32_t offset) {
        TRPMVal value;
        value.raw = image.Bytes()[offset];
        return QString::fromStdString(FormatReal("####0", value.GetConverted()));
    };
    const std::optional<std::uint32_t> known = KnownImage(outcome_->known).revLimiter;
    const bool inThere = known && *known < outcome_->known.Bytes().size();
    there_->Show(inThere ? tr("In the known image: %1, %2 RPM")
                               .arg(OffsetText(known), speed(outcome_->known, *known))
                         : tr("In the known image: nowhere"),
                 {});
    here_->Show(moved.offset
                    ? tr("Here: %1, %2 RPM")
                          .arg(OffsetText(moved.offset), speed(outcome_->here, *moved.offset))
                    : tr("Here: not found"),
                {});
}
