// Which of the found maps are part throttle, idle and full throttle, and which of them belong
// together.
#pragma once

#include "discovery/FoundMaps.h"

/// Tells the kind of each map of the list and names the six. An idle map resembles the first run of
/// its part throttle map over RPM, a full throttle map the last one; where neither says more, the
/// idle map stands in front.
void TellKinds(TRomBytes image, TFoundMaps &found);
