#include "system/Files.h"

#include "support/TemporaryFolder.h"
#include "system/FileErrors.h"

#include <atomic>
#include <thread>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using TType = fs::file_type;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class TFilesTest : public testing::Test {
protected:
    TFilesTest() {
        PutFile(file, oldBytes);
        fs::create_directory(folder / "sub");
    }

    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
    const fs::path none = folder / "none";
    std::error_code error;
};

TEST_F(TFilesTest, HaveTypes) {
    EXPECT_EQ(TypeAt(file, error), TType::regular);
    EXPECT_EQ(TypeAt(folder / "sub", error), TType::directory);
    for (const fs::path &name : {none, none / "none", fs::path()})
        EXPECT_EQ(TypeAt(name, error), TType::not_found) << name;
    EXPECT_TRUE(IsFile(file));
    EXPECT_FALSE(IsFile(folder.Path()));
    EXPECT_FALSE(IsFile(none));
    EXPECT_TRUE(IsFolder(folder.Path()));
    EXPECT_FALSE(IsFolder(file));
    EXPECT_FALSE(IsFolder(none));
}

TEST_F(TFilesTest, HaveASizeAndATime) {
    const fs::file_time_type now = fs::file_time_type::clock::now();
    EXPECT_EQ(SizeOf(file, error), 3U);
    EXPECT_FALSE(error);
    EXPECT_LT(std::chrono::abs(LastWritten(file, error) - now), std::chrono::minutes(10));
    EXPECT_FALSE(error);
    const fs::file_time_type before = now - std::chrono::hours(1000);
    fs::last_write_time(file, before);
    EXPECT_LT(std::chrono::abs(LastWritten(file, error) - before), std::chrono::seconds(3));
    SizeOf(none, error);
    EXPECT_TRUE(error);
    LastWritten(none, error);
    EXPECT_TRUE(error);
    EXPECT_NE(ReasonOf(error), "");
}

TEST_F(TFilesTest, AreTheSameHoweverTheyAreNamed) {
    PutFile(folder / "b.bin", oldBytes);
    fs::create_hard_link(file, folder / "hard.bin");
    EXPECT_TRUE(IsSame(file, folder / "sub" / ".." / "a.bin"));
    EXPECT_TRUE(IsSame(file, folder / "hard.bin"));
    EXPECT_TRUE(IsSame(folder.Path(), folder / "sub" / ".."));
    EXPECT_FALSE(IsSame(file, folder / "b.bin"));
    EXPECT_FALSE(IsSame(file, none));
    EXPECT_FALSE(IsSame(none, none));
}

TEST_F(TFilesTest, HaveOneNameHoweverTheyAreNamed) {
    EXPECT_EQ(OneName(folder / "sub" / ".." / "a.bin"), OneName(file));
    EXPECT_EQ(OneName(folder / "sub" / ".." / "none"), OneName(none));
    EXPECT_NE(OneName(none), OneName(file));
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    EXPECT_EQ(OneName("a.bin"), OneName(file));
    EXPECT_EQ(OneName("none"), OneName(none));
    fs::current_path(before);
}

TEST_F(TFilesTest, AreFoundInTheirFolderUntilOneHasEnough) {
    std::vector<fs::path> found;
    const auto take = [&](const fs::path &name) {
        found.push_back(name);
        return true;
    };
    LookThrough(folder.Path(), error, take);
    EXPECT_FALSE(error);
    EXPECT_THAT(found, UnorderedElementsAre(file, folder / "sub"));
    found.clear();
    LookThrough(folder / "sub", error, take);
    EXPECT_FALSE(error);
    EXPECT_THAT(found, ElementsAre());
    int looks = 0;
    LookThrough(folder.Path(), error, [&](const fs::path &) { return ++looks < 1; });
    EXPECT_EQ(looks, 1);
    for (const fs::path &name : {none, file}) {
        LookThrough(name, error, take);
        EXPECT_TRUE(error) << name;
    }
    EXPECT_THAT(found, ElementsAre());
}

TEST_F(TFilesTest, GetFoldersOfTheirOwn) {
    const fs::path deep = folder / "sub" / "deep" / "own";
    MakeOwnFolder(deep, error);
    EXPECT_FALSE(error);
    EXPECT_TRUE(IsFolder(deep));
    MakeOwnFolder(deep, error);
    EXPECT_FALSE(error) << "it is there";
    MakeOwnFolder(file / "own", error);
    EXPECT_TRUE(error);
    MakeOwnFolder(file, error);
    EXPECT_TRUE(error);
    EXPECT_EQ(GetFile(file), oldBytes);
}

TEST_F(TFilesTest, GetFoldersOfTheirOwnThatTwoMakeAtOnce) {
    for (int round = 0; round < 300; ++round) {
        const fs::path deep = folder / std::to_string(round) / "deep" / "own";
        std::atomic<int> ready = 0;
        const auto make = [&](std::error_code &refusal) {
            for (++ready; ready < 2;)
                std::this_thread::yield();
            MakeOwnFolder(deep, refusal);
        };
        std::error_code others;
        std::thread other(make, std::ref(others));
        make(error);
        other.join();
        ASSERT_FALSE(error) << ReasonOf(error);
        ASSERT_FALSE(others) << ReasonOf(others);
    }
}

TEST_F(TFilesTest, AreRemovedOnce) {
    for (int time = 0; time < 2; ++time) {
        RemoveFile(file, error);
        EXPECT_FALSE(error);
        EXPECT_FALSE(fs::exists(file));
    }
}

TEST_F(TFilesTest, AreNamedByTheLastPart) {
    EXPECT_EQ(LastPart(file), "a.bin");
    EXPECT_EQ(LastPart("a.bin"), "a.bin");
    EXPECT_EQ(LastPart(fs::path()), "");
}

} // namespace
