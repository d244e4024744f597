#include "forms/Help.h"

#include "forms/ProgramFile.h"
#include "support/Environment.h"
#include "support/FakeDialogs.h"
#include "system/Errors.h"

#include <memory>

#include <QCoreApplication>
#include <QDir>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>
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
        EXPECT_EQ(error.what(), "Cannot read '" +
                                    (ProgramDirectory() + "no-such-help.txt").toStdString() +
                                    "': " + Words(TReason::NoFile));
    }
}

TEST(TfrmHelp, AFolderIsAFileErrorToo) {
    EXPECT_THROW(std::make_unique<TfrmHelp>(""), EFileError);
}

namespace {
class FindInHelp : public testing::Test {
protected:
    FindInHelp() : file_("help-test.txt", "one two\nTwo three\ntwo\n"), help("help-test.txt") {
        help.show();
        help.activateWindow();
    }

    /// Line and column of what is selected; -1 for nothing.
    std::pair<int, int> Found() const {
        const QTextCursor cursor = help.Memo1->textCursor();
        if (!cursor.hasSelection())
            return {-1, -1};
        return {cursor.blockNumber(), cursor.positionInBlock()};
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
        QTest::keyClick(help.Memo1, key, modifiers);
    }

private:
    const TProgramFile file_;

protected:
    TFakeDialogs dialogs;
    TfrmHelp help;
};

using TPlaceInText = std::pair<int, int>;
} // namespace

TEST_F(FindInHelp, GoesFromPlaceToPlaceAndRound) {
    dialogs.inputs = {"two"};
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(dialogs.inputBoxes, QStringList("Find|Text to find|"));
    EXPECT_EQ(Found(), TPlaceInText(0, 7)); // behind what is selected
    for (const TPlaceInText &place : {TPlaceInText(1, 3), TPlaceInText(2, 3), TPlaceInText(0, 7)}) {
        Press(Qt::Key_F3);
        EXPECT_EQ(Found(), place);
    }
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(FindInHelp, SaysWhenThereIsNothingAndStaysWhereItWas) {
    dialogs.inputs = {"three", "four"};
    Press(Qt::Key_F, Qt::ControlModifier);
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(dialogs.messages, QStringList("Text not found"));
    EXPECT_EQ(Found(), TPlaceInText(1, 9));
}

TEST_F(FindInHelp, CancelFindsNothingAndKeepsTheTextOfLastTime) {
    dialogs.inputs = {"two", QString()};
    Press(Qt::Key_F, Qt::ControlModifier);
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(Found(), TPlaceInText(0, 7));
    Press(Qt::Key_F3);
    EXPECT_EQ(Found(), TPlaceInText(1, 3));
}

TEST_F(FindInHelp, AgainAsksTheFirstTime) {
    dialogs.inputs = {QString(), "one"};
    Press(Qt::Key_F3);
    EXPECT_EQ(Found(), TPlaceInText(-1, -1));
    Press(Qt::Key_F3);
    EXPECT_EQ(Found(), TPlaceInText(0, 3));
    EXPECT_EQ(dialogs.inputBoxes.size(), 2);
}

namespace {
class HelpKey : public testing::Test {
protected:
    HelpKey() {
        OnHelpKey(window, [this] {
            ++asked;
            if (fails)
                throw std::runtime_error("no help");
        });
    }

    TFakeDialogs dialogs;
    QWidget window;
    int asked = 0;
    bool fails = false;
};
} // namespace

TEST_F(HelpKey, IsF1Alone) {
    for (const auto key : {Qt::Key_F2, Qt::Key_Help})
        QTest::keyClick(&window, key);
    QTest::keyClick(&window, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(asked, 0);
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(asked, 1);
}

TEST_F(HelpKey, ShowsTheErrorOfItsHandler) {
    fails = true;
    QTest::keyClick(&window, Qt::Key_F1);
    EXPECT_EQ(dialogs.messages, QStringList("no help"));
}

TEST(HelpOfAWindow, SaysWhenThereIsNone) {
    TFakeDialogs dialogs;
    QWidget window;
    window.setObjectName("frmNoHelp");
    ShowHelpOf(window);
    EXPECT_EQ(dialogs.messages, QStringList("Sorry no help is yet available for this screen"));
}
