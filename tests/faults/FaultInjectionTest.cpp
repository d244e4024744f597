// The injection itself: it hits the calls of this program, of the standard library and of the
// toolkit, below its folder only, and no others.
#include "inject/FaultInjection.h"

#include "support/TemporaryFolder.h"

#include <cerrno>
#include <fcntl.h>
#include <fstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class TFaultInjectionTest : public testing::Test {
protected:
    TFaultInjectionTest() { PutFile(file, {1, 2, 3, 4}); }
    const TTemporaryFolder folder;
    const fs::path file = folder / "a.bin";
    char buffer[8] = {};
};

TEST_F(TFaultInjectionTest, CountsWithoutChangingAnything) {
    const TFaultInjection injection(folder.Path(), {});
    const int descriptor = open(file.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(descriptor, 0);
    EXPECT_EQ(read(descriptor, buffer, 8), 4);
    EXPECT_EQ(write(descriptor, "x", 1), 1);
    EXPECT_EQ(close(descriptor), 0);
    EXPECT_EQ(injection.Made().Text(), "OpenToWrite Read Write Close");
    EXPECT_EQ(GetFile(file), (std::vector<std::uint8_t>{1, 2, 3, 4, 'x'}));
}

TEST_F(TFaultInjectionTest, HitsTheCallThatIsDueAndNoOther) {
    const TFaultInjection injection(folder.Path(),
                                    {{TEffect::Fails, EIO, {TCall::Open}, false, 2}});
    for (const int code : {0, EIO, 0}) {
        errno = 0;
        const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
        EXPECT_EQ(errno, code);
        EXPECT_EQ(descriptor < 0, code != 0);
        if (descriptor >= 0)
            close(descriptor);
    }
    EXPECT_EQ(injection.Hits(), 1);
    EXPECT_EQ(injection.HitCalls().Text(), "Open");
}

TEST_F(TFaultInjectionTest, ALastingFaultHitsAllLaterCalls) {
    const TFaultInjection injection(folder.Path(), {{TEffect::Fails, EIO, {TCall::Open}, true, 2}});
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_GE(descriptor, 0);
    close(descriptor);
    EXPECT_LT(open(file.c_str(), O_RDONLY | O_CLOEXEC), 0);
    EXPECT_LT(open(file.c_str(), O_RDONLY | O_CLOEXEC), 0);
    EXPECT_EQ(injection.Hits(), 2);
}

TEST_F(TFaultInjectionTest, ShortMovesAreReallyShort) {
    const int descriptor = [&] {
        const TFaultInjection injection(folder.Path(), {{TEffect::Half, 0, {TCall::Read}}});
        const int opened = open(file.c_str(), O_RDONLY | O_CLOEXEC);
        EXPECT_EQ(read(opened, buffer, 4), 2);
        EXPECT_EQ(read(opened, buffer, 4), 2);
        EXPECT_EQ(injection.Hits(), 1);
        return opened;
    }();
    const TFaultInjection injection(folder.Path(), {{TEffect::Nothing, 0, {TCall::Write}}});
    EXPECT_EQ(close(descriptor), 0);
    const int written = open(file.c_str(), O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(write(written, "abcd", 4), 0);
    close(written);
    EXPECT_EQ(GetFile(file), (std::vector<std::uint8_t>{1, 2, 3, 4}));
}

TEST_F(TFaultInjectionTest, WhatIsDoneButFailsIsDone) {
    const TFaultInjection injection(folder.Path(), {{TEffect::DoneButFails, EIO, {TCall::Rename}}});
    EXPECT_EQ(rename(file.c_str(), (folder / "b.bin").c_str()), -1);
    EXPECT_EQ(errno, EIO);
    EXPECT_TRUE(fs::exists(folder / "b.bin"));
}

TEST_F(TFaultInjectionTest, SomethingElseHappensBeforeACallThatComesLate) {
    TFault fault{TEffect::ComesLate, 0, {TCall::Access}};
    fault.meanwhile = [&] {
        EXPECT_EQ(access(file.c_str(), F_OK), 0);
        fs::remove(file);
    };
    const TFaultInjection injection(folder.Path(), {fault});
    EXPECT_EQ(access(file.c_str(), F_OK), -1);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(injection.Hits(), 1);
    EXPECT_EQ(injection.Made().Text(), "Access");
}

TEST_F(TFaultInjectionTest, LeavesOtherFilesAndThreadsAlone) {
    const TTemporaryFolder other;
    PutFile(other / "a.bin", {1});
    const fs::path longer = folder.Path().string() + "er";
    const TFaultInjection injection(folder.Path(), {{TEffect::Fails, EIO, TCalls::All(), true}});
    EXPECT_EQ(access((other / "a.bin").c_str(), F_OK), 0);
    EXPECT_EQ(access(longer.c_str(), F_OK), -1);
    EXPECT_EQ(errno, ENOENT);
    int result = -1;
    std::thread([&] { result = access(file.c_str(), F_OK); }).join();
    EXPECT_EQ(result, 0);
    EXPECT_EQ(injection.Hits(), 0);
    EXPECT_EQ(access(file.c_str(), F_OK), -1);
    EXPECT_EQ(injection.Hits(), 1);
}

TEST_F(TFaultInjectionTest, FollowsNamesBelowTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    {
        const TFaultInjection injection(folder.Path(), {{TEffect::Fails, EIO}});
        EXPECT_EQ(access("a.bin", F_OK), -1);
        EXPECT_EQ(injection.Hits(), 1);
    }
    fs::current_path(before);
}

TEST_F(TFaultInjectionTest, HitsTheStandardLibrary) {
    const auto hits = [&](TCall call, auto step) {
        const TFaultInjection injection(folder.Path(), {{TEffect::Fails, EIO, {call}, true}});
        step();
        return injection.Hits() > 0;
    };
    std::error_code error;
    EXPECT_TRUE(hits(TCall::Open, [&] { EXPECT_FALSE(std::ifstream(file).is_open()); }));
    EXPECT_TRUE(hits(TCall::Read, [&] {
        std::ifstream stream(file);
        stream.read(buffer, 4);
        EXPECT_EQ(stream.gcount(), 0);
    }));
    EXPECT_TRUE(hits(TCall::Write, [&] {
        std::ofstream stream(folder / "b.bin");
        stream << "text";
        EXPECT_FALSE(stream.flush());
    }));
    EXPECT_TRUE(hits(TCall::Status, [&] { EXPECT_FALSE(fs::is_regular_file(file, error)); }));
    EXPECT_EQ(error.value(), EIO);
    EXPECT_TRUE(hits(TCall::List, [&] { fs::directory_iterator(folder.Path(), error); }));
    EXPECT_EQ(error.value(), EIO);
    EXPECT_TRUE(hits(TCall::Rename, [&] { fs::rename(file, folder / "c.bin", error); }));
    EXPECT_EQ(error.value(), EIO);
    fs::create_symlink("nowhere", folder / "link");
    EXPECT_TRUE(
        hits(TCall::ReadLink, [&] { EXPECT_EQ(fs::read_symlink(folder / "link", error), ""); }));
    EXPECT_TRUE(hits(TCall::ReadLink, [&] { EXPECT_EQ(fs::canonical(file, error), ""); }));
    EXPECT_EQ(error.value(), EIO);
    EXPECT_TRUE(hits(TCall::Unlink, [&] { EXPECT_FALSE(fs::remove(file, error)); }));
    EXPECT_EQ(error.value(), EIO);
}

TEST_F(TFaultInjectionTest, HitsTheToolkit) {
    const QString name = QString::fromStdString(file.string());
    const auto hits = [&](TCall call, auto step) {
        const TFaultInjection injection(folder.Path(), {{TEffect::Fails, EIO, {call}, true}});
        step();
        return injection.Hits() > 0;
    };
    QFile plain(name);
    EXPECT_TRUE(hits(TCall::Open, [&] { EXPECT_FALSE(plain.open(QFile::ReadOnly)); }));
    EXPECT_TRUE(hits(TCall::Read, [&] {
        EXPECT_TRUE(plain.open(QFile::ReadOnly));
        EXPECT_EQ(plain.read(4).size(), 0);
        plain.close();
    }));
    EXPECT_TRUE(hits(TCall::Write, [&] {
        QFile written(name);
        EXPECT_TRUE(written.open(QFile::WriteOnly | QFile::Unbuffered));
        EXPECT_LT(written.write("text"), 4);
    }));
    EXPECT_TRUE(hits(TCall::Access, [&] { EXPECT_FALSE(QFile::exists(name)); }));
    EXPECT_TRUE(hits(TCall::List, [&] {
        EXPECT_TRUE(
            QDir(QString::fromStdString(folder.Path().string())).entryList(QDir::Files).isEmpty());
    }));
}

TEST_F(TFaultInjectionTest, KillsAtTheCallThatIsDue) {
    for (const auto &[effect, contents] :
         {std::pair{TEffect::DiesBefore, std::vector<std::uint8_t>{1, 2, 3, 4}},
          std::pair{TEffect::DiesHalfWay, std::vector<std::uint8_t>{'a', 'b', 3, 4}},
          std::pair{TEffect::DiesAfter, std::vector<std::uint8_t>{'a', 'b', 'c', 'd'}}}) {
        PutFile(file, {1, 2, 3, 4});
        const pid_t child = fork();
        if (child == 0) {
            const TFaultInjection injection(folder.Path(), {{effect, 0, {TCall::Write}}});
            const int descriptor = open(file.c_str(), O_WRONLY | O_CLOEXEC);
            _exit(write(descriptor, "abcd", 4) == 4 ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        EXPECT_EQ(GetFile(file), contents);
    }
}

} // namespace
