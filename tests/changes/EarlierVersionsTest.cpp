// What saves have replaced, kept once a day as patches of an erased EPROM.
#include "changes/EarlierVersionsFixture.h"
#include "system/Files.h"
#include "system/Sha256.h"

#include <fstream>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
TEST_F(TEarlierVersionsTest, AreWholeFilesNewestFirst) {
    EXPECT_THAT(Versions(file), IsEmpty());
    Keep(file, one, "20261121");
    Keep(file, other, "20261122");
    EXPECT_THAT(Versions(file), ElementsAre(other, one));
    EXPECT_THAT(Versions(folder / "B.BIN"), IsEmpty());
}

TEST_F(TEarlierVersionsTest, AreKeptOnceADay) {
    Keep(file, one, "20261122");
    Keep(file, other, "20261122");
    EXPECT_THAT(Versions(file), ElementsAre(one)) << "as it was before the day's first save";
    Keep(folder / "B.BIN", other, "20261122");
    EXPECT_THAT(Versions(folder / "B.BIN"), ElementsAre(other));
}

TEST_F(TEarlierVersionsTest, SurviveAClockThatGoesBack) {
    Keep(file, one, "20261122");
    Keep(file, other, "20261101");
    Keep(file, {3}, "20261122");
    EXPECT_THAT(Versions(file), testing::UnorderedElementsAre(one, other));
}

TEST_F(TEarlierVersionsTest, BelongToTheFileHoweverItIsNamed) {
    std::ofstream(file) << "x";
    fs::create_directory(folder / "sub");
    Keep(folder / "sub" / ".." / "A.BIN", one, "20261122");
    EXPECT_THAT(Versions(file), ElementsAre(one));
    fs::current_path(folder.Path());
    EXPECT_THAT(Versions("A.BIN"), ElementsAre(one));
    fs::current_path("/");
}

TEST_F(TEarlierVersionsTest, ArePatchesOfAnErasedEprom) {
    KeepEarlier(state, file, one, "20261122");
    const fs::path kept = EarlierVersions(state, file).front().kept;
    const std::string name = OneName(file);
    const std::string digest =
        Sha256({reinterpret_cast<const std::uint8_t *>(name.data()), name.size()});
    EXPECT_EQ(kept, state / ("earlier-20261122-" + digest.substr(0, 16) + ".patch"));
    std::ifstream stream(kept, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text, "Ferrolyn patch 1\nname A.BIN\nsize 4\nsha256 " + Sha256(TContents(4, 0xFF)) +
                        "\n$0000 ff ff -> 01 02\n$0003 ff -> 04\nend 2\n");
}

TEST_F(TEarlierVersionsTest, OfEmptyAndErasedFilesAreKeptToo) {
    Keep(file, {}, "20261121");
    Keep(file, {0xFF, 0xFF}, "20261122");
    EXPECT_THAT(Versions(file), ElementsAre(TContents{0xFF, 0xFF}, TContents{}));
}

TEST_F(TEarlierVersionsTest, LeaveOutWhatIsNone) {
    Keep(file, one, "20261122");
    const fs::path kept = EarlierVersions(state, file).front().kept;
    const std::string end = kept.filename().string().substr(16);
    const auto put = [&](const char *day, const TPatch &patch) {
        std::ofstream(state / ("earlier-" + std::string(day) + end), std::ios::binary)
            << PatchText(patch);
    };
    const std::string ofErased = Sha256(TContents(4, 0xFF));
    put("20260101", MakePatch("A.BIN", std::string(64, 'a'), TContents(4, 0xFF), one));
    put("20260102", MakePatch("A.BIN", ofErased, TContents(4, 0xFE), one));
    put("20260103", {"A.BIN", 0xFFFFFFFF, ofErased, {}});
    std::ofstream(state / ("earlier-20260104" + end)) << "half";
    EXPECT_THAT(Versions(file), ElementsAre(one));
}

TEST_F(TEarlierVersionsTest, OfAllFilesTheNewestHundredStay) {
    for (int i = 0; i < 103; ++i)
        KeepEarlier(state, folder / std::to_string(i), one, "20261122");
    EXPECT_EQ(std::distance(fs::directory_iterator(state), fs::directory_iterator()), 100);
    EXPECT_THAT(Versions(folder / "102"), SizeIs(1));
}
} // namespace
