// The two small interfaces through which maps show themselves: a grid of texts with font colours,
// and a chart of series. The widgets are adapted to them by the pages; the model and its tests need
// no toolkit.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// 32-bit colours 0x00BBGGRR; a top byte of 0x80 marks a colour of the desktop's theme.
using TColor = std::uint32_t;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clGreen = 0x008000;
inline constexpr TColor clWhite = 0xFFFFFF;
inline constexpr TColor clWindow = 0x80000005;
inline constexpr TColor clWindowText = 0x80000008;
inline constexpr TColor clBtnFace = 0x8000000F;

/// A cell of a grid.
struct TGridCell {
    int column = 0;
    int row = 0;
    bool operator==(const TGridCell &) const = default;
};

/// A grid of texts. Coordinates are (column, row); row 0 and column 0 hold the axes.
class IMapGrid {
public:
    virtual ~IMapGrid() = default;
    virtual int ColCount() const = 0;
    virtual int RowCount() const = 0;
    /// Sets the shape; keeps nothing. One fixed row when there is more than one row, one fixed
    /// column likewise.
    virtual void SetShape(int columns, int rows) = 0;
    virtual std::string Cell(int column, int row) const = 0;
    virtual void SetCell(int column, int row, const std::string &text) = 0;
    virtual TColor FontColor(int column, int row) const = 0;
    virtual void SetFontColor(int column, int row, TColor color) = 0;
    /// "Visible" is the wish of the fit rule and the page, not whether the grid is on screen now.
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    /// Makes the grid as large as its cells, at most `maxRows` x `maxColumns` body cells, with
    /// scroll bars beyond.
    virtual void ShowAtMost(int maxRows, int maxColumns) = 0;
};

/// Height and colour of a point of a chart.
struct TChartValue {
    double value;
    TColor color;
};

/// Added to a point's rounded value to give its colour.
inline constexpr std::uint32_t chartColorBase = 0x880000;

/// Stands for a cell that is no number, in red.
inline constexpr double unreadableValue = -255.0;

/// What is drawn for a number: itself, in the colour of its rounded value; unreadableValue for none
/// and for one that does not fit 32 bits.
TChartValue ChartValueOf(std::optional<double> number);

/// A chart of area series, one per load point.
class IMapChart {
public:
    virtual ~IMapChart() = default;
    /// As IMapGrid's.
    virtual bool Visible() const = 0;
    virtual void SetVisible(bool visible) = 0;
    virtual int SeriesCount() const = 0;
    /// Removes all series and creates `count` empty ones.
    virtual void RecreateSeries(int count) = 0;
    virtual void ClearSeries(int series) = 0;
    virtual void SetSeriesTitle(int series, const std::string &title) = 0;
    /// The load at which the series' points stand, for the load axis: not always what its title
    /// says.
    virtual void SetSeriesLoad(int series, const std::string &load) = 0;
    /// Appends a point: `x` along the RPM axis, `value` upwards, `label` on the RPM axis.
    virtual void AddPoint(int series, double x, double value, const std::string &label,
                          TColor color) = 0;
};
