// The model's one public include: the ROM image, the typed views over it, the maps and the map
// sets. Other rooms include this and no single header of the model.
#pragma once

#include "model/Axes.h"
#include "model/Blocks.h"
#include "model/Errors.h"
#include "model/MapSets.h"
#include "model/MapTypes.h"
#include "model/MapViews.h"
#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "model/SafeFile.h"
#include "model/ValCollections.h"
#include "model/Values.h"
#include "model/Workspace.h"
