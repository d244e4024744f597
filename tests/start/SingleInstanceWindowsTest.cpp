// For Windows alone: the lock is a named object there, which goes with the last process that has
// it. The child of a death test does all that stands before the test's death, then dies.
#include "spec/SingleInstance.h"
#include "start/OneWindow.h"

#include <cstdlib>
#include <windows.h>

#include <QTemporaryDir>
#include <gtest/gtest.h>

using testing::ExitedWithCode;

namespace {
constexpr std::chrono::milliseconds noWait(1);

/// Of no copy of the program, so that a copy that runs meanwhile does not matter.
const std::filesystem::path testLock = "FerrolynTestsLock";

/// Ends this process as a crash does, without a destructor, with an exit code of its own.
[[noreturn]] void Crash(UINT code) {
    TerminateProcess(GetCurrentProcess(), code);
    std::abort();
}
} // namespace

TEST(StartLockDeathTest, IsBusyInAnotherProcess) {
    TStartLock lock(testLock);
    const TStartLock::TState state = lock.Try(); // in the child while this process has it
    EXPECT_EXIT(Crash(state == TStartLock::TState::Busy ? 7 : 1), ExitedWithCode(7), "");
    EXPECT_EQ(state, TStartLock::TState::Held);
    lock.LetGo();
    EXPECT_EQ(TStartLock(testLock).Try(), TStartLock::TState::Held);
}

TEST(StartLockDeathTest, OfACrashedProcessIsFree) {
    TStartLock lock(testLock);
    EXPECT_EXIT(Crash(lock.Try() == TStartLock::TState::Held ? 7 : 1), ExitedWithCode(7), "");
    EXPECT_EQ(lock.Try(), TStartLock::TState::Held);
}

TEST(StartLockDeathTest, LetsACopyInAfterACrash) {
    const QTemporaryDir folder;
    TOneWindow nothing;
    TSingleInstanceGuard guard(folder.path(), noWait);
    EXPECT_EXIT(Crash(guard.Check(nothing) == TStart::Go ? 7 : 1), ExitedWithCode(7), "");
    EXPECT_EQ(guard.Check(nothing), TStart::Go);
}

TEST(StartLock, AnotherHolderOfTheSameProcessIsBusy) {
    TStartLock first(testLock);
    TStartLock second(testLock);
    EXPECT_EQ(first.Try(), TStartLock::TState::Held);
    EXPECT_EQ(second.Try(), TStartLock::TState::Busy);
    second.LetGo(); // it has none
    EXPECT_EQ(second.Try(), TStartLock::TState::Busy);
    first.LetGo();
    EXPECT_EQ(second.Try(), TStartLock::TState::Held);
}

TEST(StartLock, ANameThatStandsForSomethingElseIsUnusable) {
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, testLock.c_str());
    EXPECT_EQ(TStartLock(testLock).Try(), TStartLock::TState::Unusable);
    CloseHandle(event);
    EXPECT_EQ(TStartLock(testLock).Try(), TStartLock::TState::Held);
}

TEST(StartLock, IsOneForAllFolders) {
    TStartLock here("C:/one/FerrolynTestsLock");
    TStartLock there("C:/other/FerrolynTestsLock");
    EXPECT_EQ(here.Try(), TStartLock::TState::Held);
    EXPECT_EQ(there.Try(), TStartLock::TState::Busy);
}
