// What SafeFile.cpp leaves to the system. Both throw TRefusal.
#pragma once

#include "system/SafeFile.h"

void ReplaceContents(const std::filesystem::path &file, std::span<const std::uint8_t> bytes,
                     TReaders readers);
void CheckReplacing(const std::filesystem::path &file);
