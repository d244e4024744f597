#include "maps/MapPanel.h"

#include "forms/Access.h"
#include "forms/Hint.h"
#include "maps/MapCellNames.h"
#include "maps/MapHeadings.h"

#include <array>
#include <initializer_list>

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
constexpr int buttonMargin = 4; // pixels, around "Commit" and "Reset"

// In the order of the fields.
constexpr std::array<TMapPanelTraits, 3> panelTraits{{
    {TMapKind::PT, MapHeading(TMapKind::PT), 12, 12, "Panel1", "lblPTGrid", "edtPTOffset",
     "grdPTMap", "lblPTNote", "chtPTMap", "btnSavePT", "btnResetPT", "PopupMenu1", "Copy1",
     "Paste1", "UnlockAxis1"},
    {TMapKind::Idle, MapHeading(TMapKind::Idle), 1, 10, "Panel2", "lblIdGrid", "edtIdOffset",
     "grdIdMap", "lblIdNote", "chtIdMap", "btnSaveIdle", "btnResetIdle", "PopupMenu2", "Copy2",
     "Paste2", "UnlockAxis2"},
    {TMapKind::WOT, MapHeading(TMapKind::WOT), 1, 20, "Panel3", "lblFTGrid", "edtFTOffset",
     "grdFTMap", "lblFTNote", "chtFTMap", "btnSaveFT", "btnResetFT", "PopupMenu3", "Copy3",
     "Paste3", "UnlockAxis3"},
}};
} // namespace

const TMapPanelTraits &PanelTraits(TMapKind kind) {
    return panelTraits[static_cast<std::size_t>(kind)];
}

TMapPanel::TMapPanel(QWidget &rows, const TMapPanelTraits &rowTraits)
    : QObject(&rows),
      traits(rowTraits),
      panel(new QFrame(&rows)),
      title(new QLabel(panel)),
      offset(new TOffsetEdit(panel, rowTraits.offset)),
      grid(new TStringAlignGrid(panel)),
      note(new TMapNote(&rows, rowTraits.note)),
      chart(new TAreaChart(&rows, rowTraits.chart)),
      commit(new QPushButton(tr("Commit"), chart)),
      reset(new QPushButton(tr("Reset"), chart)),
      menu(new QMenu(panel)),
      copyAction(menu->addAction(tr("Copy Map"))),
      pasteAction(menu->addAction(tr("Paste Map"))),
      unlockAction(menu->addAction(tr("Unlock Axis"))),
      gridView(*grid),
      chartView(*chart),
      shades(*grid) {
    MakePanel();
    MakeChart();
    MakeMenu();
}

void TMapPanel::SetCaption(const QString &caption) {
    const QString text = tr(traits.heading).arg(caption);
    title->setText(text);
    chart->SetTitles(text, caption);
    QString spoken = text;
    spoken.replace("/\\", tr("Lambda")); // what the two strokes draw
    for (QWidget *control : std::initializer_list<QWidget *>{panel, grid, chart})
        control->setAccessibleName(spoken);
    commit->setAccessibleDescription(tr("Writes the edits of \"%1\" into the image").arg(spoken));
    reset->setAccessibleDescription(tr("Drops the edits of \"%1\"").arg(spoken));
}

void TMapPanel::ShowNote(const QString &text) {
    note->setText(text);
    note->setVisible(!text.isEmpty() && !hiddenForGood_);
}

void TMapPanel::HideForGood() {
    hiddenForGood_ = true;
    panel->hide();
    note->hide();
    chartView.HideForGood();
}

void TMapPanel::MakePanel() {
    panel->setObjectName(traits.panel);
    SetRole(*panel, QAccessible::Grouping);
    title->setObjectName(traits.title);
    grid->setObjectName(traits.grid);
    grid->Alignment = TAlign::Right;
    grid->Editable = true;
    NameMapCells(*grid);
    auto *offsetLabel = new QLabel(tr("offset"), panel);
    offsetLabel->setBuddy(offset);
    offset->setAccessibleDescription(tr("A double-click or F2 makes it writable"));
    SetHint(offset, tr("Double-click to enter new offset to map"));
    SetHint(grid, tr("Right-click for more options"));

    auto *head = new QHBoxLayout;
    head->addWidget(title);
    head->addStretch(1);
    head->addWidget(offsetLabel);
    head->addWidget(offset);
    auto *column = new QVBoxLayout(panel);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head);
    column->addWidget(grid);
}

void TMapPanel::MakeChart() {
    commit->setObjectName(traits.commit);
    reset->setObjectName(traits.reset);
    SetHint(commit, tr("Write the edits of this map into the image in memory"));
    SetHint(reset, tr("Drop the edits of this map"));
    const bool partThrottle = traits.kind == TMapKind::PT;
    chart->StartWithSeries(partThrottle ? 12 : 1);
    chart->SetBottomInverted(partThrottle);
    chart->TakeKeys(true);
    // In a corner of the chart, so that they go with it; side by side below a high drawing, one
    // below the other beside a low one.
    auto *corner = new QVBoxLayout(chart);
    corner->setContentsMargins(buttonMargin, buttonMargin, buttonMargin, buttonMargin);
    corner->addStretch(1);
    auto *buttons =
        new QBoxLayout(partThrottle ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    buttons->addWidget(commit);
    buttons->addWidget(reset);
    corner->addLayout(buttons);
    corner->setAlignment(buttons, Qt::AlignRight);
}

void TMapPanel::MakeMenu() {
    menu->setObjectName(traits.menu);
    copyAction->setObjectName(traits.copy);
    pasteAction->setObjectName(traits.paste);
    unlockAction->setObjectName(traits.unlock);
    menu->setAccessibleName(tr("Map"));
    grid->setAccessibleDescription(tr("The Menu key or Shift+F10 copies, pastes and unlocks"));
    grid->OnMenuKey = [this](QPoint at) { menu->popup(at); };
    grid->OnMenuButton = grid->OnMenuKey;
}
