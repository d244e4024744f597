// A folder of its own for what the program keeps of the user's changes, so that no test is offered
// those of another. Windows made while it lives keep them there.
#pragma once

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <stdlib.h>
#include <string>

class TOwnState {
public:
    TOwnState() { setenv("XDG_STATE_HOME", folder_.Path().c_str(), 1); }
    TOwnState(const TOwnState &) = delete;
    TOwnState &operator=(const TOwnState &) = delete;
    ~TOwnState() { setenv("XDG_STATE_HOME", before_.c_str(), 1); }

    /// The program's own; not there before something is kept.
    std::filesystem::path Folder() const { return folder_ / "ferrolyn"; }

private:
    static std::string Now() {
        const char *now = getenv("XDG_STATE_HOME");
        return now ? now : "";
    }

    const std::string before_ = Now();
    const TTemporaryFolder folder_;
};
