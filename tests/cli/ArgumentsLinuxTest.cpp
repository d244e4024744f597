// Linux alone: a name with a line break, and a device that takes nothing.
#include "cli/ArgumentsFixture.h"

namespace {
TEST_F(TCliArgumentsTest, ErrorsAreOneLine) {
    ExpectWrong({"set", "A\nB", "--spec", "32K.SPC", "rev-limiter=1", "-o", "NEW.BIN"},
                "ferrolyn-cli set: Cannot read 'A B': No such file or directory");
}

TEST_F(TCliArgumentsTest, SaysSoWhenStandardOutputCannotBeWritten) {
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(FERROLYN_CLI, {"--help"}, QIODevice::ReadOnly);
    process.waitForFinished(-1);
    EXPECT_EQ(process.exitCode(), 2);
    EXPECT_EQ(process.readAllStandardError(), "ferrolyn-cli: standard output cannot be written\n");
}
} // namespace
