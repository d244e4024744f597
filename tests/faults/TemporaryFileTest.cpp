// The temporary file of a save, as somebody who watches the folder sees it: its name, who may read
// it, and what of its kind a later save removes.
#include "Savings.h"
#include "support/TemporaryFolder.h"
#include "system/Errors.h"
#include "system/ReadFile.h"
#include "system/SafeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <grp.h>
#include <regex>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

const TFileBytes bytesBefore{1, 2, 3};
const TFileBytes newBytes{4, 5, 6, 7};

/// A folder in which a process saves "a.bin" and is killed at a call, so that what it leaves can be
/// looked at.
class TTemporaryFileTest : public testing::Test {
protected:
    /// What an earlier one left is gone before.
    void KillSaveAt(TCall call, mode_t mask = 022) {
        fs::remove(Left());
        const pid_t child = fork();
        if (child == 0) {
            umask(mask);
            const TFaultInjection injection(folder.Path(), {{TEffect::DiesBefore, 0, {call}}});
            WriteFileSafely(target, newBytes);
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
    }
    fs::path Left() const {
        for (const std::string &name : folder.Names())
            if (name != "a.bin")
                return folder / name;
        return "";
    }
    static struct stat StatusOf(const fs::path &file) {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0);
        return status;
    }
    static mode_t ModeOf(const fs::path &file) { return StatusOf(file).st_mode & 07777; }

    const TTemporaryFolder folder;
    const fs::path target = folder / "a.bin";
};

TEST_F(TTemporaryFileTest, HasANameThatNobodyGuesses) {
    const std::regex form("\\.ferrolyn-[0-9a-f]{32}\\.tmp");
    std::set<std::string> seen;
    for (int i = 0; i < 20; ++i) {
        KillSaveAt(TCall::Rename);
        const std::string left = Left().filename();
        EXPECT_TRUE(std::regex_match(left, form)) << left;
        seen.insert(left);
    }
    EXPECT_EQ(seen.size(), 20U) << "no name comes twice";
}

TEST_F(TTemporaryFileTest, IsTheSaversAloneUntilItHasTheTargetsPermissions) {
    for (const mode_t mode : {0600U, 0640U, 0644U, 0666U}) {
        PutFile(target, bytesBefore);
        chmod(target.c_str(), mode);
        for (const TCall call : {TCall::Lock, TCall::Write, TCall::Permissions}) {
            KillSaveAt(call, 0);
            EXPECT_EQ(ModeOf(Left()), 0600U);
        }
        KillSaveAt(TCall::Rename, 0);
        EXPECT_EQ(ModeOf(Left()), mode);
    }
}

TEST_F(TTemporaryFileTest, OfANewFileHasThePermissionsOfTheMaskFromTheStart) {
    for (const mode_t mask : {077U, 027U, 022U})
        for (const TCall call : {TCall::Lock, TCall::Write, TCall::Rename}) {
            KillSaveAt(call, mask);
            EXPECT_EQ(ModeOf(Left()), 0666U & ~mask);
        }
}

// What somebody else does meanwhile

