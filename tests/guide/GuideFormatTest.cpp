// The help texts as files: plain text that the help window shows without breaking a line.
#include "forms/Help.h"
#include "guide/Guide.h"

#include <QDir>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>
#include <gmock/gmock.h>

namespace {
constexpr int longestLine = helpColumns - 2;

class HelpFile : public testing::TestWithParam<std::string> {
protected:
    const QString fullName = QString::fromStdString(GetParam());
    const QString text = TextOfFile(fullName);
    const QString name = QFileInfo(fullName).fileName();
};

std::vector<std::string> FullNames() {
    std::vector<std::string> names;
    for (const QString &file : HelpFiles())
        names.push_back(file.toStdString());
    return names;
}
} // namespace

TEST_P(HelpFile, IsPlainTextWithinTheLimits) {
    EXPECT_TRUE(name.endsWith(".txt"));
    EXPECT_LE(QFileInfo(fullName).size(), maxHelpFileSize / 2);
    EXPECT_TRUE(text.endsWith('\n'));
    EXPECT_FALSE(text.endsWith("\n\n"));
    static const QRegularExpression control("[\\x00-\\x09\\x0b-\\x1f\\x7f]");
    EXPECT_FALSE(text.contains(control));
    EXPECT_FALSE(text.contains(" \n")) << "blanks at the end of a line";
    for (const QString &line : text.split('\n'))
        EXPECT_LE(line.size(), longestLine) << line.toStdString();
}

TEST_P(HelpFile, FitsTheWindowLineByLine) {
    TfrmHelp help(name);
    help.show();
    help.grab();
    EXPECT_EQ(help.Memo1->toPlainText() + '\n', text);
    EXPECT_EQ(help.Memo1->horizontalScrollBar()->maximum(), 0);
    for (QTextBlock line = help.Memo1->document()->begin(); line.isValid(); line = line.next()) {
        help.Memo1->setTextCursor(QTextCursor(line));
        EXPECT_LE(line.layout()->lineCount(), 1) << line.text().toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(All, HelpFile, testing::ValuesIn(FullNames()), [](const auto &test) {
    return QFileInfo(QString::fromStdString(test.param)).baseName().toStdString();
});

TEST(Guide, HasTheChaptersOfItsContents) {
    const QString guide = GuideText();
    static const QRegularExpression item("^ {2,3}([0-9]+)  (.+)$",
                                         QRegularExpression::MultilineOption);
    QStringList contents;
    for (auto found = item.globalMatch(guide); found.hasNext();) {
        const auto match = found.next();
        contents << match.captured(1) + "  " + match.captured(2).toUpper();
    }
    static const QRegularExpression head("^([0-9]+)  (.+)$", QRegularExpression::MultilineOption);
    QStringList chapters;
    for (auto found = head.globalMatch(guide); found.hasNext();)
        chapters << found.next().captured(0);
    EXPECT_EQ(contents, chapters);
    for (qsizetype i = 0; i < chapters.size(); ++i)
        EXPECT_TRUE(chapters[i].startsWith(QString::number(i + 1) + ' '));
    EXPECT_GE(chapters.size(), 10);
}

TEST(Guide, RefersToChaptersThatExist) {
    const QString guide = GuideText();
    static const QRegularExpression reference("\\(([0-9]+)\\)");
    for (auto found = reference.globalMatch(guide); found.hasNext();) {
        const QString number = found.next().captured(1);
        EXPECT_TRUE(guide.contains(
            QRegularExpression("^" + number + "  [A-Z]", QRegularExpression::MultilineOption)))
            << number.toStdString();
    }
}
