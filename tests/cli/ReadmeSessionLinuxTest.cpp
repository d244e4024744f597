// Linux alone: the sessions with ferrolyn-cli that the README shows, typed into its shell.
#include "cli/CliFixture.h"

#include <sstream>

namespace {
namespace fs = std::filesystem;

const fs::path top = FERROLYN_SOURCE_DIR;

/// The lines of all blocks that show a session, one behind the other.
std::vector<std::string> SessionLines() {
    const std::vector<std::uint8_t> bytes = GetFile(top / "README.md");
    std::istringstream readme(std::string(bytes.begin(), bytes.end()));
    std::vector<std::string> lines;
    bool inside = false;
    for (std::string line; std::getline(readme, line);) {
        if (line.starts_with("```"))
            inside = line == "```console";
        else if (inside)
            lines.push_back(line);
    }
    return lines;
}

/// What a shell shows of the command, its errors too.
std::string Typed(const std::string &command, const fs::path &folder) {
    QProcess shell;
    shell.setWorkingDirectory(QString::fromStdString(folder.string()));
    shell.setProcessChannelMode(QProcess::MergedChannels);
    const fs::path programs = fs::path(FERROLYN_CLI).parent_path();
    const std::string line = "PATH=" + programs.string() + ":$PATH; " + command;
    shell.start("bash", {"-c", QString::fromStdString(line)}, QIODevice::ReadOnly);
    shell.waitForFinished(-1);
    return shell.readAll().toStdString();
}

TEST(ReadmeSession, IsWhatHappens) {
    const TTemporaryFolder folder;
    for (const fs::directory_entry &sample : fs::directory_iterator(top / "samples"))
        if (sample.path().extension() != ".md")
            fs::copy_file(sample.path(), folder.Path() / sample.path().filename());
    std::string shown;
    std::string happened;
    int commands = 0;
    for (const std::string &line : SessionLines()) {
        shown += line + "\n";
        if (!line.starts_with("$ "))
            continue;
        happened += line + "\n" + Typed(line.substr(2), folder.Path());
        ++commands;
    }
    EXPECT_EQ(happened, shown);
    EXPECT_GT(commands, 10) << "the sessions are found";
}
} // namespace
