// Shows a grid's cells to the toolkit's views. The fixed row and column are the views' headers;
// index (r, c) is cell (c + fixed columns, r + fixed rows). Read-only for the toolkit: texts are
// accepted by the grid (Aligrid.h), which also decides when an editor opens.
#pragma once

#include "forms/AligridCells.h"

#include <functional>

#include <QAbstractTableModel>

class TAligridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum TRole {
        BackgroundColorRole = Qt::UserRole + 1, ///< background as written, 32 bits
        FontColorRole = Qt::UserRole + 2        ///< font colour as written, 32 bits
    };

    /// `settings` outlives the model.
    TAligridModel(const TAligridSettings &settings, QObject *parent);

    TAligridCells cells;
    int fixedRows = 1; ///< 0 or 1
    int fixedCols = 1; ///< 0 or 1
    /// What screen readers are told of a cell.
    std::function<QString(TGridCell)> nameOf = [](TGridCell) { return QString(); };
    std::function<QString(TGridCell)> meaningOf = [](TGridCell) { return QString(); };

    /// The cell's value with the grid-wide default behind it.
    TColor CellColor(TGridCell cell) const;
    TColor FontColor(TGridCell cell) const;
    Qt::Alignment Alignment(TGridCell cell) const;

    TGridCell CellOf(const QModelIndex &index) const;
    /// Invalid for fixed cells and for what lies outside the grid.
    QModelIndex IndexOf(TGridCell cell) const;

    /// Announces a changed cell (or rectangle of cells): all changes until control returns to the
    /// event loop, or until NotifyNow, go out as one signal.
    void Changed(int column, int row) { Changed(TGridRect{column, row, column, row}); }
    void Changed(const TGridRect &rect);
    /// While held back, changes are collected and no call is queued.
    void HoldBack(bool hold) { heldBack_ = hold; }
    void NotifyNow();
    /// Around every change of the shape, of the fixed rows and columns.
    void BeginReset() { beginResetModel(); }
    void EndReset();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QVariant CellData(TGridCell cell, int role) const;

    const TAligridSettings &settings_;
    bool heldBack_ = false;
    bool queued_ = false;
    std::optional<TGridRect> changed_;
};
