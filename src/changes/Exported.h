// What is written into a file when differences are exported, whatever the file's form.
#pragma once

#include "changes/MappedImage.h"

#include <string>

/// Two images, and what they are called.
struct TExported {
    const TMappedImage &before;
    const TMappedImage &after;
    std::string nameBefore; ///< as a path
    std::string nameAfter;
};
