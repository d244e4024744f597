#include "system/StateFolder.h"

#include <cstdlib>

std::optional<std::filesystem::path> StateFolder() {
    const wchar_t *local = _wgetenv(L"LOCALAPPDATA");
    const std::filesystem::path folder(local ? local : L"");
    return folder.is_absolute() ? std::optional(folder / "ferrolyn") : std::nullopt;
}
