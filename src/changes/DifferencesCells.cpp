// What the view shows of the line that is chosen in its list: in the grid, below it and in the
// chart.
#include "changes/ChangeColors.h"
#include "changes/ChangesTexts.h"
#include "changes/DifferencesView.h"
#include "forms/Aligrid.h"
#include "maps/ChartData.h"
#include "maps/MapCellNames.h"
#include "maps/MapGrid.h"
#include "model/Numbers.h"

#include <algorithm>

#include <QLabel>

namespace {
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
} // namespace

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
