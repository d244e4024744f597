// Where the program keeps what it remembers of its work for the user, apart from settings.
#pragma once

#include <filesystem>
#include <optional>

/// The program's own folder among those that desktops set aside for state: below XDG_STATE_HOME
/// when that is absolute, else below .local/state of the user's home; on Windows below
/// LOCALAPPDATA. None for a user without a home. Makes nothing.
std::optional<std::filesystem::path> StateFolder();
