// For Linux alone: the printed pages of differences, read back as text by programs of Linux.
#include "pages/AskProgram.h"
#include "pages/ChangesReportFixture.h"
#include "system/Sha256.h"

#include <QRegularExpression>
#include <gmock/gmock.h>

namespace {
using testing::Contains;
using testing::Not;

/// The printed lines that are not empty, one blank between words.
QStringList ReportLines(const QString &pdf) {
    QStringList lines;
    for (const QString &line : AskProgram("pdftotext", {"-layout", pdf, "-"}).split('\n'))
        if (!line.trimmed().isEmpty())
            lines << line.simplified();
    return lines;
}

TEST_F(TChangesReportTest, NamesBothFilesWithSizeAndDigest) {
    after[0x7000] = 1;
    Write();
    const QStringList lines = ReportLines(Pdf());
    EXPECT_EQ(lines[0], "Differences of two images");
    EXPECT_EQ(lines[1], "File Bytes SHA-256");
    EXPECT_EQ(lines[2], "Before OLD.BIN 32768 " + QString::fromStdString(Sha256(before)));
    EXPECT_EQ(lines[3], "After NEW.BIN 32768 " + QString::fromStdString(Sha256(after)));
    EXPECT_EQ(lines[4], "Differing: 1 byte.");
}

TEST_F(TChangesReportTest, HasATableOfEachMapThatDiffers) {
    after[fuelPT + 11 + 4] = 160; // second RPM point, second load point
    after[timingIdle + 6] = 0;
    workspace.fuelMapSet.SetShowConverted(true);
    Write();
    const QStringList lines = ReportLines(Pdf());
    const auto fuel = lines.indexOf("Fuel PT");
    ASSERT_GE(fuel, 0) << lines.join('\n').toStdString();
    EXPECT_EQ(lines.mid(fuel + 1, 5),
              QStringList({"1 cell", "2400 4800 7200 9600", "20% 0.01 0.03 0.05 0.08",
                           "60% 0.02 0.04 → 1.25 0.06 0.09", "100% 0.02 0.05 0.07 0.09"}));
    const auto timing = lines.indexOf("Timing Idle");
    ASSERT_GE(timing, 0);
    EXPECT_EQ(lines.mid(timing + 1, 3),
              QStringList({"1 cell", "2400 4800 7200 9600", "0% 1 → 0 2 3 4"}));
    EXPECT_THAT(lines, Not(Contains("Fuel Idle")));
    EXPECT_THAT(lines, Not(Contains("Max RPM")));
    EXPECT_THAT(lines, Not(Contains("Elsewhere")));
}

TEST_F(TChangesReportTest, HasAxesRevLimiterAndTheRest) {
    after[fuelPT + 2] = 59;
    after[revLimiter] = 163;
    for (std::size_t i = 0x7000; i < 0x7012; ++i)
        after[i] = 0xAB;
    Write();
    const QStringList lines = ReportLines(Pdf());
    EXPECT_THAT(lines, Contains("2400 → 2440 4800 7200 9600"));
    EXPECT_THAT(lines, Contains("Axes: $1002 3C → 3B"));
    const auto limiter = lines.indexOf("Max RPM");
    EXPECT_EQ(lines.mid(limiter + 1, 2), QStringList({"6800 → 6520", "$0040 AA → A3"}));
    const auto rest = lines.indexOf("Elsewhere");
    const QString zeros = QString("00 ").repeated(16);
    const QString others = QString("AB ").repeated(16);
    EXPECT_EQ(lines.mid(rest + 1, 4),
              QStringList({"18 bytes in 1 place", "Offset Before After",
                           ("$7000 " + zeros + others).trimmed(), "$7010 00 00 AB AB"}));
}

TEST_F(TChangesReportTest, SaysWhatIsNotCompared) {
    after[fuelPT + 7] = 2; // load points
    after.resize(0x6000);
    Write();
    const QStringList lines = ReportLines(Pdf());
    EXPECT_THAT(lines, Contains("Differing: 1 byte. The end of the longer image is left out."));
    EXPECT_EQ(lines[lines.indexOf("Fuel PT") + 1],
              "Not compared: 4 x 3 points before, 4 x 2 after.");
}

TEST_F(TChangesReportTest, LeavesOutWhatIsTooMuchForPaper) {
    for (std::size_t i = 0x4000; i < 0x8000; ++i)
        after[i] = 1;
    Write();
    const QStringList lines = ReportLines(Pdf());
    EXPECT_EQ(lines.filter(QRegularExpression("^\\$")).size(), 500);
    EXPECT_THAT(lines, Contains("Not printed: 8384 bytes more."));
}

TEST_F(TChangesReportTest, HasWideMapsInSeveralTablesThatFitThePage) {
    Image().data.fill(0);
    PutMap(fuelPT, TBytes(31, 7), TBytes(20, 12)); // as large as a map can be
    PlaceMaps(workspace);
    before.assign(Image().data.begin(), Image().data.begin() + 0x8000);
    after = before;
    for (int cell = 0; cell < 31 * 20; ++cell)
        after[static_cast<std::size_t>(fuelPT + 33 + 22 + cell)] ^= 0x80;
    Write();
    const QString text = ReportLines(Pdf()).join(' ');
    EXPECT_EQ(text.count("→"), 31 * 20 + 1) << "each, and the legend";
    EXPECT_GT(text.count(" 4% "), 2);
    EXPECT_TRUE(AskProgram("pdfinfo", {Pdf()}).contains(QRegularExpression("Page size: .*A4")));
    // No word lies beyond the page's right margin, which is as wide as the left one.
    const QString boxes = AskProgram("pdftotext", {"-bbox", Pdf(), "-"});
    static const QRegularExpression edge("xMax=\"([0-9.]+)\"");
    double right = 0;
    for (auto found = edge.globalMatch(boxes); found.hasNext();)
        right = std::max(right, found.next().captured(1).toDouble());
    EXPECT_LT(right, 595 - 55);
}

TEST_F(TChangesReportTest, IsNumbered) {
    for (std::size_t i = 0x4000; i < 0x8000; ++i)
        after[i] = 1;
    Write();
    const QStringList pages = AskProgram("pdftotext", {"-layout", Pdf(), "-"}).split('\f');
    ASSERT_GT(pages.size(), 5);
    for (int page = 0; page + 1 < pages.size(); ++page) {
        EXPECT_TRUE(pages[page].trimmed().endsWith("\n" + QString::number(page + 1)) ||
                    pages[page].simplified().endsWith(" " + QString::number(page + 1)))
            << page;
        EXPECT_EQ(pages[page].contains("Offset"),
                  page + 2 < pages.size() || pages[page].contains("$"))
            << "headers on each page";
    }
}
} // namespace
