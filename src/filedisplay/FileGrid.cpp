#include "filedisplay/FileGrid.h"

#include <algorithm>
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

/// The address cell of a row: its number in at least three upper-case digits, and an "x". The
/// largest view has 65,536 of them, so no format does it.
QString AddressText(unsigned row) {
    std::array<QChar, 9> text;
    std::size_t first = text.size();
    text[--first] = 'x';
    for (int digits = 0; digits < 3 || row != 0; ++digits, row >>= 4)
        text[--first] = QLatin1Char("0123456789ABCDEF"[row & 0xF]);
    return QString(&text[first], static_cast<int>(text.size() - first));
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
/// Of a column that shows `text`.
int WidthFor(const TStringAlignGrid &grid, const QString &text) {
    constexpr int leastMargins = 2; // both sides together
    return std::max(columnWidth, grid.fontMetrics().horizontalAdvance(text) + leastMargins);
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
    std::array<const QString *, dataColumns + 1> row{};
    for (std::size_t first = 0; first < bytes.size(); first += cellsPerRow) {
        const std::size_t index = first / cellsPerRow;
        const std::size_t count = std::min(cellsPerRow, bytes.size() - first);
        const QString address = AddressText(static_cast<unsigned>(index));
        row[0] = &address;
        for (std::size_t column = 0; column < count; ++column)
            row[column + 1] = &texts[bytes[first + column]];
        grid.SetRowTexts(static_cast<int>(index) + 1, std::span(row).first(count + 1));
    }
}

void SizeFileGrid(TStringAlignGrid &grid, int visibleHeight) {
    constexpr int border = 4;
    constexpr int scrollBarRoom = 24;
    const int dataWidth = std::max(WidthFor(grid, "$DD"), WidthFor(grid, "255"));
    const qsizetype addressLength = grid.Cell(0, grid.RowCount() - 1).size();
    const QString address = QString(std::max(addressLength - 1, qsizetype{0}), 'D') + 'x';
    const int addressWidth = WidthFor(grid, address); // of the widest digits
    grid.SetDefaultColWidth(dataWidth);
    grid.SetColWidth(0, addressWidth);
    const int rowHeight = grid.DefaultRowHeight() + grid.GridLineWidth();
    const bool allVisible = grid.RowCount() * rowHeight + border <= visibleHeight;
    grid.setFixedWidth(addressWidth + dataColumns * dataWidth +
                       (dataColumns + 1) * grid.GridLineWidth() + border +
                       (allVisible ? 0 : scrollBarRoom));
}
