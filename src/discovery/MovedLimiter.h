// Where the byte of the rev limiter lies in another image of the same family, by the bytes around.
#pragma once

#include "discovery/MovedMaps.h"

/// Proposes a place only where the bytes around tell it.
TMovedByte FindMovedLimiter(TRomBytes known, std::optional<std::uint32_t> offset, TRomBytes image);
