// What "Moved Maps" says of the places that it proposes.
#pragma once

#include "discovery/MovedMaps.h"

#include <string>

/// "sure", "unsure" or "not found".
std::string SurenessText(TSureness sureness);

/// A whole sentence.
std::string ReasonText(const TMovedReason &reason);

/// All of them, a line each.
std::string ReasonsText(const std::vector<TMovedReason> &reasons);
