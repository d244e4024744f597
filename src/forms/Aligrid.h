// The grid of every page: texts with colours and alignments per cell, one fixed row and column that
// are drawn as headers, editing in place. A table view over its own model: storage is AligridCells,
// painting AligridDelegate, the cursor's rules AligridCursor. It knows nothing of ROMs and maps.
#pragma once

#include "forms/AligridModel.h"

#include <functional>
#include <vector>

#include <QTableView>

class TAligridDelegate;

/// Coordinates are (column, row) from 0, header cells included. Reads outside the grid give the
/// defaults, writes there are ignored. No accessor repaints: all changes until control returns to
/// the event loop are announced together.
///
/// Selecting is for the left mouse button and the keys; Shift extends the rectangle. An error out
/// of an event handler is shown and goes no further.
class TStringAlignGrid : public QTableView, public TAligridSettings {
    Q_OBJECT
public:
    /// A grid of 5 x 5 empty cells, one fixed row and column.
    explicit TStringAlignGrid(QWidget *parent = nullptr);
    ~TStringAlignGrid() override;

    // ---- shape -------------------------------------------------------------------------------
    // A change of shape cancels an open editor and keeps the current cell and the selection as far
    // as they still exist, without OnSelectCell.

    int ColCount() const { return model_->cells.ColCount(); }
    int RowCount() const { return model_->cells.RowCount(); }
    /// Empties all cells, their colours and alignments; fixed row and column stay as set.
    void SetShape(int columns, int rows);
    /// Adds empty rows at the end or cuts rows off it.
    void SetRowCount(int rows);
    /// Inserts an empty row after row `after`; -1 inserts it at the top.
    void InsertRow(int after);
    void RemoveRow(int row);
    /// Sorts the rows (columns) behind the fixed ones by OnCompareRow (OnCompareCol), with all
    /// their properties; equal ones keep their order. Nothing happens without a handler.
    void SortRows();
    void SortCols();

    /// 0 or 1. A fixed row or column is drawn as a header and cannot be selected; without it the
    /// same cells, with their texts and colours, are ordinary ones.
    int FixedRows() const { return model_->fixedRows; }
    int FixedCols() const { return model_->fixedCols; }
    void SetFixedRows(int count);
    void SetFixedCols(int count);

    /// Between the outermost pair nothing is announced but that the shape will change; the end
    /// gives one reset when it has, else one change of cells. See TGridUpdate.
    void BeginUpdate();
    void EndUpdate();

    // ---- cells -------------------------------------------------------------------------------

    QString Cell(int column, int row) const { return model_->cells.Text(column, row); }
    void SetCell(int column, int row, const QString &text);
    /// Cells whose text was never set, header cells too, show what `source` gives for them,
    /// which is asked whenever one is read. Moved rows leave such texts behind, SetShape ends them.
    void SetTextSource(TTextSource source);
    /// Colours read back exactly as written, top byte included.
    TColor CellColor(int column, int row) const { return model_->CellColor({column, row}); }
    void SetCellColor(int column, int row, TColor color);
    TColor FontColor(int column, int row) const { return model_->FontColor({column, row}); }
    void SetFontColor(int column, int row, TColor color);
    /// The background colours of all cells, row by row, to be read and written until the shape
    /// changes: each cell gets one of its own. Announced as a change of all cells.
    std::span<TColor> LendCellColors();
    /// To read, when each cell has one of its own; else none.
    std::span<const TColor> OwnCellColors() const { return model_->cells.OwnColors(); }

    /// What is set for this cell, column or row itself. A cell's goes before its column's, that
    /// before its row's, that before the grid's (TAligridSettings).
    TCellProperties PropCell(int column, int row) const;
    TCellProperties PropCol(int column) const { return model_->cells.ColumnProperties(column); }
    TCellProperties PropRow(int row) const { return model_->cells.RowProperties(row); }
    /// Replaces all of it.
    void SetPropCell(int column, int row, const TCellProperties &properties);
    void SetPropCol(int column, const TCellProperties &properties);
    void SetPropRow(int row, const TCellProperties &properties);

    TAlign AlignCell(int column, int row) const; ///< the one in force
    void SetAlignCell(int column, int row, TAlign align);
    /// What is set for this column or row itself.
    std::optional<TAlign> AlignCol(int column) const { return PropCol(column).align; }
    std::optional<TAlign> AlignRow(int row) const { return PropRow(row).align; }
    void SetAlignCol(int column, TAlign align);
    void SetAlignRow(int row, TAlign align);

    // ---- current cell and selection ----------------------------------------------------------

    /// The current cell; where there is none, the first cell behind the fixed ones.
    int Col() const { return Current().column; }
    int Row() const { return Current().row; }
    /// Selects this one cell, when OnSelectCell allows it. Fixed cells are ignored.
    void SetCurrent(int column, int row);
    TGridRect Selection() const; ///< at least the current cell
    /// Selects what lies behind the fixed cells; the current cell becomes the bottom right one.
    void SetSelection(const TGridRect &rect);
    int VisibleRowCount() const; ///< rows behind the fixed one that are wholly visible now

    /// The cells of `rect` that exist, fixed ones too, joined by `separator`; "\n" ends each row.
    QString RectangleText(const TGridRect &rect, QChar separator) const;
    void CopyRectangle(const TGridRect &rect, QChar separator) const; ///< on the clipboard

    // ---- editing -----------------------------------------------------------------------------

    /// Accepts and closes an open editor, as leaving the cell does. False when there was none.
    bool CloseEditor();
    bool IsEditing() const { return editor_ != nullptr; }

    // ---- sizes, in pixels without grid lines -------------------------------------------------

