#include "system/StateFolder.h"

#include <array>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace {
namespace fs = std::filesystem;

fs::path FromEnvironment(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}

fs::path HomeOfTheAccount() {
    passwd entry{};
    passwd *found = nullptr;
    std::array<char, 4096> room{};
    getpwuid_r(getuid(), &entry, room.data(), room.size(), &found);
    return found ? found->pw_dir : "";
}
} // namespace

std::optional<fs::path> StateFolder() {
    if (const fs::path state = FromEnvironment("XDG_STATE_HOME"); state.is_absolute())
        return state / "ferrolyn";
    fs::path home = FromEnvironment("HOME");
    if (home.empty())
        home = HomeOfTheAccount();
    if (home.empty())
        return std::nullopt;
    return home / ".local/state/ferrolyn";
}
