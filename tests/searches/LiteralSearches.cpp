#include "searches/LiteralSearches.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::string Hex(int number, int digits) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*X", digits, static_cast<unsigned>(number));
    return text;
}

/// The number in a cell's text, decimal or "$" and hexadecimal digits; -1 for any other text.
int Converted(const std::string &text) {
    if (text.empty())
        return -1;
    const bool hex = text.front() == '$';
    const std::string digits = hex ? text.substr(1) : text;
    char *end = nullptr;
    const long number = std::strtol(digits.c_str(), &end, hex ? 16 : 10);
    return digits.empty() || *end != '\0' ? -1 : static_cast<int>(number);
}

TColor LiteralShade(TColor color, int byte) {
    const int blue = static_cast<int>(color / 0x10000 % 0x100);
    const int green = static_cast<int>(color / 0x100 % 0x100);
    const int red = static_cast<int>(color % 0x100);
    const auto added = static_cast<TColor>(byte);
    if (blue <= green && blue <= red)
        return color + added * 0x10000;
    if (green <= blue && green <= red)
        return color + added * 0x100;
    return color + added;
}

} // namespace

TLiteralView::TLiteralView(const std::vector<std::uint8_t> &bytes, bool hex) {
    const int size = static_cast<int>(bytes.size());
    cells_.push_back({""});
    for (int i = 0; i < 16; ++i)
        cells_.back().push_back(Hex(i, 1));
    for (int i = 0; i < size; ++i) {
        if (i % 16 == 0) {
            cells_.push_back(std::vector<std::string>(17));
            cells_.back()[0] = Hex(i / 16, 3) + "x";
        }
        const int byte = bytes[static_cast<std::size_t>(i)];
        cells_.back()[static_cast<std::size_t>(i % 16 + 1)] =
            hex ? "$" + Hex(byte, 2) : std::to_string(byte);
    }
    colors_.assign(cells_.size() * 17, 0x80000005);
}

int TLiteralView::RowCount() const {
    return static_cast<int>(cells_.size());
}

const std::string &TLiteralView::Cell(int atColumn, int atRow) const {
    static const std::string none;
    if (atColumn < 0 || atColumn > 16 || atRow < 0 || atRow >= RowCount())
        return none;
    return cells_[static_cast<std::size_t>(atRow)][static_cast<std::size_t>(atColumn)];
}

TColor TLiteralView::Color(int atColumn, int atRow) const {
    return colors_.at(static_cast<std::size_t>(atRow * 17 + atColumn));
}

void TLiteralView::SetColor(int atColumn, int atRow, TColor color) {
    colors_.at(static_cast<std::size_t>(atRow * 17 + atColumn)) = color;
}

int TLiteralView::Value(int atColumn, int atRow) const {
    return Converted(Cell(atColumn, atRow));
}

std::pair<int, int> TLiteralView::CellBehind(int steps) const {
    int atColumn = column + steps;
    int atRow = row;
    while (atColumn > 16) {
        atColumn -= 16;
        ++atRow;
    }
    return {atColumn, atRow};
}

int TLiteralView::ValueBehind(int steps) const {
    const auto [atColumn, atRow] = CellBehind(steps);
    return Value(atColumn, atRow);
}

void TLiteralView::MarkPossible(int minimum, int maximum, TColor color) {
    const auto inRange = [&](int value) {
        return value != -1 && minimum <= value && value <= maximum;
    };
    for (int r = 1; r <= RowCount() - 1; ++r) {
        for (int c = 1; c <= 16; ++c) {
            const int successor = Value(c + 1, r);
            const int predecessor = c == 1 ? Value(16, r - 1) : Value(c - 1, r);
            if (inRange(Value(c, r)) && (inRange(predecessor) || inRange(successor)))
                SetColor(c, r, color);
        }
    }
}

