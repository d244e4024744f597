#include "filedisplay/FileGrid.h"

#include <array>

namespace {
constexpr int columnWidth = 38; // pixels, the address column included
constexpr int dataColumns = static_cast<int>(cellsPerRow);
constexpr int byteValues = 256;

/// The 256 texts of one display mode, shared by all cells.
using TByteTexts = std::array<QString, byteValues>;

QString Hexadecimal(int value, int digits) {
    return QString("%1").arg(value, digits, 16, QChar('0')).toUpper();
}

TByteTexts MakeByteTexts(bool hexadecimal) {
    TByteTexts texts;
    for (int value = 0; value < byteValues; ++value)
        texts[static_cast<std::size_t>(value)] =
            hexadecimal ? "$" + Hexadecimal(value, 2) : QString::number(value);
    return texts;
}

const TByteTexts &ByteTexts(bool hexadecimal) {
    static const TByteTexts decimalTexts = MakeByteTexts(false);
    static const TByteTexts hexadecimalTexts = MakeByteTexts(true);
    return hexadecimal ? hexadecimalTexts : decimalTexts;
}
} // namespace

void PrepareFileGrid(TStringAlignGrid &grid) {
    grid.SetShape(dataColumns + 1, 1);
    for (int column = 1; column <= dataColumns; ++column)
        grid.SetCell(column, 0, Hexadecimal(column - 1, 1));
    grid.SetFixedRows(1);
    grid.SetFixedCols(1);
    grid.Alignment = TAlign::Right;
    grid.NextCellEdit = nc_downleft;
    grid.NextCellTab = nc_downleft;
    grid.SetDefaultColWidth(columnWidth);
    grid.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grid.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void FillFileGrid(TStringAlignGrid &grid, std::span<const std::uint8_t> bytes, bool hexadecimal) {
    const TGridUpdate update(grid);
    grid.SetFixedRows(0);
    grid.SetRowCount(1);
    grid.SetFixedRows(1);
    const TByteTexts &texts = ByteTexts(hexadecimal);
    grid.SetRowCount(1 + static_cast<int>((bytes.size() + cellsPerRow - 1) / cellsPerRow));
    for (int row = 1; row < grid.RowCount(); ++row)
        grid.SetCell(0, row, Hexadecimal(row - 1, 3) + "x");
    for (std::size_t i = 0; i < bytes.size(); ++i)
        grid.SetCell(static_cast<int>(i % cellsPerRow) + 1, static_cast<int>(i / cellsPerRow) + 1,
                     texts[bytes[i]]);
}

void SizeFileGrid(TStringAlignGrid &grid, int visibleHeight) {
    constexpr int border = 4;
    constexpr int scrollBarRoom = 24;
    grid.SetDefaultColWidth(columnWidth);
    const int rowHeight = grid.DefaultRowHeight() + grid.GridLineWidth();
    const bool allVisible = grid.RowCount() * rowHeight + border <= visibleHeight;
    grid.setFixedWidth((dataColumns + 1) * (columnWidth + grid.GridLineWidth()) + border +
                       (allVisible ? 0 : scrollBarRoom));
}
