#include "changes/DifferencesView.h"

#include "changes/ChangeColors.h"
#include "changes/ChangesTexts.h"
#include "forms/Aligrid.h"
#include "forms/AligridColors.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/TabOrder.h"
#include "maps/MapCellNames.h"

#include <algorithm>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {
// The rows of the list: first the six maps, in the order of allMaps.
constexpr int revLimiterItem = 6;
constexpr int elsewhereItem = 7;

constexpr int legendMargin = 4; // pixels

bool IsListed(const TMapChanges &map) {
    return map.Any() || (map.match != TMatch::Same && map.match != TMatch::None);
}
} // namespace

TDifferencesView::TDifferencesView(QWidget *parent)
    : QWidget(parent),
      lstChanges_(Named("lstChanges", new QTreeWidget(this))),
      grdChanges_(Named("grdChanges", new TStringAlignGrid(this))),
      lblCell_(Named("lblCell", new QLabel(this))),
      chtChanges_(new TAreaChart(this, "chtChanges")),
      chartView_(*chtChanges_) {
    MakeList();
    MakeTable();
    LayOut();
}

void TDifferencesView::MakeList() {
    lstChanges_->setHeaderLabels({tr("Where"), tr("What differs")});
    lstChanges_->setRootIsDecorated(false);
    lstChanges_->setAllColumnsShowFocus(true);
    lstChanges_->setAccessibleName(tr("What differs"));
    lstChanges_->setFixedHeight((elsewhereItem + 3) * (fontMetrics().height() + 2)); // all lines
    SetHint(lstChanges_, tr("What differs: maps, rev limiter, the rest of the image"));
    ConnectGuarded(lstChanges_, &QTreeWidget::currentItemChanged, this, [this] { ShowChosen(); });
}

void TDifferencesView::MakeTable() {
    grdChanges_->setAccessibleName(tr("Differences"));
    grdChanges_->Alignment = TAlign::Right;
    grdChanges_->Wordwrap = true; // the other value stands beneath
    grdChanges_->ShowCellHints = true;
    SetHint(grdChanges_, tr("Values here; where they differ, those there beneath"));
    grdChanges_->OnCellPlace = [this](int column, int row, QString &place) {
        if (Chosen() == TKind::Map)
            place = MapCellPlace(*grdChanges_, column, row);
    };
    const auto told = [this] {
        TellCell();
        if (OnChoose)
            OnChoose();
    };
    ConnectGuarded(grdChanges_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                   told);
    ConnectGuarded(grdChanges_->selectionModel(), &QItemSelectionModel::currentChanged, this, told);
    lblCell_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    chtChanges_->setAccessibleName(tr("Chart of the differences"));
    chtChanges_->TakeKeys(true);
    chtChanges_->SetTitles(tr("here minus there"), {});
}

QWidget *TDifferencesView::MakeLegend() {
    auto *legend = new QWidget(this);
    auto *column = new QVBoxLayout(legend);
    column->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const char *name, const QString &text, TColor color) {
        auto *label = Named(name, new QLabel(text, legend));
        QPalette colors = label->palette();
        colors.setColor(QPalette::Window, PaintedColor(color, colors));
        colors.setColor(QPalette::WindowText, Qt::black);
        label->setPalette(colors);
        label->setAutoFillBackground(true);
        label->setMargin(legendMargin);
        column->addWidget(label);
    };
    add("lblHigher", tr("higher here"), higherColor);
    add("lblLower", tr("lower here"), lowerColor);
    column->addWidget(Named("lblBeneath", new QLabel(tr("beneath: the value there"), legend)));
    return legend;
}

void TDifferencesView::LayOut() {
    auto *left = new QWidget(this);
    auto *leftColumn = new QVBoxLayout(left);
    leftColumn->setContentsMargins(0, 0, 0, 0);
    leftColumn->addWidget(lstChanges_);
    leftColumn->addWidget(MakeLegend());
    leftColumn->addStretch(1);
    auto *right = new QWidget(this);
    auto *column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(grdChanges_, 3);
    column->addWidget(lblCell_);
    column->addWidget(chtChanges_, 2);
    auto *sides = new QSplitter(this);
    sides->addWidget(left);
    sides->addWidget(right);
    sides->setStretchFactor(1, 1);
    sides->setChildrenCollapsible(false);
    auto *all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(sides);
}

