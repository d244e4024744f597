// The grid's sizes: columns, rows, headers, and the whole widget.
#include "forms/Aligrid.h"
#include "forms/AligridDelegate.h"
#include "forms/AligridEvents.h"

#include <algorithm>

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>

namespace {
constexpr int textRoom = 16; // beside the widest text, both sides together
constexpr int lineRoom = 8;  // above and below a line of text together

/// The widest texts that maps and bytes have.
constexpr const char *widestTexts[] = {"10240", "100%", "1.02", "-12.7", "255"};

/// Of `all` rows (columns), `fixed` of them headers: how many of the others FitTo shows. The first
/// one counts as a header also while it is unlocked.
int ShownOf(int all, int fixed, int limit) {
    const int unlocked = all > 1 ? 1 - fixed : 0;
    return std::clamp(all - fixed, 0, std::max(limit, 0) + unlocked);
}
} // namespace

int TStringAlignGrid::DefaultColWidth() const {
    if (defaultColWidth_)
        return *defaultColWidth_;
    int widest = 0;
    for (const char *text : widestTexts)
        widest = std::max(widest, fontMetrics().horizontalAdvance(QLatin1String(text)));
    return widest + textRoom;
}

void TStringAlignGrid::SetDefaultColWidth(int width) {
    colWidths_.clear();
    defaultColWidth_ = std::max(width, 0);
    LayOut();
    Fire(OnColWidthsChanged);
}

int TStringAlignGrid::ColWidth(int column) const {
    return ColWidthOr(column, DefaultColWidth());
}

/// ColWidth with the default width given.
int TStringAlignGrid::ColWidthOr(int column, int standard) const {
    const auto position = static_cast<std::size_t>(column);
    if (column < 0 || position >= colWidths_.size())
        return standard;
    return colWidths_[position].value_or(standard);
}

void TStringAlignGrid::SetColWidth(int column, int width) {
    if (column < 0 || column >= ColCount() || ColWidth(column) == width)
        return;
    const auto position = static_cast<std::size_t>(column);
    colWidths_.resize(std::max(colWidths_.size(), position + 1));
    colWidths_[position] = std::max(width, 0);
    LayOut();
    Fire(OnColWidthsChanged);
}

int TStringAlignGrid::DefaultRowHeight() const {
    return defaultRowHeight_.value_or(fontMetrics().height() + lineRoom);
}

void TStringAlignGrid::SetDefaultRowHeight(int height) {
    defaultRowHeight_ = std::max(height, 1);
    LayOut();
    Fire(OnRowHeightsChanged);
}

int TStringAlignGrid::GridLineWidth() const {
    return delegate_->gridLineWidth;
}

void TStringAlignGrid::SetGridLineWidth(int width) {
    delegate_->gridLineWidth = std::max(width, 0);
    LayOut();
}

bool TStringAlignGrid::AutoAdjustLastCol() const {
    return horizontalHeader()->stretchLastSection();
}

void TStringAlignGrid::SetAutoAdjustLastCol(bool adjust) {
    horizontalHeader()->setStretchLastSection(adjust);
    LayOut();
}

bool TStringAlignGrid::RedrawWhileScroll() const {
    return verticalScrollBar()->hasTracking();
}

void TStringAlignGrid::SetRedrawWhileScroll(bool redraw) {
    verticalScrollBar()->setTracking(redraw);
    horizontalScrollBar()->setTracking(redraw);
}

/// Gives headers, columns and rows their sizes. The headers are one grid line thicker than a cell
/// is, so that with the frame the whole comes to exactly what FitTo asks for.
void TStringAlignGrid::LayOut() {
    if (updates_ > 0) {
        BeginReset();
        return;
    }
    const int line = GridLineWidth();
    horizontalHeader()->setVisible(FixedRows() > 0);
    horizontalHeader()->setFixedHeight(DefaultRowHeight() + 2 * line);
    verticalHeader()->setVisible(FixedCols() > 0);
    const int standard = DefaultColWidth(); // measured once: it costs more than all the rest
    verticalHeader()->setFixedWidth(ColWidthOr(0, standard) + 2 * line);
    verticalHeader()->setDefaultSectionSize(DefaultRowHeight() + line);
    for (int section = 0; section < model_->columnCount(); ++section)
        horizontalHeader()->resizeSection(section,
                                          ColWidthOr(section + FixedCols(), standard) + line);
    updateGeometries();
}

int TStringAlignGrid::BodyColumnsWidth(int columns) const {
    const int standard = DefaultColWidth();
    int width = 0;
    for (int column = 0; column < columns; ++column)
        width += ColWidthOr(column + FixedCols(), standard) + GridLineWidth();
    return width;
}

QSize TStringAlignGrid::SizeFor(int maxRows, int maxColumns) const {
    const int rows = ShownOf(RowCount(), FixedRows(), maxRows);
    const int columns = ShownOf(ColCount(), FixedCols(), maxColumns);
    const int frame = 2 * frameWidth();
    const int border = std::max(4 * GridLineWidth(), frame);
    const int headerWidth = FixedCols() > 0 ? ColWidth(0) + border : frame;
    const int headerHeight = FixedRows() > 0 ? DefaultRowHeight() + border : frame;
    const int bodyHeight = rows * (DefaultRowHeight() + GridLineWidth());
    const bool moreRows = model_->rowCount() > rows;
    const bool moreColumns = model_->columnCount() > columns;
    const int besides = moreRows ? verticalScrollBar()->sizeHint().width() : 0;
    const int below = moreColumns ? horizontalScrollBar()->sizeHint().height() : 0;
    return {headerWidth + BodyColumnsWidth(columns) + besides, headerHeight + bodyHeight + below};
}

void TStringAlignGrid::FitTo(int maxRows, int maxColumns) {
    const bool moreRows = model_->rowCount() > ShownOf(RowCount(), FixedRows(), maxRows);
    const bool moreColumns = model_->columnCount() > ShownOf(ColCount(), FixedCols(), maxColumns);
    setVerticalScrollBarPolicy(moreRows ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(moreColumns ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setFixedSize(SizeFor(maxRows, maxColumns));
}

void TStringAlignGrid::changeEvent(QEvent *event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        LayOut();
}

int TStringAlignGrid::VisibleRowCount() const {
    const int below = model_->rowCount() - verticalScrollBar()->value();
    const int rowSize = DefaultRowHeight() + GridLineWidth();
    return std::clamp(viewport()->height() / std::max(rowSize, 1), 0, std::max(below, 0));
}
