// A folder of its own for what the program keeps of the user's changes, so that no test is offered
// those of another. Windows made while it lives keep them there.
#pragma once

#include "support/Environment.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>

class TOwnState {
public:
    TOwnState() { SetVariable(stateVariable, folder_.Path().string()); }
    TOwnState(const TOwnState &) = delete;
    TOwnState &operator=(const TOwnState &) = delete;
    ~TOwnState() { SetVariable(stateVariable, before_); }

    /// The program's own; not there before something is kept.
    std::filesystem::path Folder() const { return folder_ / "ferrolyn"; }

private:
    const std::string before_ = Variable(stateVariable);
    const TTemporaryFolder folder_;
};