    int ColWidth(int column) const;
    void SetColWidth(int column, int width);
    int DefaultColWidth() const;
    /// Of all columns, also of those that had a width of their own.
    void SetDefaultColWidth(int width);
    int DefaultRowHeight() const; ///< of every row, the fixed one included
    void SetDefaultRowHeight(int height);
    int GridLineWidth() const;
    void SetGridLineWidth(int width);
    bool AutoAdjustLastCol() const; ///< whether the last column takes up the room left
    void SetAutoAdjustLastCol(bool adjust);
    /// Otherwise the cells move when the scroll bar's handle is let go.
    bool RedrawWhileScroll() const;
    void SetRedrawWhileScroll(bool redraw);

    /// As large as the first row and column, fixed or not, and at most `maxRows` and `maxColumns`
    /// of the others; with more of them a scroll bar and the room for it are added.
    QSize SizeFor(int maxRows, int maxColumns) const;
    void FitTo(int maxRows, int maxColumns); ///< makes the grid so large

    // ---- events ------------------------------------------------------------------------------

    /// A cell is about to become the current one, or is pressed again. Not asked for the other
    /// cells of a selection.
    std::function<void(int column, int row, bool &maySelect)> OnSelectCell;
    /// Positions are the widget's own coordinates; header cells count too.
    std::function<void(Qt::MouseButton, Qt::KeyboardModifiers, QPoint)> OnMouseDown;
    std::function<void(Qt::MouseButton, Qt::KeyboardModifiers, QPoint)> OnMouseUp;
    /// Left button; the cell under it is the current one by then.
    std::function<void()> OnDblClick;
    /// Before the editor opens; it opens also after an error, so that the cell can be corrected.
    std::function<void(int column, int row)> OnBeforeEdit;
    /// May change the text or refuse it, which cancels the edit.
    std::function<void(int column, int row, QString &text, bool &accept)> OnValidateEdit;
    /// The text is in the cell, equal or not. After an error the cursor stays.
    std::function<void(int column, int row)> OnAfterEdit;
    std::function<void(int column, int row)> OnCancelEdit;
    /// `hint` is the text of a cell that is too small for it, else empty. Needs ShowCellHints.
    std::function<void(int column, int row, QString &hint)> OnShowHintCell;
    /// A cell without a background of its own is painted; what is left empty is as the others are.
    std::function<void(int column, int row, std::optional<TColor> &shade)> OnShadeCell;
    /// `order` below, at or above 0: the first row goes before, with or behind the second.
    std::function<void(int first, int second, int &order)> OnCompareRow;
    std::function<void(int first, int second, int &order)> OnCompareCol;
    std::function<void()> OnColWidthsChanged;
    std::function<void()> OnRowHeightsChanged;
    /// The left button was let go over a cell of the fixed column (row).
    std::function<void(int column, int row)> OnFixedColClick;
    std::function<void(int column, int row)> OnFixedRowClick;

    // With the place on the screen: the middle of the current cell, or where the mouse is.
    std::function<void(QPoint)> OnMenuKey;    ///< the Menu key or Shift+F10
    std::function<void(QPoint)> OnMenuButton; ///< the right button over a cell, header cells too

    // For screen readers, to whom a cell is "place: text".

    /// Where a cell is, header cells too. `place` comes as the texts of the cell's headers.
    std::function<void(int column, int row, QString &place)> OnCellPlace;
    /// What a cell's colours mean; comes empty.
    std::function<void(int column, int row, QString &meaning)> OnCellMeaning;

    using QTableView::edit; // opens the editor on an index, as a key would
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyboardSearch(const QString &) override {}

protected:
    bool event(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void commitData(QWidget *editor) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct TPlace {
        TGridCell current;
        TGridRect selection;
    };

    void InstallHeaders();
    void BeginReset();
    void Rearrange(const TOrder &columns, const TOrder &rows);
    TGridRect Body() const;
    TGridCell Current() const;
    TGridCell IntoBody(TGridCell cell) const;
    void Restore(const TPlace &place);
    void Select(const TGridRect &rect);
    void LayOut();
    int ColWidthOr(int column, int standard) const;
    int BodyColumnsWidth(int columns) const;

    bool MaySelect(const QModelIndex &index);
    void MoveTo(TGridCell cell);
    bool EditorKey(const QKeyEvent &key);
    void AcceptAndGo(TNextCell order, TLastCell last);
    void AcceptAndStep(int columns, int rows);
    bool FinishEdit(bool accept);
    QPoint MenuPlace();
    QString CellPlace(TGridCell cell) const;
    QString CellName(TGridCell cell) const;
    QString CellMeaning(TGridCell cell) const;
    void HeaderMouse(const QWidget *header, const QMouseEvent &event);

    TAligridModel *model_;
    TAligridDelegate *delegate_;
    std::vector<std::optional<int>> colWidths_;
    std::optional<int> defaultColWidth_;
    std::optional<int> defaultRowHeight_;
    int updates_ = 0;
    bool resetting_ = false; ///< between the announcement of another shape and its end
    TPlace place_;           ///< during updates: what EndUpdate restores
    bool dragging_ = false;
    QWidget *editor_ = nullptr; ///< the open editor, owned by the view
    TGridCell editCell_;
};

/// Holds the announcements of a grid back for the length of a block.
class TGridUpdate {
public:
    explicit TGridUpdate(TStringAlignGrid &grid) : grid_(grid) { grid_.BeginUpdate(); }
    ~TGridUpdate() { grid_.EndUpdate(); }
    TGridUpdate(const TGridUpdate &) = delete;
    TGridUpdate &operator=(const TGridUpdate &) = delete;

private:
    TStringAlignGrid &grid_;
};
