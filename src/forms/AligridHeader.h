// Draws the fixed row or column of a grid: the style's header sections, their texts standing where
// the cells' texts stand.
#pragma once

#include <QHeaderView>

class TAligridHeader : public QHeaderView {
    Q_OBJECT
public:
    /// Sections keep the sizes that the grid gives them and cannot be selected.
    TAligridHeader(Qt::Orientation orientation, QWidget *parent);

    /// The size that the grid has fixed: nothing needs measuring the texts of 200 sections.
    QSize sizeHint() const override { return minimumSize(); }

protected:
    void paintSection(QPainter *painter, const QRect &rect, int section) const override;
};