TEST_F(TTemporaryFileTest, IsMadeAnewWhenAnotherSaveHoldsIt) {
    PutFile(target, bytesBefore);
    const TFaultInjection injection(folder.Path(), {{TEffect::Fails, EWOULDBLOCK, {TCall::Lock}}});
    WriteFileSafely(target, newBytes);
    EXPECT_EQ(injection.Hits(), 1);
    EXPECT_EQ(GetFile(target), newBytes);
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

TEST_F(TTemporaryFileTest, IsMadeAnewWhenAnotherSaveHasRemovedIt) {
    PutFile(target, bytesBefore);
    TFault fault{TEffect::ComesLate, 0, {TCall::Lock}};
    fault.meanwhile = [&] { EXPECT_TRUE(fs::remove(Left())); };
    const TFaultInjection injection(folder.Path(), {fault});
    WriteFileSafely(target, newBytes);
    EXPECT_EQ(injection.Hits(), 1);
    EXPECT_EQ(GetFile(target), newBytes);
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

TEST_F(TTemporaryFileTest, IsGivenUpWhenItIsTakenForEver) {
    PutFile(target, bytesBefore);
    const TFaultInjection injection(folder.Path(),
                                    {{TEffect::Fails, EWOULDBLOCK, {TCall::Lock}, true}});
    EXPECT_THROW(WriteFileSafely(target, newBytes), EFileError);
    EXPECT_EQ(GetFile(target), bytesBefore);
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

// Nobody may lead a write into a file that was never chosen.
TEST_F(TTemporaryFileTest, ALinkThatTakesTheTargetsPlaceIsNotFollowed) {
    const TTemporaryFolder other;
    PutFile(other / "precious", bytesBefore);
    const auto swap = [&] {
        fs::remove(target);
        fs::create_symlink(other / "precious", target);
    };
    PutFile(target, bytesBefore);
    TFault fault{TEffect::ComesLate, 0, {TCall::OpenToWrite}};
    fault.meanwhile = swap;
    const TFaultInjection injection(folder.Path(),
                                    {fault, {TEffect::Fails, EACCES, {TCall::Create}, true}});
    EXPECT_THROW(WriteFileSafely(target, newBytes), EFileError);
    EXPECT_EQ(injection.Hits(), 1);
    EXPECT_EQ(GetFile(other / "precious"), bytesBefore);
}

// A single file that is mounted into the folder can be written, and never be replaced.
TEST_F(TTemporaryFileTest, ATargetThatCannotBeReplacedIsWrittenInPlace) {
    for (const int code : {EBUSY, EPERM, EACCES, EROFS}) {
        PutFile(target, bytesBefore);
        const ino_t number = StatusOf(target).st_ino;
        {
            const TFaultInjection injection(folder.Path(),
                                            {{TEffect::Fails, code, {TCall::Rename}, true}});
            WriteFileSafely(target, newBytes);
            EXPECT_EQ(injection.Hits(), 1);
        }
        EXPECT_EQ(GetFile(target), newBytes);
        EXPECT_EQ(StatusOf(target).st_ino, number);
        EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.bin"});
    }
}

TEST_F(TTemporaryFileTest, AFileThatGrowsOrShrinksWhileItIsReadIsRefused) {
    for (const std::uintmax_t length : {0U, 2U, 4U, 10000U}) {
        PutFile(target, bytesBefore);
        TFault fault{TEffect::ComesLate, 0, {TCall::Read}};
        fault.meanwhile = [&] { fs::resize_file(target, length); };
        const TFaultInjection injection(folder.Path(), {fault});
        EXPECT_THROW(ReadWholeFile(target, 100000), EFileError) << length;
    }
}

// What a later save removes

class TRemains : public TTemporaryFileTest {
protected:
    fs::path Put(const std::string &name) {
        PutFile(folder / name, bytesBefore);
        return folder / name;
    }
    void Save() { WriteFileSafely(target, newBytes); }
    const std::string remains = TSavingRun::RemainsName();
};

TEST_F(TRemains, OfAnyNumberGoWithTheNextSave) {
    KillSaveAt(TCall::Rename);
    Put(remains);
    Put(".ferrolyn-ffffffffffffffffffffffffffffffff.tmp");
    Save();
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

TEST_F(TRemains, InTheCurrentFolderGoToo) {
    Put(remains);
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    WriteFileSafely("a.bin", newBytes);
    fs::current_path(before);
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

TEST_F(TRemains, GoBeforeTheNewFileNeedsTheirRoom) {
    Put(remains);
    {
        const TFaultInjection injection(folder.Path(), {{TEffect::Fails, ENOSPC, {TCall::Create}}});
        EXPECT_THROW(Save(), EFileError);
    }
    EXPECT_THAT(folder.Names(), UnorderedElementsAre());
}

TEST_F(TRemains, OtherNamesStay) {
    const std::vector<std::string> names{
        ".ferrolyn-0123456789abcdef0123456789abcde.tmp",
        ".ferrolyn-0123456789abcdef0123456789abcdef0.tmp",
        ".ferrolyn-0123456789ABCDEF0123456789abcdef.tmp",
        ".ferrolyn-0123456789abcdef0123456789abcdeg.tmp",
        ".ferrolyn-0123456789abcdef0123456789abcdef.tmq",
        ".ferrolyN-0123456789abcdef0123456789abcdef.tmp",
        "x.ferrolyn-0123456789abcdef0123456789abcdef.tm",
        ".tmp",
        "b.bin",
    };
    for (const std::string &name : names)
        Put(name);
    Save();
    for (const std::string &name : names)
        EXPECT_TRUE(fs::exists(folder / name)) << name;
}

TEST_F(TRemains, WhatAnotherSaveHoldsStays) {
    const int held = open(Put(remains).c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(flock(held, LOCK_EX), 0);
    Save();
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin", remains));
    close(held);
    Save();
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

TEST_F(TRemains, WhatIsNoPlainFileStays) {
    const TTemporaryFolder other;
    PutFile(other / "precious", bytesBefore);
    fs::create_symlink(other / "precious", folder / remains);
    Save();
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin", remains));
    EXPECT_TRUE(fs::exists(other / "precious"));

    fs::remove(folder / remains);
    ASSERT_EQ(mkfifo((folder / remains).c_str(), 0600), 0);
    Save();
    EXPECT_TRUE(fs::is_fifo(folder / remains));

    fs::remove(folder / remains);
    fs::create_directory(folder / remains);
    Save();
    EXPECT_TRUE(fs::is_directory(folder / remains));
}

TEST_F(TRemains, WhatCannotBeLookedAtStays) {
    Put(remains);
    PutFile(target, bytesBefore);
    {
        const TFaultInjection injection(folder / remains, {{TEffect::Fails, EIO, {TCall::Status}}});
        Save();
        EXPECT_EQ(injection.Hits(), 1);
    }
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin", remains));
    EXPECT_EQ(GetFile(target), newBytes);
    Save();
    EXPECT_THAT(folder.Names(), UnorderedElementsAre("a.bin"));
}

TEST_F(TRemains, OfSomebodyElseStay) {
    const fs::path file = Put(remains);
    // Who is no administrator cannot make such a file, and has it removed.
    const bool foreign = geteuid() == 0 && chown(file.c_str(), 12345, 12345) == 0;
    Save();
    EXPECT_EQ(fs::exists(file), foreign);
}

// Who owns what is saved

struct TOwned {
    const char *name;
    uid_t owner;
    gid_t group;
    mode_t mode;
    bool member; ///< the saver is in the group
    mode_t saved;
};

constexpr uid_t nobody = 65534;
constexpr uid_t somebody = 4001;
constexpr gid_t team = 4242;

const TOwned owned[] = {
    {"own_file", nobody, nobody, 0660, false, 0660},
    {"group_of_the_saver", nobody, team, 0660, true, 0660},
    {"shared_in_a_group", somebody, team, 0664, true, 0664},
    {"group_without_the_saver", nobody, team, 0660, false, 0600},
    {"group_may_what_all_may", nobody, team, 0664, false, 0644},
    {"writable_by_all", somebody, team, 0662, false, 0622},
    {"group_right_of_the_file", nobody, team, 02660, false, 0600},
};

class TOwnedFile : public TTemporaryFileTest, public testing::WithParamInterface<TOwned> {
protected:
    /// Saves in a process without an administrator's rights.
    void SaveAsNobody() const {
        const pid_t child = fork();
        if (child == 0) {
            const gid_t group = team;
            const bool ready = setgroups(GetParam().member ? 1 : 0, &group) == 0 &&
                               setgid(nobody) == 0 && setuid(nobody) == 0;
            if (ready)
                WriteFileSafely(target, newBytes);
            _exit(ready ? 0 : 1);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
};

// The group that may read and write a file is not to be another one after a save.
TEST_P(TOwnedFile, LetsNobodyInWhoWasOut) {
    const TOwned &file = GetParam();
    PutFile(target, bytesBefore);
    if (geteuid() != 0) {
        // Who is no administrator has but own files to save.
        ASSERT_EQ(chmod(target.c_str(), 0660), 0);
        WriteFileSafely(target, newBytes);
        EXPECT_EQ(ModeOf(target), 0660U);
        return;
    }
    ASSERT_EQ(chmod(folder.Path().c_str(), 0777), 0);
    ASSERT_EQ(chown(target.c_str(), file.owner, file.group), 0);
    ASSERT_EQ(chmod(target.c_str(), file.mode), 0);
    SaveAsNobody();
    const struct stat status = StatusOf(target);
    EXPECT_EQ(GetFile(target), newBytes);
    EXPECT_EQ(status.st_uid, nobody);
    EXPECT_EQ(status.st_gid, file.member ? team : nobody);
    EXPECT_EQ(status.st_mode & 07777, file.saved);
}
INSTANTIATE_TEST_SUITE_P(All, TOwnedFile, testing::ValuesIn(owned),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(TTemporaryFileTest, AnAdministratorKeepsTheOwner) {
    PutFile(target, bytesBefore);
    const bool given = geteuid() == 0 && chown(target.c_str(), somebody, team) == 0;
    chmod(target.c_str(), 0660);
    WriteFileSafely(target, newBytes);
    EXPECT_EQ(StatusOf(target).st_uid, given ? somebody : geteuid());
    EXPECT_EQ(StatusOf(target).st_gid, given ? team : getegid());
    EXPECT_EQ(ModeOf(target), 0660U);
}

} // namespace
