// The lock file that lets one copy of the program at a time come up: whatever lies in its place,
// and whatever call on it fails, the program starts all the same, and it never waits for nobody.
#include "FaultCases.h"
#include "spec/SingleInstance.h"
#include "start/OneWindow.h"
#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

const std::string lockName = "SingleInstanceProgramHMutex";

/// What a copy does that waits no longer than it must. Holds the lock until it is destroyed.
class TCopy {
public:
    explicit TCopy(const fs::path &folder)
        : guard_(QString::fromStdString(folder.string()), milliseconds(0)) {}
    TStart Check() { return guard_.Check(nothing_); }

private:
    TOneWindow nothing_;
    TSingleInstanceGuard guard_;
};

void PutText(const fs::path &file, const std::string &text) {
    PutFile(file, {text.begin(), text.end()});
}

struct TPlace {
    const char *name;
    std::function<void(const fs::path &)> put;
};

class TLockFile : public testing::TestWithParam<TPlace> {};

// As a crash, a full disk or another program leaves it.
TEST_P(TLockFile, TheProgramStartsAllTheSame) {
    const TTemporaryFolder folder;
    GetParam().put(folder / lockName);
    EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::Go);
    EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::Go) << "the second time";
}

const TPlace places[] = {
    {"nothing", [](const fs::path &) {}},
    {"empty_file", [](const fs::path &file) { PutText(file, ""); }},
    {"garbage", [](const fs::path &file) { PutText(file, std::string(5000, '\xFF')); }},
    {"lock_of_a_dead_process",
     [](const fs::path &file) { PutText(file, "2147483647\nferrolyn\nelsewhere\n"); }},
    {"lock_of_a_foreign_process", [](const fs::path &file) { PutText(file, "1\ninit\n\n"); }},
    {"folder", [](const fs::path &file) { fs::create_directory(file); }},
    {"filled_folder", [](const fs::path &file) { fs::create_directories(file / "more"); }},
    {"pipe", [](const fs::path &file) { EXPECT_EQ(mkfifo(file.c_str(), 0600), 0); }},
    {"dangling_link", [](const fs::path &file) { fs::create_symlink("nowhere/else", file); }},
    {"endless_link", [](const fs::path &file) { fs::create_symlink(lockName, file); }},
};
INSTANTIATE_TEST_SUITE_P(Places, TLockFile, testing::ValuesIn(places),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(TLockFileOfOthers, AFileBehindALinkIsLeftAlone) {
    const TTemporaryFolder folder;
    PutText(folder / "precious", "text");
    fs::create_symlink("precious", folder / lockName);
    EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::Go);
    EXPECT_EQ(GetFile(folder / "precious"), (std::vector<std::uint8_t>{'t', 'e', 'x', 't'}));
}

TEST(TLockFileOfOthers, NothingIsMadeBehindALink) {
    const TTemporaryFolder folder;
    fs::create_symlink("elsewhere", folder / lockName);
    EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::Go);
    EXPECT_FALSE(fs::exists(folder / "elsewhere"));
}

TEST(TLockFileOfOthers, AFileThatItsHolderRemovesMeanwhileIsMadeAnew) {
    const TTemporaryFolder folder;
    TFault fault{TEffect::ComesLate, 0, {TCall::Lock}};
    fault.meanwhile = [&] { fs::remove(folder / lockName); };
    const TFaultInjection injection(folder.Path(), {fault});
    TCopy first(folder.Path());
    EXPECT_EQ(first.Check(), TStart::Go);
    EXPECT_EQ(injection.Hits(), 1);
    EXPECT_TRUE(fs::exists(folder / lockName));
    EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::End) << "the first copy holds it";
}

/// The exit code of `check` in a process with nobody's rights.
template <class TCheck>
int AsNobody(TCheck check) {
    const pid_t child = fork();
    if (child == 0)
        _exit(geteuid() == 0 && setuid(65534) != 0 ? 99 : check());
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(TLockFileOfOthers, AFileOrFolderOfSomebodyElseHindersNobody) {
    const TTemporaryFolder folder;
    ASSERT_EQ(chmod(folder.Path().c_str(), 01777), 0);
    const auto start = [&] { return TCopy(folder.Path()).Check() == TStart::Go ? 0 : 1; };
    for (const mode_t mode : {0600U, 0644U, 0000U}) {
        fs::remove(folder / lockName);
        PutText(folder / lockName, "");
        // Without an administrator's rights the file is one's own, and still not to be opened.
        ASSERT_EQ(chmod((folder / lockName).c_str(), geteuid() == 0 ? mode : 0), 0);
        EXPECT_EQ(AsNobody(start), 0) << mode;
    }
    fs::remove(folder / lockName);
    fs::create_directory(folder / lockName);
    ASSERT_EQ(chmod((folder / lockName).c_str(), 0700), 0);
    EXPECT_EQ(AsNobody(start), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0555), 0);
    EXPECT_EQ(AsNobody(start), 0);
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
}

TEST(TLockFileOfOthers, TheFileIsTheUsersAlone) {
    const TTemporaryFolder folder;
    const mode_t mask = umask(0);
    TCopy copy(folder.Path());
    EXPECT_EQ(copy.Check(), TStart::Go);
    umask(mask);
    struct stat status {};
    ASSERT_EQ(stat((folder / lockName).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST(TLockFileOfOthers, AKilledCopyHindersNobody) {
    const TTemporaryFolder folder;
    const pid_t child = fork();
    if (child == 0) {
        TCopy copy(folder.Path());
        if (copy.Check() != TStart::Go)
            _exit(1);
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::Go);
    EXPECT_EQ(folder.Names(), std::vector<std::string>());
}

class TLockFaults : public testing::TestWithParam<TFaultCase> {};

TEST_P(TLockFaults, DoNotKeepTheProgramFromStarting) {
    const TSweep sweep = Sweep(GetParam().fault, [&](const TFault &due) {
        const TTemporaryFolder folder;
        TOutcome outcome;
        {
            const TFaultInjection injection(folder.Path(), {due});
            {
                TCopy copy(folder.Path());
                EXPECT_EQ(copy.Check(), TStart::Go);
            }
            outcome = {injection.Hits(), injection.HitCalls(), false};
        }
        EXPECT_EQ(TCopy(folder.Path()).Check(), TStart::Go) << "the next start";
        return outcome;
    });
    using enum TCall;
    const TCalls expected = TCalls{Create, Status, Lock, Close, Unlink} & GetParam().fault.calls;
    EXPECT_EQ(sweep.calls.Text(), expected.Text());
}
INSTANTIATE_TEST_SUITE_P(All, TLockFaults, testing::ValuesIn(FaultCases()),
                         [](const auto &test) { return std::string(test.param.name); });

} // namespace
