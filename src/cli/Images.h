// Reading the images that a command works on.
#pragma once

#include "changes/MapChanges.h"
#include "changes/MappedImage.h"
#include "model/MapTypes.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// The bytes of an image file. Throws EFileError as TROMImage::LoadFromFile does, EWrongUse for an
/// empty file.
std::vector<std::uint8_t> ReadImage(const std::filesystem::path &image);

/// What numbers mean to a command.
enum class TShown {
    Units, ///< engineering units, as the window shows them
    Counts ///< as they are stored
};

/// Places the maps where the spec file has them. Throws EFileError, and EWrongUse for one that is
/// not there or that places nothing.
void PlaceMaps(TMappedImage &image, const std::filesystem::path &spec);

/// The image with its maps where the spec file has them. Throws as ReadImage and PlaceMaps do.
TMappedImage ReadMappedImage(const std::filesystem::path &image, const std::filesystem::path &spec,
                             TShown shown = TShown::Units);

/// Why a map of the image in force cannot be shown or changed: it has no place, too many points or
/// none, or does not lie in the file. Empty for a map that can.
std::string WhyUnusable(const TMap &map);

/// Throws EWrongUse where there is a reason; `name` is the image's.
void NeedMap(const TMap &map, TMapId id, const std::string &name);
