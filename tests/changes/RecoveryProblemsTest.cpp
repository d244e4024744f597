// What saves replace is kept, and whatever is wrong with the folder of kept changes is told once
// and harms nothing.
#include "changes/EarlierVersions.h"
#include "changes/RecoveryFixture.h"

#include <fstream>

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

TEST_F(TRecoveryProblems, KeepsWhatASaveReplaces) {
    TProgram program(state);
    program.Load(image);
    program.Commit(0x10, 6);
    program.Save(image);
    ASSERT_THAT(EarlierVersions(state, image), SizeIs(1));
    EXPECT_EQ(EarlierVersions(state, image).front().bytes, original);
    program.Commit(0x10, 7);
    program.Save(image);
    EXPECT_THAT(Kept(), SizeIs(1)) << "once a day";
    PutFile(folder / "B.BIN", TBytes(7, 1));
    program.Save(folder / "B.BIN");
    EXPECT_EQ(EarlierVersions(state, folder / "B.BIN").front().bytes, TBytes(7, 1));
    EXPECT_EQ(program.recovery.TakeProblem(), "");
}

TEST_F(TRecoveryProblems, SaysWhyWhatASaveReplacesIsNotKept) {
    TProgram program(state);
    program.Load(image);
    program.recovery.KeepReplaced(folder.Path(), "20261122");
    EXPECT_THAT(program.recovery.TakeProblem(),
                HasSubstr("What the save replaces cannot be kept: Cannot read '"));
    const fs::path large = folder / "LARGE.BIN";
    std::ofstream(large) << "x";
    fs::resize_file(large, TROMImage::capacity + 1);
    program.Save(large);
    EXPECT_THAT(program.recovery.TakeProblem(), HasSubstr("LARGE.BIN"));
    EXPECT_EQ(GetFile(large), original);
    program.recovery.KeepReplaced("", "20261122"); // a save that will be refused
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    EXPECT_FALSE(fs::exists(state));
}

TEST_F(TRecoveryProblems, SaysOnceThatThereIsNoHome) {
    TProgram program(std::nullopt);
    program.Load(image);
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    program.Commit(0x10, 6);
    EXPECT_EQ(program.recovery.TakeProblem(),
              "Committed changes cannot be kept for a crash: there is no home folder");
    program.Commit(0x10, 7);
    program.Commit(0x10, 5);
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    program.Commit(0x10, 6);
    program.Save(image);
    EXPECT_EQ(program.recovery.TakeProblem(),
              "What the save replaces cannot be kept: there is no home folder");
    program.Commit(0x10, 9);
    program.Save(image);
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    EXPECT_EQ(GetFile(image), With(0x10, 9));
}

TEST_F(TRecoveryProblems, GoesOnWithoutAFolderThatIsAFile) {
    std::ofstream(state) << "mine";
    TProgram program(state);
    program.Load(image);
    EXPECT_THAT(program.recovery.TakeProblem(), HasSubstr("Kept changes cannot be looked at: "));
    program.Commit(0x10, 6);
    program.Commit(0x10, 7);
    EXPECT_THAT(
        program.recovery.TakeProblem(),
        HasSubstr("Committed changes cannot be kept for a crash: Cannot use '" + state.string()));
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    program.Save(image);
    EXPECT_EQ(GetFile(image), With(0x10, 7));
    EXPECT_EQ(GetFile(state), TBytes({'m', 'i', 'n', 'e'}));
}

TEST_F(TRecoveryProblems, NamesDamagedPatchesOnceAndLeavesThemAlone) {
    {
        TProgram program(state);
        program.Load(image);
        program.Commit(0x10, 6);
    }
    std::ifstream stream(Kept().front(), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::ofstream(state / "unsaved-0000000000000000.patch", std::ios::binary)
        << text.substr(0, text.size() - 3);
    std::ofstream(state / "unsaved-0000000000000001.patch", std::ios::binary) << "not mine";
    std::string other = text;
    other.replace(other.find(" 05 ->"), 6, " 04 ->");
    std::ofstream(state / "unsaved-0000000000000002.patch", std::ios::binary) << other;
    std::ofstream(state / ".unsaved-0000000000000003.patch", std::ios::binary) << "hidden";
    TProgram program(state);
    program.Load(image);
    EXPECT_THAT(program.Offered(), SizeIs(1));
    EXPECT_THAT(
        program.recovery.TakeProblem(),
        testing::AllOf(
            testing::StartsWith("Left alone, no kept changes: "),
            HasSubstr("unsaved-0000000000000000.patch: Line 6 of the patch: the patch ends here"),
            HasSubstr("unsaved-0000000000000001.patch: Line 1 of the patch: "),
            HasSubstr("unsaved-0000000000000002.patch: At $0010 the image has 5 where"),
            testing::Not(HasSubstr("hidden"))));
    program.Load(image);
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    EXPECT_THAT(Kept(), SizeIs(5));
}

TEST_F(TRecoveryProblems, IsNotStoppedByTenThousandOldPatches) {
    fs::create_directories(state);
    const std::string text =
        PatchText(MakePatch("OLD.BIN", std::string(64, 'a'), original, With(0x10, 1)));
    for (int i = 0; i < 10000; ++i) {
        std::string digits = std::to_string(i);
        digits.insert(0, 16 - digits.size(), '0');
        std::ofstream(state / ("unsaved-" + digits + ".patch"), std::ios::binary) << text;
    }
    TProgram program(state);
    program.Load(image);
    program.Commit(0x10, 6);
    EXPECT_EQ(program.recovery.TakeProblem(), "");
    EXPECT_LT(Kept().size(), 10000U) << "they become fewer";
    EXPECT_THAT(OfferedNext(), ElementsAre(With(0x10, 6)));
}
} // namespace
