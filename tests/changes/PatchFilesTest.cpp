// Patches that went through a file.
#include "changes/Patch.h"
#include "changes/PatchStore.h"
#include "changes/RandomPairs.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace {
TEST(PatchFiles, MakeTheOtherImageWhenTheyAreReadBack) {
    constexpr int files = 20;
    const TTemporaryFolder folder;
    TRandomPairs pairs;
    for (int file = 0; file < files; ++file) {
        const auto [before, after] = Joined(pairs, 50);
        const std::string written =
            PatchText(MakePatch("A.BIN", std::string(64, '0'), before, after));
        PutFile(folder / "patch", {written.begin(), written.end()});
        std::vector<std::uint8_t> image = before;
        ApplyPatch(ReadPatch(folder / "patch"), image);
        ASSERT_EQ(image, after) << file;
    }
}
} // namespace
