// What "find" says of the maps that were found in an image, for people and for programs. The image
// is in force meanwhile: ranges of axes are read from it.
#pragma once

#include "cli/Json.h"
#include "discovery/FoundMaps.h"

#include <string>
#include <string_view>

/// Which maps of the list are told, and what of them.
struct TFoundChoice {
    std::size_t count = 0; ///< so many from the beginning
    bool reasons = false;  ///< also why
};

/// A headline and a table.
std::string FoundMapsText(const TFoundMaps &found, TFoundChoice choice);

/// Adds the size of the image and what was found to `json`.
void AddFoundMaps(TJson &json, const TFoundMaps &found, TFoundChoice choice);
