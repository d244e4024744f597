#include "cli/MapGridText.h"

#include "cli/MapNames.h"
#include "maps/ValueColors.h"
#include "model/Numbers.h"
#include "system/Rgb.h"

#include <algorithm>
#include <optional>

namespace {
constexpr std::size_t columnGap = 2;

TRgb RgbOf(TColor color) {
    const auto channel = [color](int shift) { return static_cast<int>(color >> shift & 0xFF); };
    return {channel(0), channel(8), channel(16)};
}

/// What a terminal takes for a colour: "38" in front for texts, "48" for what they stand on.
std::string Escape(const char *what, const TRgb &color) {
    return std::string("\033[") + what + ";2;" + std::to_string(color.red) + ";" +
           std::to_string(color.green) + ";" + std::to_string(color.blue) + "m";
}

std::string Colored(const std::string &text, const TRgb &color) {
    return Escape("48", color) + Escape("38", ReadableOn(color)) + text + "\033[0m";
}

/// The lines of a grid, all columns as wide as their widest text.
class TGridLines {
public:
    TGridLines(const TTextGrid &grid, bool colors) : grid_(grid), colors_(colors) {
        for (int row = 1; row < grid.RowCount(); ++row)
            for (int column = 1; column < grid.ColCount(); ++column)
                if (const std::optional<double> value = TryParseReal(grid.Cell(column, row)))
                    scale_.Add(*value);
    }

    std::string Text() const {
        std::string text;
        for (int row = 0; row < grid_.RowCount(); ++row) {
            for (int column = 0; column < grid_.ColCount(); ++column)
                text += Cell(column, row);
            text += '\n';
        }
        return text;
    }

private:
    std::size_t Width(int column) const {
        std::size_t width = 0;
        for (int row = 0; row < grid_.RowCount(); ++row)
            width = std::max(width, grid_.Cell(column, row).size());
        return width;
    }
    std::string Cell(int column, int row) const {
        std::string text = grid_.Cell(column, row);
        const std::size_t gap = column > 0 ? columnGap : 0;
        text.insert(0, gap + Width(column) - text.size(), ' ');
        if (!colors_ || column == 0 || row == 0)
            return text;
        const std::optional<double> value = TryParseReal(grid_.Cell(column, row));
        return value ? Colored(text, RgbOf(scale_.ColorOf(*value))) : text;
    }

    const TTextGrid &grid_;
    bool colors_;
    TValueScale scale_;
};
} // namespace

TTextGrid GridOf(const TMap &map) {
    TTextGrid grid;
    std::string label;
    map.SizeGrid(grid);
    map.FillGrid(grid, label, map.GetCellFormat(), TMap::rpmLimit, TMap::rpmLimit);
    return grid;
}

const char *UnitsOf(TMapId id, const TMap &map) {
    if (!map.data->showConverted)
        return "counts";
    return id.set == TMapSetKind::Fuel ? "lambda" : "degrees";
}

std::string MapTable(TMapId id, const TMap &map, bool colors) {
    return NameOf(id) + ": " + EnglishMapName(id) + " at " + FormatOffset(map.GetLocation()) +
           ", " + std::to_string(map.RPMCount()) + " x " + std::to_string(map.LoadCount()) + ", " +
           UnitsOf(id, map) + "\n" + TGridLines(GridOf(map), colors).Text();
}
