#include "filedisplay/FileGrid.h"

#include <algorithm>
#include <array>

namespace {
constexpr int columnWidth = 38; // pixels, the address column included
constexpr int dataColumns = static_cast<int>(cellsPerRow);

/// The texts of all bytes in one display mode, shared by all cells.
using TByteTexts = std::array<QString, 256>;

QString Hexadecimal(std::size_t value, int digits) {
    return QString::number(value, 16).toUpper().rightJustified(digits, '0');
}

/// The address cell of a row: its number in at least three upper-case digits, and an "x".
/// "Copy" asks for 65,536 of them, so no format does it.
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
    for (std::size_t value = 0; value < texts.size(); ++value)
        texts[value] = hexadecimal ? "$" + Hexadecimal(value, 2) : QString::number(value);
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
        grid.SetCell(column, 0, Hexadecimal(CellOffset(column, 1), 1));
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
    grid.SetRowCount(1); // takes the marks
    grid.SetRowCount(1 + static_cast<int>((bytes.size() + cellsPerRow - 1) / cellsPerRow));
    // Texts for a million cells would cost 25 times what the bytes do.
    grid.SetTextSource([&texts = ByteTexts(hexadecimal),
                        shown = std::vector(bytes.begin(), bytes.end())](int column, int row) {
        if (row == 0)
            return QString();
        if (column == 0)
            return AddressText(static_cast<unsigned>(row) - 1);
        const std::size_t offset = CellOffset(column, row);
        if (offset >= shown.size())
            return QString();
        // Borrowed from the table, which stays: counting the users of a text takes its time.
        const QString &text = texts[shown[offset]];
        return QString::fromRawData(text.constData(), text.size());
    });
}

QString HeadedText(const TStringAlignGrid &grid, const TGridRect &rect) {
    const auto line = [&](int row) {
        return grid.Cell(0, row) + '\t' +
               grid.RectangleText({rect.left, row, rect.right, row}, '\t');
    };
    QString text = line(0);
    for (int row = rect.top; row <= rect.bottom; ++row)
        text += line(row);
    return text;
}

TCellColors MarksOf(TStringAlignGrid &grid) {
    return TCellColors::InGrid(grid.LendCellColors());
}

TSeenColors SeenMarks(const TStringAlignGrid &grid) {
    return TSeenColors::InGrid(grid.OwnCellColors());
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