void TDifferencesView::Show(const TComparison *comparison) {
    const int chosen = ChosenItem();
    {
        const QSignalBlocker silent(lstChanges_);
        comparison_ = comparison;
        lstChanges_->clear();
        if (comparison_)
            FillList();
        for (int i = 0; i < lstChanges_->topLevelItemCount(); ++i)
            if (QTreeWidgetItem *item = lstChanges_->topLevelItem(i);
                i == 0 || item->data(0, Qt::UserRole) == chosen)
                lstChanges_->setCurrentItem(item);
    }
    ShowChosen();
}

void TDifferencesView::TabFrom(QWidget *control) {
    SetTabSequence({control, lstChanges_, grdChanges_, chtChanges_});
}

void TDifferencesView::FillList() {
    const auto &[here, there, changes] =
        std::tie(comparison_->here, comparison_->there, comparison_->changes);
    for (std::size_t i = 0; i < changes.maps.size(); ++i) {
        const TMapChanges &map = changes.maps[i];
        if (IsListed(map))
            AddItem(static_cast<int>(i), QString::fromStdString(MapName(map.map)),
                    QString::fromStdString(
                        MapText(map, MapOf(here.Maps(), map.map), MapOf(there.Maps(), map.map))));
    }
    if (changes.revLimiter)
        AddItem(revLimiterItem, tr("Max RPM"),
                QString::fromStdString(RevLimiterText(*changes.revLimiter)));
    if (!changes.elsewhere.empty())
        AddItem(elsewhereItem, tr("Elsewhere"),
                QString::fromStdString(ElsewhereText(changes.elsewhere)));
    for (const int column : {0, 1})
        lstChanges_->resizeColumnToContents(column);
}

void TDifferencesView::AddItem(int item, const QString &name, const QString &text) {
    auto *line = new QTreeWidgetItem(lstChanges_, {name, text});
    line->setData(0, Qt::UserRole, item);
    line->setToolTip(1, text);
}

int TDifferencesView::ChosenItem() const {
    const QTreeWidgetItem *item = lstChanges_->currentItem();
    return item ? item->data(0, Qt::UserRole).toInt() : -1;
}

TDifferencesView::TKind TDifferencesView::Chosen() const {
    switch (ChosenItem()) {
    case -1:
        return TKind::None;
    case revLimiterItem:
        return TKind::RevLimiter;
    case elsewhereItem:
        return TKind::Elsewhere;
    default:
        return TKind::Map;
    }
}

const TMapChanges &TDifferencesView::ChosenMap() const {
    return comparison_->changes.maps[static_cast<std::size_t>(ChosenItem())];
}

std::vector<TCellChange> TDifferencesView::SelectedCells() const {
    if (Chosen() != TKind::Map)
        return {};
    const TGridRect selected = grdChanges_->Selection();
    std::vector<TCellChange> cells = ChosenMap().cells;
    std::erase_if(cells, [&](const TCellChange &cell) {
        const TGridRect own{cell.rpmPoint + 1, cell.loadPoint + 1, cell.rpmPoint + 1,
                            cell.loadPoint + 1};
        return Empty(Common(selected, own));
    });
    return cells;
}

void TDifferencesView::ShowChosen() {
    {
        const TGridUpdate update(*grdChanges_);
        switch (Chosen()) {
        case TKind::Map:
            ShowMap(ChosenMap());
            break;
        case TKind::RevLimiter:
            ShowRevLimiter(*comparison_->changes.revLimiter);
            break;
        case TKind::Elsewhere:
            ShowRuns(comparison_->changes.elsewhere);
            break;
        case TKind::None:
            ShapeTable({}, 0);
        }
        FitColumns();
    }
    chtChanges_->setVisible(Chosen() == TKind::Map && ChosenMap().Any());
    TellCell();
    if (OnChoose)
        OnChoose();
}
