// The three maps of a page one below the other: panels on the left, charts on the right, all of
// which begin at one line. The widest grid gives that line its place, but charts keep a share of
// the width: grids then show fewer columns at once. Free height is shared, part throttle gets most;
// where height is short the part throttle grid shows fewer rows.
#pragma once

#include "maps/MapPanel.h"

#include <array>

#include <QGridLayout>

class TMapRows : public QWidget {
    Q_OBJECT
public:
    explicit TMapRows(QWidget *parent = nullptr);

    TMapPanel &Row(TMapKind kind) const { return *rows_[static_cast<std::size_t>(kind)]; }

    /// Hides the two others for good; this one gets their room.
    void ShowOnly(TMapKind kind);

    /// The widest head of a panel beside the narrowest chart, and few rows of the part throttle
    /// grid: the grids show less at once then.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int LeastPanelWidth() const;
    bool HasPTGrid() const;
    /// What the panels need one below the other, but for the part throttle grid.
    int HeightBesidesPTGrid() const;
    void ShareRoom();

    QGridLayout *layout_;
    std::array<TMapPanel *, 3> rows_;
};
