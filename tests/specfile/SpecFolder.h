// Tests of which spec files a folder has.
#pragma once

#include "spec/SpecFile.h"
#include "specfile/TextFolder.h"

#include <string>
#include <vector>

inline std::vector<std::string> Labels(const TSpecScan &scan) {
    std::vector<std::string> labels;
    for (const TSpecEntry &entry : scan.entries)
        labels.push_back(entry.label);
    return labels;
}

using TSpecScanTest = TTextFolder;
