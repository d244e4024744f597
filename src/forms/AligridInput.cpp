// The grid's keys, mouse and in-place editing.
#include "forms/Aligrid.h"
#include "forms/AligridCursor.h"
#include "forms/AligridEvents.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMetaProperty>
#include <QPlainTextEdit>

namespace {
bool IsEnter(const QKeyEvent &key) {
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

bool OpensMenu(const QKeyEvent &key) {
    return key.key() == Qt::Key_Menu ||
           (key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier);
}

bool TypesText(const QKeyEvent &key) {
    const Qt::KeyboardModifiers command = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !key.text().isEmpty() && key.text().at(0).isPrint() && !(key.modifiers() & command);
}

bool Navigates(const QKeyEvent &key) {
    // The toolkit numbers these without a gap: Home, End, the four arrows, Page Up, Page Down.
    return key.key() >= Qt::Key_Home && key.key() <= Qt::Key_PageDown;
}

QString EditorText(const QWidget &editor) {
    return editor.metaObject()->userProperty().read(&editor).toString();
}
} // namespace

// ---- current cell ----------------------------------------------------------------------------

bool TStringAlignGrid::MaySelect(const QModelIndex &index) {
    const TGridCell cell = model_->CellOf(index);
    bool maySelect = true;
    Fire(OnSelectCell, cell.column, cell.row, maySelect);
    return maySelect;
}

void TStringAlignGrid::MoveTo(TGridCell cell) {
    const QModelIndex index = model_->IndexOf(cell);
    if (index.isValid() && MaySelect(index))
        setCurrentIndex(index);
}

QModelIndex TStringAlignGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex target = QTableView::moveCursor(action, modifiers);
    const bool moves = target.isValid() && target != currentIndex();
    return moves && !MaySelect(target) ? currentIndex() : target;
}

// ---- keys ------------------------------------------------------------------------------------

QPoint TStringAlignGrid::MenuPlace() {
    scrollTo(currentIndex());
    const QRect cell = visualRect(currentIndex()).intersected(viewport()->rect());
    return viewport()->mapToGlobal(cell.isEmpty() ? viewport()->rect().center() : cell.center());
}

void TStringAlignGrid::keyPressEvent(QKeyEvent *event) {
    if (OnMenuKey && OpensMenu(*event)) {
        event->accept();
        Fire(OnMenuKey, MenuPlace());
        return;
    }
    if (Editable && currentIndex().isValid()) {
        const bool opens = event->key() == Qt::Key_F2 || IsEnter(*event);
        if (opens || TypesText(*event)) {
            edit(currentIndex(), opens ? EditKeyPressed : AnyKeyPressed, opens ? nullptr : event);
            event->accept();
            return;
        }
    }
    QTableView::keyPressEvent(event);
    // At an edge too: otherwise the page around the grid would scroll.
    if (Navigates(*event))
        event->accept();
}

// ---- mouse -----------------------------------------------------------------------------------

void TStringAlignGrid::mousePressEvent(QMouseEvent *event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton) {
        dragging_ = index.isValid() && MaySelect(index);
        if (dragging_)
            QTableView::mousePressEvent(event);
    }
    Fire(OnMouseDown, event->button(), event->modifiers(),
         viewport()->mapTo(this, event->position().toPoint()));
}

void TStringAlignGrid::mouseMoveEvent(QMouseEvent *event) {
    if (event->buttons() == Qt::NoButton) {
        QTableView::mouseMoveEvent(event);
        return;
    }
    if (!dragging_ || !(event->buttons() & Qt::LeftButton))
        return;
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || index == currentIndex() || MaySelect(index))
        QTableView::mouseMoveEvent(event);
}

void TStringAlignGrid::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && std::exchange(dragging_, false))
        QTableView::mouseReleaseEvent(event);
    Fire(OnMouseUp, event->button(), event->modifiers(),
         viewport()->mapTo(this, event->position().toPoint()));
}

void TStringAlignGrid::mouseDoubleClickEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton)
        return;
    QTableView::mouseDoubleClickEvent(event);
    Fire(OnDblClick);
}

bool TStringAlignGrid::event(QEvent *event) {
    // From the headers and the corner between them; a scroll area would drop it.
    if (event->type() == QEvent::ContextMenu && OnMenuButton)
        return QWidget::event(event);
    return QTableView::event(event);
}

void TStringAlignGrid::contextMenuEvent(QContextMenuEvent *event) {
    if (OnMenuButton)
        Fire(OnMenuButton, event->globalPos());
    else
        event->ignore();
}

