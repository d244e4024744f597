// What SafeFile.cpp leaves to the system. Both throw TRefusal.
#pragma once

#include "system/Refusal.h"
#include "system/SafeFile.h"

void ReplaceContents(const std::filesystem::path &file, std::span<const std::uint8_t> bytes,
                     TReaders readers);
void CheckReplacing(const std::filesystem::path &file);

/// For them to throw: a failure lost the old contents, while the new ones are not all there.
TRefusal Spoilt(const std::string &reason);
