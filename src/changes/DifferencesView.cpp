#include "changes/DifferencesView.h"

#include "changes/ChangeColors.h"
#include "changes/ChangesTexts.h"
#include "forms/Aligrid.h"
#include "forms/AligridColors.h"
#include "forms/Guard.h"
#include "forms/Hint.h"
#include "forms/Named.h"
#include "forms/TabOrder.h"
#include "maps/ChartData.h"
#include "maps/MapCellNames.h"
#include "maps/MapGrid.h"
#include "model/Numbers.h"

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

constexpr std::size_t mostRuns = 1000; ///< that are listed
constexpr std::size_t mostBytes = 8;   ///< of a run that are shown
constexpr int cellMargins = 8;         ///< pixels, both sides together

/// In engineering units, or as the map shows it.
TCellSide Side(const TMappedImage &image, TMapId map, const TCellChange &cell, std::uint8_t byte,
               bool converted) {
    TCellSide side{0, byte};
    image.InForce(
        [&] { side.value = ShownValue(MapOf(image.Maps(), map), cell, byte, converted); });
    return side;
}

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
        label->setMargin(cellMargins / 2);
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

void TDifferencesView::ShowMap(const TMapChanges &map) {
    const bool there = map.match == TMatch::OnlyBefore;
    hereTexts_ = MapTexts(there ? comparison_->there : comparison_->here, map.map);
    thereTexts_ = MapTexts(comparison_->there, map.map);
    TMapGrid(*grdChanges_).SetShape(hereTexts_.ColCount(), hereTexts_.RowCount());
    grdChanges_->Editable = false;
    for (int row = 0; row < hereTexts_.RowCount(); ++row)
        for (int column = 0; column < hereTexts_.ColCount(); ++column)
            grdChanges_->SetCell(column, row, QString::fromStdString(hereTexts_.Cell(column, row)));
    MarkCells(map);
    if (map.match == TMatch::OtherAxes)
        MarkAxes();
    FillChart(map);
}

void TDifferencesView::MarkCells(const TMapChanges &map) {
    for (const auto &[rpmPoint, loadPoint, byte] : map.cells)
        MarkCell(rpmPoint + 1, loadPoint + 1, byte.after > byte.before);
}

void TDifferencesView::MarkAxes() {
    const auto mark = [this](int column, int row) {
        const std::string here = hereTexts_.Cell(column, row);
        const std::string there = thereTexts_.Cell(column, row);
        const auto number = [](const std::string &text) {
            return TryParseReal(text.substr(0, text.find('%'))).value_or(0);
        };
        if (here != there)
            MarkCell(column, row, number(here) > number(there));
    };
    for (int column = 1; column < hereTexts_.ColCount(); ++column)
        mark(column, 0);
    for (int row = 1; row < hereTexts_.RowCount(); ++row)
        mark(0, row);
}

void TDifferencesView::MarkCell(int column, int row, bool higher) {
    const std::string texts = hereTexts_.Cell(column, row) + "\n" + thereTexts_.Cell(column, row);
    grdChanges_->SetCell(column, row, QString::fromStdString(texts));
    grdChanges_->SetCellColor(column, row, higher ? higherColor : lowerColor);
}

void TDifferencesView::FillChart(const TMapChanges &map) {
    TTextGrid differences = hereTexts_;
    for (int row = 1; row < differences.RowCount(); ++row)
        for (int column = 1; column < differences.ColCount(); ++column)
            differences.SetCell(column, row, "0");
    const TMap &shown = MapOf(comparison_->here.Maps(), map.map);
    const bool converted = shown.data->showConverted;
    for (const TCellChange &cell : map.cells) {
        const double here =
            Side(comparison_->here, map.map, cell, cell.byte.after, converted).value;
        const double there =
            Side(comparison_->there, map.map, cell, cell.byte.before, converted).value;
        differences.SetCell(cell.rpmPoint + 1, cell.loadPoint + 1,
                            FormatReal(shown.GetCellFormat(), here - there));
    }
    chtChanges_->RecreateSeries(std::max(differences.RowCount() - 1, 0));
    chtChanges_->SetBottomInverted(map.map.kind == TMapKind::PT);
    RedrawChart(differences, chartView_);
}

