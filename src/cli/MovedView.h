// What "move" says of the places at which known maps seem to lie in another image, for people and
// for programs.
#pragma once

#include "cli/Json.h"
#include "discovery/MovedMaps.h"

#include <string>

/// Map by map, then the rev limiter, each with its reasons beneath.
std::string MovedText(const TMovedMaps &moved, const TKnownImage &known);

/// Adds them to `json`.
void AddMoved(TJson &json, const TMovedMaps &moved, const TKnownImage &known);
