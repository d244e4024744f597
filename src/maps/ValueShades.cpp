#include "maps/ValueShades.h"

#include "forms/Settings.h"
#include "model/Numbers.h"

namespace {
constexpr auto setting = "colourByValue";

std::optional<double> NumberOf(const TStringAlignGrid &grid, int column, int row) {
    return TryParseReal(grid.Cell(column, row).toStdString());
}
} // namespace

TValueShades::TValueShades(TStringAlignGrid &grid) : grid_(grid) {
    const auto forget = [this] { scale_.reset(); };
    QObject::connect(grid.model(), &QAbstractItemModel::dataChanged, &grid, forget);
    QObject::connect(grid.model(), &QAbstractItemModel::modelReset, &grid, forget);
    grid.OnShadeCell = [this](int column, int row, std::optional<TColor> &shade) {
        Shade(column, row, shade);
    };
}

void TValueShades::Show() {
    on_ = Chosen();
    grid_.viewport()->update();
}

bool TValueShades::Chosen() {
    return Setting(setting, false).toBool();
}

void TValueShades::Choose(bool on) {
    KeepSetting(setting, on);
}

void TValueShades::Shade(int column, int row, std::optional<TColor> &shade) {
    if (!on_ || column == 0 || row == 0)
        return;
    const std::optional<double> value = NumberOf(grid_, column, row);
    if (!value)
        return;
    if (!scale_)
        scale_ = Measured();
    shade = scale_->ColorOf(*value);
}

TValueScale TValueShades::Measured() const {
    TValueScale scale;
    for (int row = 1; row < grid_.RowCount(); ++row)
        for (int column = 1; column < grid_.ColCount(); ++column)
            if (const std::optional<double> value = NumberOf(grid_, column, row))
                scale.Add(*value);
    return scale;
}
