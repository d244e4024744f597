// What the program says of its own arguments.
#include "cli/CliFixture.h"

namespace {
using testing::HasSubstr;
using testing::StartsWith;

class TCliArgumentsTest : public TCliTest {
protected:
    void ExpectWrong(const std::vector<std::string> &arguments, const std::string &line) {
        const TCliResult result = Run(arguments);
        EXPECT_EQ(result.exit, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, line + "\n");
    }
};

TEST_F(TCliArgumentsTest, NamesWhatIsWrong) {
    ExpectWrong({}, "ferrolyn-cli: no command is given; ferrolyn-cli --help names them");
    ExpectWrong({"brew"}, "ferrolyn-cli: 'brew' is no command; ferrolyn-cli --help names them");
    ExpectWrong({"set"}, "ferrolyn-cli set: IMAGE is required");
    ExpectWrong({"set", "32K.BIN"}, "ferrolyn-cli set: --spec is required");
    ExpectWrong({"set", "32K.BIN", "--spec", "32K.SPC"},
                "ferrolyn-cli set: PLACE=VALUE is required");
    ExpectWrong({"set", "32K.BIN", "--spec", "32K.SPC", "a=b", "--loud"},
                "ferrolyn-cli set: The following argument was not expected: --loud");
}

TEST_F(TCliArgumentsTest, ErrorsAreOneLine) {
    ExpectWrong({"set", "A\nB", "--spec", "32K.SPC", "rev-limiter=1", "-o", "NEW.BIN"},
                "ferrolyn-cli set: Cannot read 'A B': No such file or directory");
}

TEST_F(TCliArgumentsTest, TellsItsVersion) {
    EXPECT_THAT(Done({"--version"}), testing::MatchesRegex("ferrolyn-cli [0-9.]+\n"));
}

TEST_F(TCliArgumentsTest, HelpsWithEachCommand) {
    const std::string help = Done({"--help"});
    EXPECT_THAT(help, HasSubstr("fuel-pt fuel-idle fuel-wot timing-pt timing-idle timing-wot"));
    EXPECT_THAT(help, HasSubstr("  set "));
    EXPECT_THAT(Done({"set", "--help"}), HasSubstr("Example:\n  ferrolyn-cli set "));
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
