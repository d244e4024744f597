// What is kept of changes: in folders and of images under names that only some programs can cope
// with.
#include "support/NamesWindows.h"

#include "changes/EarlierVersionsFixture.h"
#include "changes/OtherImage.h"
#include "changes/PatchStoreFixture.h"
#include "changes/RecoveryFixture.h"
#include "system/SafeFile.h"

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// Keeps patches in a folder that is not there yet, reads and removes them.
void KeepReadAndRemove(const fs::path &folder) {
    const TPatchStore store(folder, "mine-########.patch", 3);
    const auto kept = [&] { return store.Read([](const fs::path &) { return true; }).patches; };
    EXPECT_THAT(kept(), IsEmpty());
    const fs::path file = store.NewFile();
    store.Keep(file, PatchTo(7));
    store.Keep(file, PatchTo(8));
    ASSERT_THAT(kept(), SizeIs(1));
    EXPECT_EQ(kept().front().patch, PatchTo(8));
    EXPECT_EQ(kept().front().file, file);
    const auto age = fs::file_time_type::clock::now() - kept().front().time;
    EXPECT_LT(std::chrono::abs(age), std::chrono::hours(1)) << "it was written just now";
    for (int i = 0; i < 5; ++i)
        store.Keep(store.NewFile(), PatchTo(9));
    store.RemoveOldest({});
    EXPECT_THAT(kept(), SizeIs(2));
    for (const TKeptPatch &patch : kept())
        TPatchStore::Remove(patch.file);
    EXPECT_THAT(kept(), IsEmpty());
}

TEST(KeptUnderNames, ThatAreForeign) {
    const TTemporaryFolder folder;
    for (const std::u8string &name : foreignNames)
        KeepReadAndRemove(folder.Path() / name / name);
}

TEST(KeptUnderNames, ThatAreLong) {
    const TLongFolder folder;
    KeepReadAndRemove(folder / "state/ferrolyn");
}

TEST_F(TEarlierVersionsTest, BelongToTheFileInAnyLetterCase) {
    Keep(folder / "A.BIN", one, "20261122");
    EXPECT_THAT(Versions(folder / "a.bin"), ElementsAre(one));
    Keep(folder / "a.Bin", other, "20261122");
    EXPECT_THAT(Versions(folder / "A.BIN"), ElementsAre(one)) << "once a day";
}

TEST_F(TEarlierVersionsTest, AreThoseOfForeignAndLongNamesToo) {
    const TLongFolder longFolder;
    for (const std::u8string &name : foreignNames) {
        Keep(folder.Path() / name, one, "20261122");
        EXPECT_THAT(Versions(folder.Path() / name), ElementsAre(one));
        Keep(longFolder.Path() / name, other, "20261122");
        EXPECT_THAT(Versions(longFolder.Path() / name), ElementsAre(other));
    }
}

TEST_F(TRecoveryProblems, AreNoneOfALongImageAndALongFolder) {
    const TLongFolder longFolder;
    const fs::path file = longFolder.Path() / fs::path(foreignNames.front() + u8".BIN");
    ROMImage()->LoadFromFile(image);
    ROMImage()->SaveToFile(file);
    const fs::path keptIn = longFolder / "state/ferrolyn";
    {
        TProgram program(keptIn);
        program.Load(file);
        program.Commit(0x10, 6);
        EXPECT_EQ(program.recovery.TakeProblem(), "");
    }
    TProgram next(keptIn);
    next.Load(file);
    EXPECT_THAT(next.Offered(), ElementsAre(With(0x10, 6)));
    next.BringBack();
    next.Save(file);
    EXPECT_EQ(next.recovery.TakeProblem(), "");
    EXPECT_THAT(EarlierVersions(keptIn, file), SizeIs(1));
}

TEST_F(TRecoveryTest, HasASpecFileBesideALongImage) {
    const TLongFolder longFolder;
    Image().SaveToFile(longFolder / "A.BIN");
    WriteFileSafely(longFolder / "A.SPC", TBytes{';', 'A'});
    const TOtherImage other(longFolder / "A.BIN");
    ASSERT_THAT(other.Specs(), SizeIs(1));
    EXPECT_EQ(other.Specs().front().label, "A");
}

TEST_F(TRecoveryProblems, SaysWhyADeviceThatASaveWritesToIsNotKept) {
    TProgram program(state);
    program.Load(image);
    program.recovery.KeepReplaced("NUL", "20261122");
    EXPECT_THAT(program.recovery.TakeProblem(), HasSubstr("'NUL': not a regular file"));
    EXPECT_FALSE(fs::exists(state));
}
} // namespace
