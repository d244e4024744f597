// Linux alone: symbolic links, and the names that the folder's files have had from the first
// release on.
#include "changes/EarlierVersionsFixture.h"
#include "system/Sha256.h"

#include <fstream>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;

TEST_F(TEarlierVersionsTest, BelongToTheFileOfALink) {
    std::ofstream(file) << "x";
    fs::create_symlink(file, folder / "LINK.BIN");
    Keep(file, one, "20261122");
    EXPECT_THAT(Versions(folder / "LINK.BIN"), ElementsAre(one));
}

TEST_F(TEarlierVersionsTest, HaveTheDigestOfTheWholeName) {
    KeepEarlier(state, file, one, "20261122");
    const std::string digest =
        Sha256({reinterpret_cast<const std::uint8_t *>(file.c_str()), file.native().size()});
    EXPECT_EQ(EarlierVersions(state, file).front().kept,
              state / ("earlier-20261122-" + digest.substr(0, 16) + ".patch"));
}
} // namespace
