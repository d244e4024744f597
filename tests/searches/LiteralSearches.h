// The searches once more, slow and word for word: cell by cell over the texts that the contents
// view shows, with rows, columns and nothing kept between two cells. The real ones are compared
// with it.
#pragma once

#include "model/MapViews.h"

#include <cstdint>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

struct TLiteralMapSearch {
    bool twoD = false;
    int minimum = 0;
    int maximum = 255;
    TColor color = 0xFFFFFF;
    int rpmLocation = -1;
    int loadLocation = -1;
};

class TLiteralView {
public:
    TLiteralView(const std::vector<std::uint8_t> &bytes, bool hex);

    int RowCount() const;
    /// Header and address cells included; empty where there is no byte or no cell.
    const std::string &Cell(int column, int row) const;
    TColor Color(int column, int row) const;
    void SetColor(int column, int row, TColor color);

    void MarkPossible(int minimum, int maximum, TColor color);
    void MarkValue(int value);
    void FindPointers(int high, int low, int mask);
    /// Applies the search at the current cell and moves it.
    bool MapAtCurrentCell(const TLiteralMapSearch &search);
    void SearchAndHighlight(const TLiteralMapSearch &search);

    int column = 1; ///< the current cell
    int row = 1;
    int linearFound = 0;
    int twoDFound = 0;

private:
    int Value(int atColumn, int atRow) const;
    /// The value `steps` cells behind the current cell, in reading order.
    int ValueBehind(int steps) const;
    std::pair<int, int> CellBehind(int steps) const;
    bool DataFit(int from, int count, const TLiteralMapSearch &search) const;
    void MarkBehind(int from, int count, TColor color);
    bool LinearMap(const TLiteralMapSearch &search);
    bool TwoDMap(const TLiteralMapSearch &search);

    std::vector<std::vector<std::string>> cells_; ///< the texts, by row and column
    std::vector<TColor> colors_;
};
