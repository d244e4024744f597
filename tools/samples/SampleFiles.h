// The files of the folder samples/: which there are, their bytes, and how they are written.
// The bytes of an image come from SampleImage.h.
#pragma once

#include "samples/SampleImage.h"

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

struct TSampleFile {
    std::string name;
    std::string bytes;
};

/// The spec file that names the six map offsets of `plan` and the rev limiter. `label` is one line.
std::string DirectSpecText(const std::string &label, const TSamplePlan &plan);

/// The spec file that finds the same maps through the image's pointer table.
std::string PointerSpecText(const std::string &label, const TSamplePlan &plan);

/// All files, in the order in which they are written.
std::vector<TSampleFile> SampleFiles();

/// Writes all files into `folder`, creating it where needed and replacing older ones; one line for
/// each goes to `out`. On the first failure one line that names the file goes to `err` and the
/// result is false.
bool WriteSampleFiles(const std::filesystem::path &folder, std::ostream &out, std::ostream &err);
