// The differences of two images as pages to print: a PDF file for people. For other programs there
// is ChangesTable.h.
#pragma once

#include "changes/Exported.h"

#include <filesystem>

/// Writes the pages: both files with their sizes and digests; each map that differs as a table,
/// engine speed along the top and load down the side, changed values as "old → new" coloured by
/// direction; the rev limiter; and what lies elsewhere, as hexadecimal bytes. Values are shown as
/// the maps are, in counts or units. A4, numbered.
///
/// Throws EFileError naming the file and the reason; an older file then stands as it was.
void WriteReport(const std::filesystem::path &target, const TExported &exported);
