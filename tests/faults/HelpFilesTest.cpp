// Help files that are no help: huge, binary, endless, or no files. Each is refused at once with a
// message that says why; what is shown is shown quickly.
#include "forms/Help.h"
#include "forms/ProgramFile.h"
#include "system/Errors.h"

#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>

#include <QPlainTextEdit>
#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

const QString helpName = "strange-help.txt";

fs::path File() {
    return (ProgramDirectory() + helpName).toStdString();
}

/// The error's text; empty when the file is shown.
std::string ErrorOf() {
    try {
        TfrmHelp help(helpName);
        help.show();
        help.grab();
        return "";
    } catch (const EFileError &error) {
        return error.what();
    }
}

std::string Refusal(const std::string &reason) {
    return "Cannot read '" + File().string() + "': " + reason;
}

struct TText {
    const char *name;
    QByteArray bytes;
    const char *reason; ///< empty: it is shown
};

const QByteArray longestLine(maxHelpLineLength, 'x');

const TText texts[] = {
    {"at_the_size_limit", QByteArray("a line\n").repeated(40000).left(maxHelpFileSize), ""},
    {"over_the_size_limit", QByteArray("a line\n").repeated(40000).left(maxHelpFileSize + 1),
     "it has 262145 bytes, more than the limit of 262144"},
    {"at_the_line_limit", "a\n" + longestLine + "\nb\n" + longestLine, ""},
    {"over_the_line_limit", "a\n" + longestLine + "x\nb\n",
     "it has a line of more than 4096 characters"},
    {"last_line_over_the_limit", "a\n" + longestLine + "x",
     "it has a line of more than 4096 characters"},
    {"long_lines_throughout", (longestLine + "\n").repeated(63), ""},
    {"characters_not_bytes", QByteArray("\xC3\xBC").repeated(maxHelpLineLength), ""},
    {"zero_bytes", QByteArray(1000, '\0'), "it is not a plain text"},
    {"program_file",
     QByteArray("\x7F"
                "ELF\x02\x01\x01\0\0\0",
                10),
     "it is not a plain text"},
    {"utf16", QByteArray("\xFF\xFEh\0i\0", 6), "it is not a plain text"},
    {"control_characters", QByteArray("\x01\x02\x1B[31m\x7F\xFF\n").repeated(1000), ""},
};

class THelpTexts : public testing::TestWithParam<TText> {};

TEST_P(THelpTexts, AreShownOrRefused) {
    const TProgramFile file(helpName, GetParam().bytes);
    const std::string reason = GetParam().reason;
    EXPECT_EQ(ErrorOf(), reason.empty() ? "" : Refusal(reason));
}
INSTANTIATE_TEST_SUITE_P(All, THelpTexts, testing::ValuesIn(texts),
                         [](const auto &test) { return std::string(test.param.name); });

struct TThing {
    const char *name;
    std::function<void()> put;
    const char *reason;
};

const TThing things[] = {
    {"huge_file",
     [] {
         EXPECT_TRUE(QFile(ProgramDirectory() + helpName).open(QFile::WriteOnly));
         fs::resize_file(File(), 200 << 20);
     },
     "it has 209715200 bytes, more than the limit of 262144"},
    {"pipe", [] { EXPECT_EQ(mkfifo(File().c_str(), 0600), 0); }, "not a regular file"},
    {"endless_device", [] { fs::create_symlink("/dev/zero", File()); }, "not a regular file"},
    {"folder", [] { fs::create_directory(File()); }, "Is a directory"},
    {"file_that_lies_about_its_length", [] { fs::create_symlink("/proc/self/status", File()); },
     "its length changed while it was read"},
    {"link_to_nothing", [] { fs::create_symlink("nowhere", File()); }, "No such file or directory"},
    {"endless_link", [] { fs::create_symlink(File().filename(), File()); },
     "Too many levels of symbolic links"},
};

class THelpThings : public testing::TestWithParam<TThing> {
protected:
    ~THelpThings() override { fs::remove(File()); }
};

TEST_P(THelpThings, AreRefused) {
    GetParam().put();
    EXPECT_EQ(ErrorOf(), Refusal(GetParam().reason));
}
INSTANTIATE_TEST_SUITE_P(All, THelpThings, testing::ValuesIn(things),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(THelpLink, ALinkToAPlainFileIsShown) {
    const TProgramFile real("real-help.txt", "text");
    fs::create_symlink("real-help.txt", File());
    EXPECT_EQ(TfrmHelp(helpName).Memo1->toPlainText(), "text");
    fs::remove(File());
}

} // namespace
