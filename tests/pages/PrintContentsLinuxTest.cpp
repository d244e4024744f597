// For Linux alone: the contents view on paper, read back as text by programs of Linux.
#include "pages/AskProgram.h"
#include "pages/PrintContentsFixture.h"

#include <QRegularExpression>

namespace {
/// The printed lines that are not empty, each as its words.
std::vector<QStringList> PrintedLines(const QString &pdf) {
    std::vector<QStringList> lines;
    for (const QString &line : AskProgram("pdftotext", {"-layout", pdf, "-"}).split('\n'))
        if (!line.trimmed().isEmpty())
            lines.push_back(line.simplified().split(' '));
    return lines;
}

TEST_F(TPrintContentsTest, EachRowOfTheGridIsOneLineUnderTheTitle) {
    TBytes bytes(0x1010);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7);
    Print(bytes);
    const std::vector<QStringList> lines = PrintedLines(Pdf());
    ASSERT_GE(lines.size(), 4U);
    EXPECT_EQ(lines[0], QStringList{"Ferrolyn"});
    EXPECT_EQ(lines[1].join(' '), "Contents of the ROM image, 16 bytes a row");
    EXPECT_EQ(lines[2], QString("0 1 2 3 4 5 6 7 8 9 A B C D E F").split(' '));
    std::size_t row = 0;
    for (std::size_t i = 3; i < lines.size(); ++i) {
        if (lines[i].size() == 1) // the number of the page
            continue;
        ASSERT_EQ(lines[i].size(), 17) << lines[i].join(' ').toStdString();
        EXPECT_EQ(lines[i][0], page.findChild<TStringAlignGrid *>()->Cell(0, int(row) + 1));
        for (int column = 0; column < 16; ++column)
            ASSERT_EQ(lines[i][column + 1],
                      QString::number(bytes[row * 16 + static_cast<std::size_t>(column)]))
                << "row " << row;
        ++row;
    }
    EXPECT_EQ(row, bytes.size() / 16);
}

TEST_F(TPrintContentsTest, ThePaperLiesAndTheJobIsNamed) {
    Print({1, 2, 3});
    const QString facts = AskProgram("pdfinfo", {Pdf()});
    EXPECT_TRUE(facts.contains(QRegularExpression("Title: +Ferrolyn"))) << facts.toStdString();
    const QRegularExpressionMatch size =
        QRegularExpression("Page size: +([0-9.]+) x ([0-9.]+)").match(facts);
    EXPECT_GT(size.captured(1).toDouble(), size.captured(2).toDouble()) << facts.toStdString();
}
} // namespace
