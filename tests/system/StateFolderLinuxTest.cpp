// Linux alone: the variables and folders of its desktops.
#include "system/StateFolder.h"

#include <map>
#include <pwd.h>
#include <stdlib.h>
#include <string>
#include <unistd.h>

#include <gtest/gtest.h>

namespace {
class TEnvironment {
public:
    void Set(const char *name, const char *value) {
        const char *before = getenv(name);
        before_.emplace(name, before ? before : "");
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ~TEnvironment() {
        for (const auto &[name, value] : before_)
            setenv(name.c_str(), value.c_str(), 1);
    }

private:
    std::map<std::string, std::string> before_;
};

struct TCase {
    const char *state;
    const char *home;
    std::string expected;
};

TEST(StateFolder, FollowsTheRulesOfDesktops) {
    TEnvironment environment;
    const std::string ofTheAccount = getpwuid(getuid())->pw_dir;
    for (const auto &[state, home, expected] :
         {TCase{"/state", "/home/me", "/state/ferrolyn"},
          {nullptr, "/home/me", "/home/me/.local/state/ferrolyn"},
          {"", "/home/me", "/home/me/.local/state/ferrolyn"},
          {"state", "/home/me", "/home/me/.local/state/ferrolyn"},
          {nullptr, nullptr, ofTheAccount + "/.local/state/ferrolyn"},
          {nullptr, "", ofTheAccount + "/.local/state/ferrolyn"}}) {
        environment.Set("XDG_STATE_HOME", state);
        environment.Set("HOME", home);
        EXPECT_EQ(StateFolder(), expected);
    }
}
} // namespace
