#include "forms/Aligrid.h"

#include "forms/AligridDelegate.h"
#include "forms/AligridEvents.h"
#include "forms/AligridHeader.h"
#include "forms/Guard.h"

#include <algorithm>
#include <numeric>

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>

namespace {
constexpr int scrollBarRoom = 20;

/// As wide as the room that FitTo makes for it, so that no strip stays empty beside it.
class TRoomyScrollBar : public QScrollBar {
public:
    using QScrollBar::QScrollBar;
    QSize sizeHint() const override {
        return QScrollBar::sizeHint().expandedTo({scrollBarRoom, scrollBarRoom});
    }
};

TOrder Identity(int count) {
    TOrder order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), 0);
    return order;
}

using TCompare = std::function<void(int first, int second, int &order)>;

/// `count` positions, those from `fixed` on sorted by `compare`; as they were when it fails.
TOrder Sorted(int count, int fixed, const TCompare &compare) {
    TOrder order = Identity(count);
    const auto before = [&](int a, int b) {
        int relation = 0;
        compare(a, b, relation);
        return relation < 0;
    };
    const bool sorted = Guarded(
        [&] { std::stable_sort(order.begin() + std::min(fixed, count), order.end(), before); });
    return sorted ? order : Identity(count);
}

bool Inside(const TGridRect &rect, TGridCell cell) {
    return cell.column >= rect.left && cell.column <= rect.right && cell.row >= rect.top &&
           cell.row <= rect.bottom;
}
} // namespace

TStringAlignGrid::TStringAlignGrid(QWidget *parent)
    : QTableView(parent),
      model_(new TAligridModel(*this, this)),
      delegate_(new TAligridDelegate(*this, *model_, this)) {
    model_->cells.SetShape(5, 5);
    setModel(model_);
    setItemDelegate(delegate_);
    delegate_->onEditorKey = [this](const QKeyEvent &key) { return EditorKey(key); };
    delegate_->onEditorLeft = [this] { FinishEdit(true); };
    delegate_->onHint = [this](TGridCell cell, QString &hint) {
        Fire(OnShowHintCell, cell.column, cell.row, hint);
    };
    setLayoutDirection(Qt::LeftToRight); // tables of numbers run rightwards in every language
    delegate_->shadeOf = [this](TGridCell cell) {
        std::optional<TColor> shade;
        Fire(OnShadeCell, cell.column, cell.row, shade);
        return shade;
    };
    delegate_->placeOf = [this](TGridCell cell) { return CellPlace(cell); };
    model_->nameOf = [this](TGridCell cell) { return CellName(cell); };
    model_->meaningOf = [this](TGridCell cell) { return CellMeaning(cell); };
    setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
    setSelectionMode(ContiguousSelection);
    setTabKeyNavigation(false);
    setShowGrid(false); // the delegate draws the lines
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerItem);
    setVerticalScrollMode(ScrollPerItem);
    setVerticalScrollBar(new TRoomyScrollBar(Qt::Vertical, this));
    setHorizontalScrollBar(new TRoomyScrollBar(Qt::Horizontal, this));
    InstallHeaders();
    LayOut();
    Restore({});
}

TStringAlignGrid::~TStringAlignGrid() {
    editor_ = nullptr; // what the toolkit still tells about it while it goes is of no interest
    delegate_->onEditorLeft = [] {};
}

void TStringAlignGrid::InstallHeaders() {
    setCornerButtonEnabled(false);
    // Otherwise the corner would keep the mouse to itself, although it is a header cell.
    findChild<QAbstractButton *>()->setAttribute(Qt::WA_TransparentForMouseEvents);
    setHorizontalHeader(new TAligridHeader(Qt::Horizontal, this));
    setVerticalHeader(new TAligridHeader(Qt::Vertical, this));
    for (const QHeaderView *header : {horizontalHeader(), verticalHeader()})
        header->viewport()->installEventFilter(this);
}

// ---- shape -----------------------------------------------------------------------------------

