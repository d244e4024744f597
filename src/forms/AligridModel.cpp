#include "forms/AligridModel.h"

#include "forms/AligridColors.h"

#include <algorithm>

#include <QBrush>
#include <QGuiApplication>

namespace {
QBrush PaintedBrush(TColor color) {
    return PaintedColor(color, QGuiApplication::palette());
}

Qt::Alignment Horizontal(TAlign align) {
    switch (align) {
    case TAlign::Right:
        return Qt::AlignRight;
    case TAlign::Centre:
        return Qt::AlignHCenter;
    default:
        return Qt::AlignLeft;
    }
}
} // namespace

TAligridModel::TAligridModel(const TAligridSettings &settings, QObject *parent)
    : QAbstractTableModel(parent), settings_(settings) {}

TColor TAligridModel::CellColor(TGridCell cell) const {
    return cells.Color(cell.column, cell.row).value_or(settings_.DefaultColor);
}

TColor TAligridModel::FontColor(TGridCell cell) const {
    return cells.FontColor(cell.column, cell.row).value_or(settings_.DefaultFontColor);
}

Qt::Alignment TAligridModel::Alignment(TGridCell cell) const {
    return Horizontal(cells.Align(cell.column, cell.row).value_or(settings_.Alignment)) |
           Qt::AlignVCenter;
}

TGridCell TAligridModel::CellOf(const QModelIndex &index) const {
    return {index.column() + fixedCols, index.row() + fixedRows};
}

QModelIndex TAligridModel::IndexOf(TGridCell cell) const {
    return index(cell.row - fixedRows, cell.column - fixedCols);
}

void TAligridModel::Changed(const TGridRect &rect) {
    if (changed_)
        changed_ = {std::min(changed_->left, rect.left), std::min(changed_->top, rect.top),
                    std::max(changed_->right, rect.right), std::max(changed_->bottom, rect.bottom)};
    else
        changed_ = rect;
    if (heldBack_ || queued_)
        return;
    queued_ = true;
    QMetaObject::invokeMethod(this, &TAligridModel::NotifyNow, Qt::QueuedConnection);
}

void TAligridModel::NotifyNow() {
    queued_ = false;
    const std::optional<TGridRect> rect = std::exchange(changed_, std::nullopt);
    if (!rect)
        return;
    const int left = std::max(rect->left - fixedCols, 0);
    const int top = std::max(rect->top - fixedRows, 0);
    const int right = std::min(rect->right - fixedCols, columnCount() - 1);
    const int bottom = std::min(rect->bottom - fixedRows, rowCount() - 1);
    if (rect->top < fixedRows && left <= right)
        emit headerDataChanged(Qt::Horizontal, left, right);
    if (rect->left < fixedCols && top <= bottom)
        emit headerDataChanged(Qt::Vertical, top, bottom);
    if (left <= right && top <= bottom)
        emit dataChanged(index(top, left), index(bottom, right));
}

void TAligridModel::EndReset() {
    changed_.reset(); // the reset tells of it
    endResetModel();
}

int TAligridModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : std::max(cells.RowCount() - fixedRows, 0);
}

int TAligridModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : std::max(cells.ColCount() - fixedCols, 0);
}

QVariant TAligridModel::CellData(TGridCell cell, int role) const {
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cells.Text(cell.column, cell.row);
    case Qt::TextAlignmentRole:
        return static_cast<int>(Alignment(cell));
    case Qt::BackgroundRole:
        return PaintedBrush(CellColor(cell));
    case Qt::ForegroundRole:
        return PaintedBrush(FontColor(cell));
    case BackgroundColorRole:
        return CellColor(cell);
    case FontColorRole:
        return FontColor(cell);
    case Qt::AccessibleTextRole:
        return nameOf(cell);
    case Qt::AccessibleDescriptionRole:
        return meaningOf(cell);
    default:
        return {};
    }
}

QVariant TAligridModel::data(const QModelIndex &index, int role) const {
    return index.isValid() ? CellData(CellOf(index), role) : QVariant();
}

QVariant TAligridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool horizontal = orientation == Qt::Horizontal;
    if ((horizontal ? fixedRows : fixedCols) == 0)
        return {};
    const TGridCell cell =
        horizontal ? TGridCell{section + fixedCols, 0} : TGridCell{0, section + fixedRows};
    // The usual colours are left to the style, which gives headers its own look.
    if (role == Qt::BackgroundRole)
        return settings_.FixedColor == clBtnFace ? QVariant() : PaintedBrush(settings_.FixedColor);
    if (role == Qt::ForegroundRole && FontColor(cell) == clWindowText)
        return {};
    return CellData(cell, role);
}

Qt::ItemFlags TAligridModel::flags(const QModelIndex &index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags shown = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return settings_.Editable ? shown | Qt::ItemIsEditable : shown;
}
