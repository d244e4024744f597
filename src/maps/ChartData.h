// What a map page's chart shows, taken from the texts of its grid; no drawing and no toolkit.
// Sibling: TMap::FillChart, which fills a chart from the map itself and in the map's own order.
#pragma once

#include "model/MapViews.h"

/// Added to a point's rounded value to give its colour.
inline constexpr std::uint32_t chartColorBase = 0x880000;

/// Stands for a cell that is no number, in red.
inline constexpr double unreadableValue = -255.0;

/// Colour of a point: the value rounded to an integer plus chartColorBase, as 0x00BBGGRR.
/// @throws ERangeError for a value that does not fit 32 bits
TColor PointColor(double value);

/// Fills the chart's series from the grid's cells; nothing happens while the grid is marked hidden.
///
/// Grid row i gives the points of series RowCount - 1 - i, one per RPM column, labelled with the
/// RPM header. The series' titles run the other way: series s is titled with the load header of row
/// s + 1. This is intended; the charts show no legend. Series that the chart lacks are left out.
void RedrawChart(const IMapGrid &grid, IMapChart &chart);
