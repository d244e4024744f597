// Tests with a folder of their own and texts in it.
#pragma once

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

class TTextFolder : public testing::Test {
protected:
    std::filesystem::path Write(const std::filesystem::path &name, const std::string &text) const {
        PutFile(folder_ / name, {text.begin(), text.end()});
        return folder_ / name;
    }

    static std::string Read(const std::filesystem::path &path) {
        const std::vector<std::uint8_t> bytes = GetFile(path);
        return {bytes.begin(), bytes.end()};
    }

private:
    const TTemporaryFolder temporary_;

protected:
    const std::filesystem::path folder_ = temporary_.Path();
};
