#include "discovery/MapSide.h"

#include "forms/Hint.h"
#include "forms/Named.h"
#include "maps/MapCellNames.h"
#include "maps/MapGrid.h"

#include <QVBoxLayout>

namespace {
constexpr int sideCellMargins = 8; // pixels, both sides together
}

TMapSide::TMapSide(QWidget *parent, const TNames &names)
    : QWidget(parent),
      title_(Named(names.label, new QLabel(this))),
      grid_(Named(names.grid, new TStringAlignGrid(this))),
      shades_(*grid_) {
    title_->setWordWrap(true);
    grid_->setAccessibleName(names.accessible);
    grid_->Alignment = TAlign::Right;
    NameMapCells(*grid_);
    SetHint(grid_, names.hint);
    shades_.ShowAlways();
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(title_);
    column->addWidget(grid_, 1);
    column->addStretch(0);
    Show({}, {});
}

void TMapSide::Show(const QString &title, const TTextGrid &map) {
    title_->setText(title);
    const bool any = map.ColCount() > 1 && map.Visible();
    grid_->setVisible(any);
    const TGridUpdate update(*grid_);
    TMapGrid(*grid_).SetShape(any ? map.ColCount() : 1, any ? map.RowCount() : 1);
    grid_->Editable = false;
    if (!any)
        return;
    int widest = 0;
    for (int row = 0; row < map.RowCount(); ++row)
        for (int column = 0; column < map.ColCount(); ++column) {
            const QString text = QString::fromStdString(map.Cell(column, row));
            grid_->SetCell(column, row, text);
            widest = std::max(widest, grid_->fontMetrics().horizontalAdvance(text));
        }
    grid_->SetDefaultColWidth(widest + sideCellMargins);
    grid_->SetDefaultRowHeight(grid_->fontMetrics().lineSpacing() + sideCellMargins / 2);
}