void TLiteralView::MarkValue(int value) {
    for (int r = 1; r <= RowCount() - 1; ++r) {
        for (int c = 1; c <= 16; ++c) {
            if (Cell(c, r) != "" && Value(c, r) == value)
                SetColor(c, r, 0x008080);
        }
    }
}

void TLiteralView::FindPointers(int high, int low, int mask) {
    bool flag = false;
    int rememberedColumn = 0;
    int rememberedRow = 0;
    for (int r = 1; r <= RowCount() - 1; ++r) {
        for (int c = 1; c <= 16; ++c) {
            const int v = Value(c, r);
            if (flag) {
                if (v == low) {
                    SetColor(c, r, 0x008080);
                    SetColor(rememberedColumn, rememberedRow, 0x008080);
                }
                flag = false;
            } else if ((mask & v) == high) {
                flag = true;
                rememberedColumn = c;
                rememberedRow = r;
            }
        }
    }
}

bool TLiteralView::DataFit(int from, int count, const TLiteralMapSearch &search) const {
    for (int i = 0; i < count; ++i) {
        const int value = ValueBehind(from + i);
        if (value == -1 || value < search.minimum || value > search.maximum)
            return false;
    }
    return true;
}

void TLiteralView::MarkBehind(int from, int count, TColor color) {
    for (int i = from; i < from + count; ++i) {
        const auto [atColumn, atRow] = CellBehind(i);
        SetColor(atColumn, atRow, count == 1 ? color : LiteralShade(color, Value(atColumn, atRow)));
    }
}

bool TLiteralView::LinearMap(const TLiteralMapSearch &search) {
    if (search.rpmLocation >= 0 && ValueBehind(0) != search.rpmLocation)
        return false;
    const int n = ValueBehind(1);
    if (n < 2 || n > 30 || !DataFit(2 + n, n, search))
        return false;
    MarkBehind(0, 1, 0x008080);
    MarkBehind(1, 1, 0xFF0000);
    MarkBehind(2, n, 0x008001);
    MarkBehind(2 + n, n, search.color);
    MarkBehind(0, 1, search.color);
    ++linearFound;
    std::tie(column, row) = CellBehind(2 + n + n);
    return true;
}

bool TLiteralView::TwoDMap(const TLiteralMapSearch &search) {
    if (search.rpmLocation >= 0 && ValueBehind(0) != search.rpmLocation)
        return false;
    const int nx = ValueBehind(1);
    if (nx < 2 || nx > 30)
        return false;
    if (search.loadLocation >= 0 && ValueBehind(2 + nx) != search.loadLocation)
        return false;
    const int ny = ValueBehind(3 + nx);
    if (ny < 2 || ny > 30 || !DataFit(4 + nx + ny, nx * ny, search))
        return false;
    MarkBehind(0, 1, 0x008080);
    MarkBehind(1, 1, 0xFF0000);
    MarkBehind(2, nx, 0x008002);
    MarkBehind(0, 1, search.color + 2);
    MarkBehind(2 + nx, 1, 0x008080);
    MarkBehind(3 + nx, 1, 0xFF0000);
    MarkBehind(4 + nx, ny, 0x008002);
    MarkBehind(4 + nx + ny, nx * ny, search.color);
    ++twoDFound;
    std::tie(column, row) = CellBehind(4 + nx + ny + nx * ny);
    return true;
}

bool TLiteralView::MapAtCurrentCell(const TLiteralMapSearch &search) {
    const bool found = search.twoD ? TwoDMap(search) : LinearMap(search);
    if (!found)
        std::tie(column, row) = CellBehind(1);
    return found;
}

void TLiteralView::SearchAndHighlight(const TLiteralMapSearch &search) {
    column = 1;
    row = 1;
    while (row < RowCount() - 2 && column <= 16) {
        if (Color(column, row) != 0x80000005)
            std::tie(column, row) = CellBehind(1);
        else
            MapAtCurrentCell(search);
    }
}
