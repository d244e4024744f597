// What is written into a file when differences are exported, whatever the file's form.
#pragma once

#include "changes/MappedImage.h"
#include "changes/Patch.h"

#include <string>

/// Two images, and what they are called.
struct TExported {
    const TMappedImage &before;
    const TMappedImage &after;
    std::string nameBefore; ///< as a path
    std::string nameAfter;
};

/// What turns the image before into the one after, under the name of the file before. Throws
/// EPatchError for images of different lengths.
TPatch ExportedPatch(const TExported &exported);