void TStringAlignGrid::SetShape(int columns, int rows) {
    const TGridUpdate update(*this);
    BeginReset();
    model_->cells.SetShape(columns, rows);
}

void TStringAlignGrid::SetRowCount(int rows) {
    const TGridUpdate update(*this);
    BeginReset();
    model_->cells.SetRowCount(rows);
}

void TStringAlignGrid::InsertRow(int after) {
    if (after < -1 || after >= RowCount())
        return;
    TOrder rows = Identity(RowCount());
    rows.insert(rows.begin() + after + 1, -1);
    Rearrange(Identity(ColCount()), rows);
}

void TStringAlignGrid::RemoveRow(int row) {
    if (row < 0 || row >= RowCount())
        return;
    TOrder rows = Identity(RowCount());
    rows.erase(rows.begin() + row);
    Rearrange(Identity(ColCount()), rows);
}

void TStringAlignGrid::SortRows() {
    if (OnCompareRow)
        Rearrange(Identity(ColCount()), Sorted(RowCount(), FixedRows(), OnCompareRow));
}

void TStringAlignGrid::SortCols() {
    if (OnCompareCol)
        Rearrange(Sorted(ColCount(), FixedCols(), OnCompareCol), Identity(RowCount()));
}

void TStringAlignGrid::Rearrange(const TOrder &columns, const TOrder &rows) {
    const TGridUpdate update(*this);
    BeginReset();
    model_->cells.Rearrange(columns, rows);
}

void TStringAlignGrid::SetFixedRows(int count) {
    const TGridUpdate update(*this);
    BeginReset();
    model_->fixedRows = std::clamp(count, 0, 1);
}

void TStringAlignGrid::SetFixedCols(int count) {
    const TGridUpdate update(*this);
    BeginReset();
    model_->fixedCols = std::clamp(count, 0, 1);
}

void TStringAlignGrid::BeginUpdate() {
    if (updates_ > 0) {
        ++updates_;
        return;
    }
    place_ = {Current(), Selection()};
    model_->HoldBack(true);
    updates_ = 1;
}

/// Announces, inside an update and before it is made, the first change of the shape.
void TStringAlignGrid::BeginReset() {
    if (resetting_)
        return;
    FinishEdit(false); // tells OnCancelEdit, which may change the shape itself
    if (!std::exchange(resetting_, true))
        model_->BeginReset();
}

void TStringAlignGrid::EndUpdate() {
    if (--updates_ > 0)
        return;
    model_->HoldBack(false);
    if (!std::exchange(resetting_, false)) {
        model_->NotifyNow();
        return;
    }
    model_->EndReset();
    LayOut();
    Restore(place_);
}

/// Puts the current cell and the selection back without asking and without scrolling.
void TStringAlignGrid::Restore(const TPlace &place) {
    setAutoScroll(false);
    const TGridRect selection = Common(place.selection, Body());
    const TGridCell current = IntoBody(place.current);
    setCurrentIndex(model_->IndexOf(current));
    if (!Empty(selection) && Inside(selection, current))
        Select(selection);
    setAutoScroll(true);
}

// ---- cells -----------------------------------------------------------------------------------

void TStringAlignGrid::SetCell(int column, int row, const QString &text) {
    if (model_->cells.SetText(column, row, text))
        model_->Changed(column, row);
}

void TStringAlignGrid::SetTextSource(TTextSource source) {
    model_->cells.SetTextSource(std::move(source));
    model_->Changed(model_->cells.All());
}

void TStringAlignGrid::SetCellColor(int column, int row, TColor color) {
    if (model_->cells.SetColor(column, row, color))
        model_->Changed(column, row);
}

void TStringAlignGrid::SetFontColor(int column, int row, TColor color) {
    if (model_->cells.SetFontColor(column, row, color))
        model_->Changed(column, row);
}

std::span<TColor> TStringAlignGrid::LendCellColors() {
    model_->Changed(model_->cells.All());
    return model_->cells.LendColors(DefaultColor);
}