void TDifferencesView::ShowRuns(const std::vector<TByteRun> &runs) {
    const std::size_t shown = std::min(runs.size(), mostRuns);
    const bool more = shown < runs.size();
    ShapeTable({tr("Offset"), tr("Bytes"), tr("Here"), tr("There")},
               static_cast<int>(shown) + (more ? 1 : 0));
    for (std::size_t i = 0; i < shown; ++i) {
        const TByteRun &run = runs[i];
        const auto bytes = [&](const TMappedImage &image) {
            return QString::fromStdString(
                HexText(image.Bytes().subspan(run.offset, run.length), mostBytes));
        };
        const int row = static_cast<int>(i) + 1;
        grdChanges_->SetCell(
            0, row, QString::fromStdString(FormatOffset(static_cast<std::int32_t>(run.offset))));
        grdChanges_->SetCell(1, row, QString::number(run.length));
        grdChanges_->SetCell(2, row, bytes(comparison_->here));
        grdChanges_->SetCell(3, row, bytes(comparison_->there));
    }
    if (more)
        grdChanges_->SetCell(0, static_cast<int>(shown) + 1,
                             tr("%1 more").arg(runs.size() - shown));
}

void TDifferencesView::ShowRevLimiter(const TByteDifference &limiter) {
    ShapeTable({tr("Max RPM"), tr("Here"), tr("There")}, 1);
    const auto speed = [](const TMappedImage &image) {
        return QString::fromStdString(
            FormatReal("####0", image.Maps().fuelMapSet.revLimiter.GetConverted()));
    };
    grdChanges_->SetCell(
        0, 1, QString::fromStdString(FormatOffset(static_cast<std::int32_t>(limiter.offsetAfter))));
    grdChanges_->SetCell(1, 1, speed(comparison_->here));
    grdChanges_->SetCell(2, 1, speed(comparison_->there));
    grdChanges_->SetCellColor(1, 1, limiter.after > limiter.before ? higherColor : lowerColor);
}

void TDifferencesView::ShapeTable(const QStringList &headers, int rows) {
    const int columns = std::max(static_cast<int>(headers.size()), 1);
    TMapGrid(*grdChanges_).SetShape(columns, rows + 1);
    grdChanges_->SetFixedCols(0);
    grdChanges_->Editable = false;
    for (int column = 0; column < headers.size(); ++column)
        grdChanges_->SetCell(column, 0, headers[column]);
}

void TDifferencesView::FitColumns() {
    const bool map = Chosen() == TKind::Map;
    const QFontMetrics metrics = grdChanges_->fontMetrics();
    grdChanges_->SetDefaultRowHeight((map ? 2 : 1) * metrics.lineSpacing() + cellMargins / 2);
    int widest = 0;
    for (int column = 0; column < grdChanges_->ColCount(); ++column) {
        int width = 0;
        for (int row = 0; row < grdChanges_->RowCount(); ++row)
            for (const QString &line : grdChanges_->Cell(column, row).split('\n'))
                width = std::max(width, metrics.horizontalAdvance(line));
        widest = std::max(widest, width);
        grdChanges_->SetColWidth(column, width + 2 * cellMargins);
    }
    if (map) // as on the map pages
        grdChanges_->SetDefaultColWidth(widest + cellMargins);
}

void TDifferencesView::TellCell() {
    QString text;
    if (Chosen() == TKind::Map) {
        const int column = grdChanges_->Col();
        const int row = grdChanges_->Row();
        for (const TCellChange &cell : ChosenMap().cells)
            if (cell.rpmPoint + 1 == column && cell.loadPoint + 1 == row) {
                const TMapId map = ChosenMap().map;
                const std::string told =
                    CellText(Side(comparison_->here, map, cell, cell.byte.after, true),
                             Side(comparison_->there, map, cell, cell.byte.before, true),
                             MapOf(comparison_->here.Maps(), map).convertedFormat);
                text = MapCellPlace(*grdChanges_, column, row).replace('\n', ' ') + ": " +
                       QString::fromStdString(told);
            }
    }
    lblCell_->setText(text);
}
