// Draws a grid's cells and makes their editors. What a key in an editor means is the grid's
// business (Aligrid.h); this only passes it on.
#pragma once

#include "forms/AligridModel.h"

#include <functional>

#include <QKeyEvent>
#include <QStyledItemDelegate>

class TAligridDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    /// `settings` and `model` outlive the delegate's use.
    TAligridDelegate(const TAligridSettings &settings, const TAligridModel &model, QObject *parent);

    int gridLineWidth = 1;
    /// A key pressed in an editor; true when it has been dealt with.
    std::function<bool(QKeyEvent &)> onEditorKey;
    /// An editor has lost the focus to another control or window.
    std::function<void()> onEditorLeft;
    /// The tool tip of a cell; comes with the text if that does not fit, else empty.
    std::function<void(TGridCell, QString &)> onHint;
    /// The background of a cell that has none of its own; none: the grid's.
    std::function<std::optional<TColor>(TGridCell)> shadeOf;
    /// Where a cell is, for the name of its editor.
    std::function<QString(TGridCell)> placeOf;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool eventFilter(QObject *editor, QEvent *event) override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    /// The cell's colour, or its shade.
    TColor ShownColor(TGridCell cell) const;
    /// What the text stands on: a marked text of a shaded cell on the grid's own colour.
    TColor ColorBehindText(TGridCell cell) const;
    QColor Background(const QStyleOptionViewItem &option, TColor color) const;
    QColor TextColor(const QStyleOptionViewItem &option, TGridCell cell) const;
    bool Tinted(const QStyleOptionViewItem &option) const;
    QRect Inside(const QRect &rect) const;
    /// With the margins as far as the text leaves room for them.
    QRect TextRect(const QStyleOptionViewItem &option, const QString &text) const;

    const TAligridSettings &settings_;
    const TAligridModel &model_;
};
