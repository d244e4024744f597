// Linux alone: the examples are lines for its shell.
#include "cli/CliFixture.h"

#include <regex>

#include <QProcessEnvironment>

namespace {
class TCliExamplesTest : public ::testing::Test {
protected:
    TCliExamplesTest() {
        std::filesystem::copy(std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples",
                              folder.Path());
    }

    std::string Done(const std::vector<std::string> &arguments) {
        const TCliResult result = RunProgram(arguments, folder.Path());
        EXPECT_LT(result.exit, 2) << result.err;
        return result.out;
    }

    /// What `pattern`, with one group, finds in the text.
    static std::vector<std::string> All(const std::string &text, const char *pattern) {
        const std::regex form(pattern);
        return {std::sregex_token_iterator(text.begin(), text.end(), form, 1), {}};
    }

    /// Runs a line as a shell does that finds the program; gives its exit code.
    int RunLine(const std::string &line) {
        QProcess shell;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("PATH", QString::fromStdString(
                                       std::filesystem::path(FERROLYN_CLI).parent_path().string()) +
                                       ":" + environment.value("PATH"));
        shell.setProcessEnvironment(environment);
        shell.setWorkingDirectory(QString::fromStdString(folder.Path().string()));
        shell.start("bash", {"-c", QString::fromStdString(line)});
        shell.waitForFinished(-1);
        return shell.exitCode();
    }

    TTemporaryFolder folder;
};

TEST_F(TCliExamplesTest, EveryExampleOfTheHelpWorksOnTheSamples) {
    Done({"set", "FERRO32K.BIN", "--spec", "FERRO32K.SPC", "rev-limiter=6400", "-o", "B.BIN"});
    Done({"diff", "FERRO32K.BIN", "B.BIN", "--format", "patch", "-o", "CHANGES.PATCH"});
    const std::string help = Done({"--help"});
    const std::vector<std::string> commands =
        All(help.substr(help.find("Commands:")), "\n  ([a-z]+) ");
    ASSERT_GE(commands.size(), 13U);
    for (const std::string &command : commands) {
        const std::vector<std::string> examples =
            All(Done({command, "--help"}), "Example:\n  (ferrolyn-cli [^\n]*)\n");
        ASSERT_EQ(examples.size(), 1U) << command;
        EXPECT_EQ(examples.front().find("ferrolyn-cli " + command + " "), 0U);
        EXPECT_LT(RunLine(examples.front()), 2) << examples.front();
    }
}
} // namespace
