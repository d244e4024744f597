// What the program says of its own arguments.
#include "cli/ArgumentsFixture.h"

#include <regex>

namespace {
using testing::HasSubstr;
using testing::StartsWith;

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

TEST_F(TCliArgumentsTest, TellsItsVersion) {
    const std::string version = Done({"--version"});
    EXPECT_TRUE(std::regex_match(version, std::regex("ferrolyn-cli [0-9.]+\n"))) << version;
}

TEST_F(TCliArgumentsTest, HelpsWithEachCommand) {
    const std::string help = Done({"--help"});
    EXPECT_THAT(help, HasSubstr("fuel-pt fuel-idle fuel-wot timing-pt timing-idle timing-wot"));
    EXPECT_THAT(help, HasSubstr("  set "));
    EXPECT_THAT(Done({"set", "--help"}), HasSubstr("Example:\n  ferrolyn-cli set "));
}
} // namespace
