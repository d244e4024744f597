#include "forms/AligridDelegate.h"

#include "forms/AligridColors.h"
#include "forms/MousePress.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QToolTip>

namespace {
constexpr int focusFrame = 2;
constexpr QMargins shadeFrame(3, 3, 3, 3); // of a shaded cell, around a marked text

/// Of the longest line.
int TextWidth(const QFontMetrics &metrics, const QString &text) {
    return text.contains('\n') ? metrics.size(0, text).width() : metrics.horizontalAdvance(text);
}

bool IsCurrent(const QStyleOptionViewItem &option, const QModelIndex &index) {
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    return view && view->currentIndex() == index;
}

/// Inside the cell; thicker while the grid has the focus.
void DrawCurrentFrame(QPainter &painter, const QRect &rect, const QStyleOptionViewItem &option,
                      const QColor &color) {
    const bool focused = option.state.testFlag(QStyle::State_HasFocus);
    const int thickness = focused ? focusFrame : 1;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRect(rect.left(), rect.top(), rect.width(), thickness);
    painter.drawRect(rect.left(), rect.bottom() - thickness + 1, rect.width(), thickness);
    painter.drawRect(rect.left(), rect.top(), thickness, rect.height());
    painter.drawRect(rect.right() - thickness + 1, rect.top(), thickness, rect.height());
}
} // namespace

TAligridDelegate::TAligridDelegate(const TAligridSettings &settings, const TAligridModel &model,
                                   QObject *parent)
    : QStyledItemDelegate(parent), settings_(settings), model_(model) {}

bool TAligridDelegate::Tinted(const QStyleOptionViewItem &option) const {
    return settings_.DrawSelection && option.state.testFlag(QStyle::State_Selected);
}

TColor TAligridDelegate::ShownColor(TGridCell cell) const {
    const TColor own = model_.CellColor(cell);
    return own == settings_.DefaultColor ? shadeOf(cell).value_or(own) : own;
}

QColor TAligridDelegate::Background(const QStyleOptionViewItem &option, TColor color) const {
    const QColor own = PaintedColor(color, option.palette);
    if (!Tinted(option))
        return own;
    const QColor tint = PaintedColor(settings_.SelectedCellColor, option.palette);
    // A mark stays recognisable under the selection.
    return color == settings_.DefaultColor ? tint : Blended(tint, own, 0.5);
}

TColor TAligridDelegate::ColorBehindText(TGridCell cell) const {
    const bool marked = model_.FontColor(cell) != settings_.DefaultFontColor;
    const TColor own = model_.CellColor(cell);
    // The colour of a text could not be told on every shade.
    return marked && own == settings_.DefaultColor ? own : ShownColor(cell);
}

QColor TAligridDelegate::TextColor(const QStyleOptionViewItem &option, TGridCell cell) const {
    const TColor color = model_.FontColor(cell);
    const QColor background = Background(option, ColorBehindText(cell));
    const bool plain = color == settings_.DefaultFontColor;
    if (plain && ShownColor(cell) != settings_.DefaultColor)
        return ReadableOn(background);
    const TColor wanted = plain && Tinted(option) ? settings_.SelectedFontColor : color;
    // The cell keeps its colour; only what is painted gives way to the theme's background.
    return Legible(PaintedColor(wanted, option.palette), background);
}

QRect TAligridDelegate::Inside(const QRect &rect) const {
    return rect.adjusted(0, 0, -gridLineWidth, -gridLineWidth);
}

QRect TAligridDelegate::TextRect(const QStyleOptionViewItem &option, const QString &text) const {
    const QRect inside = Inside(option.rect);
    const int room = inside.width() - TextWidth(option.fontMetrics, text);
    const int margin = std::clamp(room / 2, 0, cellTextMargin);
    return inside.adjusted(margin, 0, -margin, 0);
}

void TAligridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const {
    const TGridCell cell = model_.CellOf(index);
    const QColor line =
        Blended(option.palette.color(QPalette::Text), option.palette.color(QPalette::Base), 0.2);
    painter->fillRect(option.rect, line);
    const QColor background = Background(option, ShownColor(cell));
    painter->fillRect(Inside(option.rect), background);
    if (ColorBehindText(cell) != ShownColor(cell))
        painter->fillRect(Inside(option.rect).marginsRemoved(shadeFrame),
                          Background(option, ColorBehindText(cell)));
    painter->setPen(TextColor(option, cell));
    const int flow = Qt::TextForceLeftToRight | // signs stand before their number everywhere
                     (settings_.Wordwrap ? Qt::TextWordWrap : Qt::TextSingleLine);
    const QString text = model_.cells.Text(cell.column, cell.row);
    painter->drawText(TextRect(option, text), static_cast<int>(model_.Alignment(cell)) | flow,
                      text);
    if (!IsCurrent(option, index))
        return;
    // The active colour also in windows without the focus, where some themes have plain grey.
    const QColor frame = option.palette.color(QPalette::Active, QPalette::Highlight);
    DrawCurrentFrame(*painter, Inside(option.rect), option,
                     Legible(frame, background, leastLineContrast));
}

QWidget *TAligridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const {
    const TGridCell cell = model_.CellOf(index);
    if (settings_.EditMultiline) {
        auto *editor = new QPlainTextEdit(parent);
        editor->setFrameShape(QFrame::NoFrame);
        editor->setAccessibleName(placeOf(cell));
        return editor;
    }
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    editor->setAlignment(model_.Alignment(cell));
    editor->setAccessibleName(placeOf(cell));
    return editor;
}

void TAligridDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
    // Once, before it is shown: a repaint of the cells must not overwrite what is being typed.
    if (editor->isVisible())
        return;
    QStyledItemDelegate::setEditorData(editor, index);
    if (auto *multiline = qobject_cast<QPlainTextEdit *>(editor))
        multiline->selectAll(); // as the view does with a line, so that typing replaces the text
}

void TAligridDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                            const QModelIndex &) const {
    // The current cell's frame stays visible around it.
    editor->setGeometry(
        Inside(option.rect).marginsRemoved({focusFrame, focusFrame, focusFrame, focusFrame}));
}

bool TAligridDelegate::eventFilter(QObject *editor, QEvent *event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return onEditorKey(*static_cast<QKeyEvent *>(event));
    case QEvent::ShortcutOverride:
        // Escape ends the edit, not the window around the grid.
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
            event->accept();
        return false;
    case QEvent::FocusOut:
        // The editor's own context menu is not leaving it.
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason) {
            const TMousePress press;
            onEditorLeft();
        }
        return false;
    default:
        // The base class would end the edit by keys of its own.
        return QObject::eventFilter(editor, event); // NOLINT(bugprone-parent-virtual-call)
    }
}

bool TAligridDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &option, const QModelIndex &index) {
    if (!settings_.ShowCellHints || event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const TGridCell cell = model_.CellOf(index);
    const QString text = model_.cells.Text(cell.column, cell.row);
    const bool fits = TextWidth(option.fontMetrics, text) <= TextRect(option, text).width();
    QString hint = fits ? QString() : text;
    onHint(cell, hint);
    QToolTip::showText(event->globalPos(), hint, view, option.rect);
    event->setAccepted(!hint.isEmpty());
    return event->isAccepted();
}
