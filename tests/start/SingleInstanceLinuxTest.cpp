// For Linux alone: the lock is a file there, in the user's runtime folder.
#include "spec/SingleInstance.h"
#include "start/OneWindow.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
constexpr std::chrono::milliseconds noWait(1);

class SingleInstanceFile : public testing::Test {
protected:
    QTemporaryDir folder_;
    TOneWindow nothing_;
    QFile file_{folder_.filePath("SingleInstanceProgramHMutex")};
};
} // namespace

TEST_F(SingleInstanceFile, IsThereAsLongAsTheLockIsHeld) {
    TSingleInstanceGuard guard(folder_.path(), noWait);
    ASSERT_EQ(guard.Check(nothing_), TStart::Go);
    EXPECT_TRUE(file_.exists());
    TSingleInstanceGuard second(folder_.path(), noWait);
    EXPECT_EQ(second.Check(nothing_), TStart::End);
    EXPECT_TRUE(file_.exists()) << "the first copy's lock";
    guard.Release();
    EXPECT_FALSE(file_.exists());
}

TEST_F(SingleInstanceFile, GoesWithACopyThatFindsAnother) {
    TOneWindow running(11);
    TSingleInstanceGuard guard(folder_.path(), noWait);
    EXPECT_EQ(guard.Check(running), TStart::End);
    EXPECT_FALSE(file_.exists());
}

TEST_F(SingleInstanceFile, OfADeadProcessIsTaken) {
    ASSERT_TRUE(file_.open(QFile::WriteOnly));
    file_.write("2147483647\nferrolyn\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    file_.close();
    TSingleInstanceGuard guard(folder_.path(), noWait);
    EXPECT_EQ(guard.Check(nothing_), TStart::Go);
}

TEST_F(SingleInstanceFile, LiesInTheRuntimeFolder) {
    const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
    QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", folder_.path().toLocal8Bit());
    EXPECT_EQ(SingleInstanceFolder(), folder_.path());
    before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before);
}
