// Where a grid's cursor goes after an edit. Pure arithmetic on cells; Aligrid.h moves the cursor.
#pragma once

#include "forms/AligridTypes.h"

#include <optional>

/// The cell that `order` visits first in `body`, which holds at least one cell.
TGridCell FirstCell(TNextCell order, const TGridRect &body);

/// The cell after `cell`, a cell of `body`; nothing when it is the last one of `order`.
std::optional<TGridCell> NextCell(TNextCell order, TGridCell cell, const TGridRect &body);
