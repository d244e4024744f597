// Checks the commands and names that the documents show against the project.
#pragma once

#include "docs/Tree.h"

#include <string>
#include <vector>

/// What is wrong with a line of shell commands, one text for each finding; empty when nothing is.
/// Only commands of the project and of CMake are looked into; others are left alone. Words in
/// capital letters stand for what the reader puts there.
std::vector<std::string> CommandFindings(const std::string &line, const TTree &tree);

/// The same for text between backticks: a command as above, the path or name of a file, or a name
/// of the sources that begins like a class.
std::vector<std::string> InlineFindings(const std::string &code, const TTree &tree);
