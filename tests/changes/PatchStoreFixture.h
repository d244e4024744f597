// Tests with a folder of patches that are told apart by one byte.
#pragma once

#include "changes/PatchStore.h"
#include "support/TemporaryFolder.h"
#include "system/Errors.h"

#include <fstream>
#include <string>

#include <gtest/gtest.h>

inline TPatch PatchTo(std::uint8_t byte) {
    using TThree = std::vector<std::uint8_t>;
    return MakePatch("A.BIN", std::string(64, 'a'), TThree{1, 2, 3}, TThree{1, byte, 3});
}

class TPatchStoreTest : public testing::Test {
protected:
    std::size_t FileCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path),
                                                      std::filesystem::directory_iterator()));
    }
    TKeptPatches Kept() const {
        return store.Read([](const std::filesystem::path &) { return true; });
    }
    std::vector<TPatch> Found() const {
        std::vector<TPatch> patches;
        for (const TKeptPatch &kept : Kept().patches)
            patches.push_back(kept.patch);
        return patches;
    }
    /// Keeps a patch under a new name, later than all that are there.
    std::filesystem::path KeepNew(std::uint8_t byte) {
        const std::filesystem::path file = store.NewFile();
        store.Keep(file, PatchTo(byte));
        std::filesystem::last_write_time(file, next_ += std::chrono::hours(1));
        return file;
    }
    std::filesystem::path Put(const std::string &name, const std::string &text) const {
        std::filesystem::create_directories(path);
        std::ofstream(path / name, std::ios::binary) << text;
        return path / name;
    }

    TTemporaryFolder folder;
    std::filesystem::path path = folder / "state" / "ferrolyn";
    TPatchStore store{path, "mine-########.patch", 20};

private:
    std::filesystem::file_time_type next_ =
        std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000);
};
