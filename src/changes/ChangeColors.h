// The colours of what differs, on the screen and on paper.
#pragma once

#include "model/MapViews.h"

// Orange and sky blue, which colour-blind people tell apart too; black reads well on both.
inline constexpr TColor higherColor = 0x009FE6;
inline constexpr TColor lowerColor = 0xE9B456;
