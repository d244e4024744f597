// What a chart shows: on a map page it is taken from the texts of the grid, in the quick chart from
// the map itself; no drawing and no toolkit. Sibling: TMap::FillChart, which fills a chart from the
// map in the map's own order.
#pragma once

#include "model/MapTypes.h"

/// Fills the chart's series from the grid's cells; nothing happens while the grid is marked hidden.
///
/// Grid row i gives the points of series RowCount - 1 - i, one per RPM column, labelled with the
/// RPM header, and its own load header as the series' load. The series' titles run the other way:
/// series s is titled with the load header of row s + 1. This is intended: what
/// reads the charts' published series knows them so, and no chart draws titles.
/// Series that the chart lacks are left out.
void RedrawChart(const IMapGrid &grid, IMapChart &chart);

/// Fills the series that `map.SizeChart` prepared from the map's values; nothing happens while the
/// chart is marked hidden.
///
/// Load point r of m gives series m - 1 - r: its title and its load (without "%"; unlike on the map
/// pages title and points belong together) and one point per RPM point, labelled with the RPM.
/// Heights are in the units that the map shows.
void FillQuickChart(const TMap &map, IMapChart &chart);
