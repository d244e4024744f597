#include "spec/SingleInstance.h"

#include "forms/Paths.h"
#include "start/OneWindow.h"

#include <future>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Return;
using testing::StrictMock;

namespace {
constexpr std::chrono::milliseconds shortWait(1);
constexpr TWindowId notebookWindow = 11;
constexpr TWindowId owner = 22;

class TMockFinder : public IWindowFinder {
public:
    MOCK_METHOD(TWindowId, Find, (std::string_view, std::string_view), (override));
    MOCK_METHOD(TWindowId, OwnerOf, (TWindowId), (override));
    MOCK_METHOD(bool, IsMinimised, (TWindowId), (override));
    MOCK_METHOD(void, ShowNormal, (TWindowId), (override));
    MOCK_METHOD(void, BringToForeground, (TWindowId), (override));
};

struct TWithoutApplication {
    bool application;
    TStart first;
    TStart second;
};

/// Runs before main, when there is no application object yet, as in the program's entry.
const TWithoutApplication withoutApplication = [] {
    const QTemporaryDir folder;
    TOneWindow finder;
    TSingleInstanceGuard first(folder.path(), shortWait);
    const TStart firstStart = first.Check(finder);
    TSingleInstanceGuard second(folder.path(), shortWait);
    return TWithoutApplication{QCoreApplication::instance() != nullptr, firstStart,
                               second.Check(finder)};
}();

class SingleInstance : public testing::Test {
protected:
    QTemporaryDir folder_;
    StrictMock<TMockFinder> finder_;

    void ExpectSearch(TWindowId found) {
        EXPECT_CALL(finder_, Find(std::string_view("TfrmNotebook"), std::string_view("Ferrolyn ")))
            .WillOnce(Return(found));
    }
    /// Whether a copy has the lock that comes up right now.
    bool IsHeld() const {
        TStartLock other(ToPath(folder_.filePath("SingleInstanceProgramHMutex")));
        return other.Try() == TStartLock::TState::Busy;
    }
};
} // namespace

TEST_F(SingleInstance, AFreeLockLetsThisCopyGoAndIsHeldUntilReleased) {
    ExpectSearch(0);
    TSingleInstanceGuard guard(folder_.path(), shortWait);
    EXPECT_EQ(guard.Check(finder_), TStart::Go);
    EXPECT_TRUE(IsHeld());
    guard.Release();
    EXPECT_FALSE(IsHeld());
    guard.Release();
}

TEST_F(SingleInstance, AHeldLockEndsThisCopyWithoutASearch) {
    ExpectSearch(0);
    TSingleInstanceGuard first(folder_.path(), shortWait);
    ASSERT_EQ(first.Check(finder_), TStart::Go);
    TSingleInstanceGuard second(folder_.path(), shortWait);
    EXPECT_EQ(second.Check(finder_), TStart::End);
    EXPECT_TRUE(IsHeld()) << "by the first copy";
}

TEST_F(SingleInstance, TheSecondCopyGoesOnceTheFirstHasReleased) {
    TOneWindow nothing;
    TSingleInstanceGuard first(folder_.path(), shortWait);
    ASSERT_EQ(first.Check(nothing), TStart::Go);
    auto second = std::async(std::launch::async,
                             [&] { return TSingleInstanceGuard(folder_.path()).Check(nothing); });
    first.Release();
    EXPECT_EQ(second.get(), TStart::Go);
}

TEST_F(SingleInstance, TheDestructorReleases) {
    TOneWindow nothing;
    for (int copy = 0; copy < 2; ++copy) {
        TSingleInstanceGuard guard(folder_.path(), shortWait);
        EXPECT_EQ(guard.Check(nothing), TStart::Go);
    }
}

TEST_F(SingleInstance, AFolderThatCannotBeUsedIsNoReasonNotToStart) {
    ExpectSearch(0);
    TSingleInstanceGuard guard(folder_.filePath("missing/folder"), shortWait);
    EXPECT_EQ(guard.Check(finder_), TStart::Go);
    guard.Release();
}

TEST_F(SingleInstance, AMinimisedRunningCopyIsShown) {
    ExpectSearch(notebookWindow);
    EXPECT_CALL(finder_, OwnerOf(notebookWindow)).WillOnce(Return(owner));
    EXPECT_CALL(finder_, IsMinimised(owner)).WillOnce(Return(true));
    EXPECT_CALL(finder_, ShowNormal(owner));
    TSingleInstanceGuard guard(folder_.path(), shortWait);
    EXPECT_EQ(guard.Check(finder_), TStart::End);
    EXPECT_FALSE(IsHeld());
}

TEST_F(SingleInstance, ANormalRunningCopyIsBroughtToTheForeground) {
    ExpectSearch(notebookWindow);
    EXPECT_CALL(finder_, OwnerOf(notebookWindow)).WillOnce(Return(owner));
    EXPECT_CALL(finder_, IsMinimised(owner)).WillOnce(Return(false));
    EXPECT_CALL(finder_, BringToForeground(owner));
    TSingleInstanceGuard guard(folder_.path(), shortWait);
    EXPECT_EQ(guard.Check(finder_), TStart::End);
}

TEST_F(SingleInstance, ARunningCopyWithoutAnOwnerWindowIsLeftAlone) {
    ExpectSearch(notebookWindow);
    EXPECT_CALL(finder_, OwnerOf(notebookWindow)).WillOnce(Return(0U));
    TSingleInstanceGuard guard(folder_.path(), shortWait);
    EXPECT_EQ(guard.Check(finder_), TStart::End);
}

TEST(SingleInstanceEntry, WorksWithoutAnApplicationObject) {
    EXPECT_FALSE(withoutApplication.application);
    EXPECT_EQ(withoutApplication.first, TStart::Go);
    EXPECT_EQ(withoutApplication.second, TStart::End);
}
