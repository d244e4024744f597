// Linux alone: a program that runs others on a terminal, and a device that takes nothing.
#include "cli/JobsFixture.h"

namespace {
TEST_F(TCliJobsTest, TellsItsProgressOnATerminalAlone) {
    PutImages(3);
    EXPECT_EQ(Run({"find", "MANY/100.BIN", "MANY/101.BIN"}).err, "");
    // script runs a command on a terminal of its own and writes what comes there.
    const auto shown = [&](const std::string &words) {
        QProcess process;
        process.setWorkingDirectory(QString::fromStdString(folder.Path().string()));
        process.start("script", {"-qec", QString::fromStdString(FERROLYN_CLI + words), "/dev/null"},
                      QIODevice::ReadOnly);
        process.waitForFinished(-1);
        return process.readAllStandardOutput().toStdString();
    };
    EXPECT_EQ(shown(" find MANY/100.BIN MANY/101.BIN >OUT.TXT"), "\r1 of 2\r2 of 2\r\x1b[K");
    EXPECT_EQ(Lines(Text("OUT.TXT")).size(), 2U);
    EXPECT_THAT(shown(" check MANY/101.BIN MANY/102.BIN --spec 32K.SPC"),
                testing::Not(testing::HasSubstr(" of 2")));
}

TEST_F(TCliJobsTest, EndsWhenItsAnswersCannotBeWritten) {
    PutImages(10);
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(folder.Path().string()));
    process.setStandardOutputFile("/dev/full");
    process.start(FERROLYN_CLI, {"find", "MANY", "--jobs", "3"}, QIODevice::ReadOnly);
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(process.readAllStandardError(),
              "ferrolyn-cli find: standard output cannot be written\n");
}
} // namespace
