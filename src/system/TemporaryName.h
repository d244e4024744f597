// The names of the files that are renamed over others when they are complete.
#pragma once

#include <string>
#include <string_view>

/// One that cannot be guessed.
std::string TemporaryName();

/// Whether a name is such a one.
bool IsTemporaryName(std::string_view name);