TCellProperties TStringAlignGrid::PropCell(int column, int row) const {
    return model_->cells.CellProperties(column, row);
}

void TStringAlignGrid::SetPropCell(int column, int row, const TCellProperties &properties) {
    model_->cells.SetCellProperties(column, row, properties);
    model_->Changed(column, row);
}

void TStringAlignGrid::SetPropCol(int column, const TCellProperties &properties) {
    model_->cells.SetColumnProperties(column, properties);
    model_->Changed({column, 0, column, RowCount() - 1});
}

void TStringAlignGrid::SetPropRow(int row, const TCellProperties &properties) {
    model_->cells.SetRowProperties(row, properties);
    model_->Changed({0, row, ColCount() - 1, row});
}

TAlign TStringAlignGrid::AlignCell(int column, int row) const {
    return model_->cells.Align(column, row).value_or(Alignment);
}

void TStringAlignGrid::SetAlignCell(int column, int row, TAlign align) {
    TCellProperties properties = PropCell(column, row);
    properties.align = align;
    SetPropCell(column, row, properties);
}

void TStringAlignGrid::SetAlignCol(int column, TAlign align) {
    TCellProperties properties = PropCol(column);
    properties.align = align;
    SetPropCol(column, properties);
}

void TStringAlignGrid::SetAlignRow(int row, TAlign align) {
    TCellProperties properties = PropRow(row);
    properties.align = align;
    SetPropRow(row, properties);
}

// ---- current cell and selection --------------------------------------------------------------

TGridRect TStringAlignGrid::Body() const {
    return {FixedCols(), FixedRows(), ColCount() - 1, RowCount() - 1};
}

TGridCell TStringAlignGrid::IntoBody(TGridCell cell) const {
    const TGridRect body = Body();
    return {std::clamp(cell.column, body.left, std::max(body.left, body.right)),
            std::clamp(cell.row, body.top, std::max(body.top, body.bottom))};
}

TGridCell TStringAlignGrid::Current() const {
    if (updates_ > 0)
        return place_.current;
    const QModelIndex index = currentIndex();
    return index.isValid() ? model_->CellOf(index) : IntoBody({});
}

void TStringAlignGrid::SetCurrent(int column, int row) {
    if (!Inside(Body(), {column, row}))
        return;
    if (updates_ > 0)
        place_ = {{column, row}, {column, row, column, row}};
    else
        MoveTo({column, row});
}

TGridRect TStringAlignGrid::Selection() const {
    if (updates_ > 0)
        return place_.selection;
    const QItemSelection selection = selectionModel()->selection();
    const TGridCell current = Current();
    if (selection.isEmpty())
        return {current.column, current.row, current.column, current.row};
    const QItemSelectionRange &range = selection.constFirst();
    return {range.left() + FixedCols(), range.top() + FixedRows(), range.right() + FixedCols(),
            range.bottom() + FixedRows()};
}

void TStringAlignGrid::SetSelection(const TGridRect &rect) {
    const TGridRect inside = Common(rect, Body());
    if (Empty(inside))
        return;
    if (updates_ > 0) {
        place_ = {{inside.right, inside.bottom}, inside};
        return;
    }
    setCurrentIndex(model_->IndexOf({inside.left, inside.top})); // where Shift extends from
    Select(inside);
    selectionModel()->setCurrentIndex(model_->IndexOf({inside.right, inside.bottom}),
                                      QItemSelectionModel::NoUpdate);
}

void TStringAlignGrid::Select(const TGridRect &rect) {
    selectionModel()->select(QItemSelection(model_->IndexOf({rect.left, rect.top}),
                                            model_->IndexOf({rect.right, rect.bottom})),
                             QItemSelectionModel::ClearAndSelect);
}

QString TStringAlignGrid::RectangleText(const TGridRect &rect, QChar separator) const {
    return model_->cells.RectangleText(rect, separator);
}

void TStringAlignGrid::CopyRectangle(const TGridRect &rect, QChar separator) const {
    QGuiApplication::clipboard()->setText(RectangleText(rect, separator));
}
