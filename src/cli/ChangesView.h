// What "diff" says of two images, for people and for programs. Comma-separated values are
// ChangesTable.h's, patches Patch.h's.
#pragma once

#include "changes/Exported.h"
#include "changes/MapChanges.h"
#include "cli/Json.h"

#include <string>

/// Whether anything differs: a byte, a length, or what the maps of a kind hold.
bool AnyDiffers(const TImageChanges &changes);

/// By map and cell, in the words of the page "Compare": the image after is the one here, the one
/// before is there.
std::string ChangesText(const TImageChanges &changes, const TExported &images);

/// Adds what differs to `json`.
void AddChanges(TJson &json, const TImageChanges &changes, const TExported &images);
