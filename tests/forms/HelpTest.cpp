#include "forms/Help.h"

#include "forms/ProgramFile.h"
#include "model/Errors.h"

#include <memory>

#include <QCoreApplication>
#include <QDir>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextDocument>
#include <gmock/gmock.h>

namespace {
struct TTextCase {
    const char *name;
    QByteArray bytes;
    QString shown;
};

class HelpText : public testing::TestWithParam<TTextCase> {};

const TTextCase texts[] = {
    {"lines_in_order", "one\ntwo\nthree\n", "one\ntwo\nthree"},
    {"no_last_line_end", "one\ntwo", "one\ntwo"},
    {"crlf", "one\r\ntwo\r\n", "one\ntwo"},
    {"cr", "one\rtwo\r", "one\ntwo"},
    {"empty_lines", "\n\none\n\n", "\n\none\n"},
    {"empty", "", ""},
    {"utf8", "\xC3\xA4 \xE2\x82\xAC\n", QString::fromUtf8("\xC3\xA4 \xE2\x82\xAC")},
    {"utf8_with_mark", "\xEF\xBB\xBFone\n", "one"},
    {"latin1", "\xE4 50 \xB0\n", QString::fromLatin1("\xE4 50 \xB0")},
    {"cut_off_utf8", "one \xC3", QString::fromLatin1("one \xC3")},
    {"markup_letter_by_letter", "<b>one</b> &amp;\n", "<b>one</b> &amp;"},
};
} // namespace

TEST_P(HelpText, IsShownLineByLine) {
    const TProgramFile file("help-test.txt", GetParam().bytes);
    const TfrmHelp help("help-test.txt");
    EXPECT_EQ(help.Memo1->toPlainText(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Texts, HelpText, testing::ValuesIn(texts),
                         [](const auto &test) { return std::string(test.param.name); });

TEST(ProgramDirectory, IsTheFolderOfTheProgramWithASeparator) {
    EXPECT_TRUE(ProgramDirectory().endsWith(QDir::separator()));
    EXPECT_EQ(QDir(ProgramDirectory()), QDir(QCoreApplication::applicationDirPath()));
}

TEST(TfrmHelp, IsAToolWindowWithAReadOnlyMemo) {
    const TProgramFile file("help-test.txt", "text");
    const TfrmHelp help("help-test.txt");
    EXPECT_EQ(help.windowType(), Qt::Tool);
    EXPECT_EQ(help.Memo1->objectName(), "Memo1");
    EXPECT_TRUE(help.Memo1->isReadOnly());
    EXPECT_FALSE(help.isModal());
}

TEST(TfrmHelp, ALongFileIsShownFromItsBeginning) {
    const TProgramFile file("help-test.txt", QByteArray("line\n").repeated(5000));
    TfrmHelp help("help-test.txt");
    help.show();
    EXPECT_EQ(help.Memo1->document()->blockCount(), 5000);
    EXPECT_GT(help.Memo1->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(help.Memo1->verticalScrollBar()->value(), 0);
}

TEST(TfrmHelp, AMissingFileIsAFileErrorWithNameAndReason) {
    try {
        const TfrmHelp help("no-such-help.txt");
        FAIL() << "no error";
    } catch (const EFileError &error) {
        EXPECT_EQ(error.what(), "Cannot open file \"" +
                                    (ProgramDirectory() + "no-such-help.txt").toStdString() +
                                    "\": No such file or directory");
    }
}

TEST(TfrmHelp, AFolderIsAFileErrorToo) {
    EXPECT_THROW(std::make_unique<TfrmHelp>(""), EFileError);
}
