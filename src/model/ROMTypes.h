// All of the model at once: the ROM image, the typed views over it, the maps and the map sets. For
// tests, tools and whoever works on much of it; other units include the headers that they name.
#pragma once

#include "model/Axes.h"
#include "model/Blocks.h"
#include "model/MapSets.h"
#include "model/MapTypes.h"
#include "model/MapViews.h"
#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "model/ValCollections.h"
#include "model/Values.h"
#include "model/Workspace.h"
#include "system/Errors.h"
