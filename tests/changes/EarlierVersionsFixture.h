// Tests with a folder in which what saves replace is kept.
#pragma once

#include "changes/EarlierVersions.h"
#include "support/TemporaryFolder.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

using TContents = std::vector<std::uint8_t>;

class TEarlierVersionsTest : public testing::Test {
protected:
    void Keep(const std::filesystem::path &target, const TContents &bytes, const std::string &day) {
        KeepEarlier(state, target, bytes, day);
        for (const std::filesystem::directory_entry &entry :
             std::filesystem::directory_iterator(state))
            std::filesystem::last_write_time(entry,
                                             entry.last_write_time() - std::chrono::hours(24));
    }
    std::vector<TContents> Versions(const std::filesystem::path &target) const {
        std::vector<TContents> bytes;
        for (const TEarlier &version : EarlierVersions(state, target))
            bytes.push_back(version.bytes);
        return bytes;
    }

    TTemporaryFolder folder;
    std::filesystem::path state = folder / "state";
    std::filesystem::path file = folder / "A.BIN";
    const TContents one{1, 2, 0xFF, 4};
    const TContents other{9, 8, 7, 6, 5};
};
