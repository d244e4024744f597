// What the commands of the menu "Selection" do to a rectangle of a map's numbers: arithmetic alone.
// BlockCells.h takes the numbers from a grid and says what its cells become.
#pragma once

#include <string>
#include <vector>

/// Numbers in columns and rows, with the axes' values beside them.
struct TNumberBlock {
    std::vector<double> rpm;    ///< of each column
    std::vector<double> load;   ///< of each row
    std::vector<double> values; ///< row by row
    double unit = 1;            ///< one of the last digit that is shown
    bool operator==(const TNumberBlock &) const = default;
};

/// One of the last digit of a picture: of "##0" 1, of "###0.00" 0.01.
double UnitOf(const std::string &picture);

// Each changes the block in place and says why it cannot; then nothing is changed. What fits no
// byte is the business of whoever enters it.

std::string AddUnits(TNumberBlock &block, int units);
std::string Add(TNumberBlock &block, double amount);
std::string SetTo(TNumberBlock &block, double number);
/// To so many percent of what it was: 100 changes nothing.
std::string MultiplyBy(TNumberBlock &block, double percent);

// Interpolating puts what lies between two edges on the straight line through them, over the axis's
// values: a step of the axis that is twice as long takes twice as much of the change. The axis must
// rise from cell to cell. Edges are kept.

/// Each row between its first and its last number.
std::string InterpolateRows(TNumberBlock &block);
/// Each column between its first and its last number.
std::string InterpolateColumns(TNumberBlock &block);
/// Rows, then columns: all between the four corners, which alone are kept.
std::string InterpolateBoth(TNumberBlock &block);

/// Each number that has eight neighbours becomes the mean of the nine; the others, the edges of the
/// block, are kept.
std::string Smooth(TNumberBlock &block);
