// Linux alone: a program that runs others on a terminal.
#include "cli/ShowFixture.h"

#include <QProcessEnvironment>

namespace {
/// What a terminal shows that runs the program, with NO_COLOR set to this.
std::string OnATerminal(const std::filesystem::path &folder, const char *noColor,
                        const QString &more = {}) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("NO_COLOR", noColor);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(folder.string()));
    process.start("script",
                  {"-qec", QString(FERROLYN_CLI) + " show 32K.BIN --spec 32K.SPC fuel-idle" + more,
                   "/dev/null"});
    process.waitForFinished(-1);
    return process.readAllStandardOutput().toStdString();
}

TEST_F(TCliShowTest, ColorsOnATerminalUnlessNoneAreWanted) {
    const std::string escape = "\033[48;2;";
    EXPECT_NE(OnATerminal(folder.Path(), "").find(escape), std::string::npos);
    const std::string plain = OnATerminal(folder.Path(), "1");
    EXPECT_EQ(plain.find(escape), std::string::npos);
    EXPECT_NE(plain.find("0%  0.87"), std::string::npos);
    EXPECT_EQ(OnATerminal(folder.Path(), "", " --color never").find(escape), std::string::npos);
    OnATerminal(folder.Path(), "", " -o OUT.TXT");
    EXPECT_EQ(Text("OUT.TXT"), idleTable) << "a file is no terminal";
}
} // namespace