bool TStringAlignGrid::eventFilter(QObject *watched, QEvent *event) {
    for (const QHeaderView *header : {horizontalHeader(), verticalHeader()}) {
        if (header && watched == header->viewport()) {
            const auto type = event->type();
            if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                type == QEvent::MouseButtonDblClick)
                HeaderMouse(header->viewport(), *static_cast<QMouseEvent *>(event));
        }
    }
    return QTableView::eventFilter(watched, event);
}

void TStringAlignGrid::HeaderMouse(const QWidget *header, const QMouseEvent &event) {
    const QPoint inHeader = event.position().toPoint();
    const QPoint position = header->mapTo(this, inHeader);
    const bool left = event.button() == Qt::LeftButton;
    if (event.type() == QEvent::MouseButtonPress) {
        Fire(OnMouseDown, event.button(), event.modifiers(), position);
        return;
    }
    if (event.type() == QEvent::MouseButtonDblClick) {
        if (left)
            Fire(OnDblClick);
        return;
    }
    Fire(OnMouseUp, event.button(), event.modifiers(), position);
    const int column = horizontalHeader()->logicalIndexAt(inHeader);
    const int row = verticalHeader()->logicalIndexAt(inHeader);
    if (left && header == horizontalHeader()->viewport() && column >= 0)
        Fire(OnFixedRowClick, column + FixedCols(), 0);
    if (left && header == verticalHeader()->viewport() && row >= 0)
        Fire(OnFixedColClick, 0, row + FixedRows());
}

// ---- editing ---------------------------------------------------------------------------------

bool TStringAlignGrid::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) {
    const bool opens = Editable && index.isValid() && (trigger & editTriggers()) && !editor_;
    if (!opens)
        return QTableView::edit(index, trigger, event);
    editCell_ = model_->CellOf(index);
    scrollTo(index);
    Fire(OnBeforeEdit, editCell_.column, editCell_.row);
    const QModelIndex opened = model_->IndexOf(editCell_);
    if (!QTableView::edit(opened, trigger, event))
        return false;
    editor_ = indexWidget(opened);
    return true;
}

void TStringAlignGrid::commitData(QWidget *) {
    // The text is taken over once, by FinishEdit, however the edit ends.
}

void TStringAlignGrid::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) {
    // The view itself closes an editor when the current cell moves away from it.
    if (editor == editor_)
        FinishEdit(true);
    else
        QTableView::closeEditor(editor, hint);
}

bool TStringAlignGrid::CloseEditor() {
    const bool open = IsEditing();
    FinishEdit(true);
    return open;
}

/// False when there was nothing to finish, the edit was cancelled, or a handler failed.
bool TStringAlignGrid::FinishEdit(bool accept) {
    // From here on the editor is no longer the open one: losing the focus while it closes, or to
    // the message of a handler, must not end the edit a second time.
    QWidget *editor = std::exchange(editor_, nullptr);
    if (!editor)
        return false;
    const TGridCell cell = editCell_;
    QString text = EditorText(*editor);
    if (accept)
        accept = Fire(OnValidateEdit, cell.column, cell.row, text, accept) && accept;
    if (accept)
        SetCell(cell.column, cell.row, text);
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (accept)
        return Fire(OnAfterEdit, cell.column, cell.row);
    Fire(OnCancelEdit, cell.column, cell.row);
    return false;
}

bool TStringAlignGrid::EditorKey(const QKeyEvent &key) {
    const bool multiline = qobject_cast<QPlainTextEdit *>(editor_) != nullptr;
    if (IsEnter(key)) {
        if (multiline && (key.modifiers() & Qt::ShiftModifier))
            return false;
        AcceptAndGo(NextCellEdit, AfterLastCellEdit);
        return true;
    }
    switch (key.key()) {
    case Qt::Key_Tab:
        AcceptAndGo(NextCellTab, AfterLastCellTab);
        return true;
    case Qt::Key_Backtab:
        AcceptAndStep(-1, 0);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (multiline)
            return false;
        AcceptAndStep(0, key.key() == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_Escape:
        FinishEdit(false);
        return true;
    default:
        return false;
    }
}

void TStringAlignGrid::AcceptAndStep(int columns, int rows) {
    const TGridCell cell = editCell_;
    if (FinishEdit(true))
        MoveTo({cell.column + columns, cell.row + rows});
}

void TStringAlignGrid::AcceptAndGo(TNextCell order, TLastCell last) {
    const TGridCell cell = editCell_;
    if (!FinishEdit(true))
        return;
    std::optional<TGridCell> next = NextCell(order, cell, Body());
    if (!next && last == lc_first)
        next = FirstCell(order, Body());
    if (next) {
        MoveTo(*next);
        if (AutoEditNextCell)
            edit(currentIndex(), AllEditTriggers, nullptr);
    } else if (last == lc_exit) {
        focusNextChild();
    }
}
