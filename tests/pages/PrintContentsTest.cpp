// The contents view on paper: a print into a PDF file, read back as text.
#include "filedisplay/FileDisplay.h"
#include "forms/baseform.h"
#include "pages/AskProgram.h"
#include "pages/PageFixture.h"

#include <QPrinter>
#include <QRegularExpression>

namespace {
class TPrintContentsTest : public TPageTest {
protected:
    TPrintContentsTest() {
        TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
        printing.Printer().setOutputFormat(QPrinter::PdfFormat);
        printing.Printer().setOutputFileName(Pdf());
    }
    QString Pdf() { return QString::fromStdString((folder.Path() / "print.pdf").string()); }

    void Print(const TBytes &bytes) {
        Put(0, bytes);
        Image().size = static_cast<std::int32_t>(bytes.size());
        workspace.romFileName = "image.BIN";
        page.ShowPage();
        FindControl<QAction>(page, "Print1").trigger();
    }
    /// The printed lines that are not empty, each as its words.
    std::vector<QStringList> Lines() {
        std::vector<QStringList> lines;
        for (const QString &line : AskProgram("pdftotext", {"-layout", Pdf(), "-"}).split('\n'))
            if (!line.trimmed().isEmpty())
                lines.push_back(line.simplified().split(' '));
        return lines;
    }

    TWorkspace workspace;
    TPrinting printing;
    TfrmFileContents page{nullptr, workspace, printing};
};

TEST_F(TPrintContentsTest, EachRowOfTheGridIsOneLineUnderTheTitle) {
    TBytes bytes(0x1010);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7);
    Print(bytes);
    const std::vector<QStringList> lines = Lines();
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

TEST_F(TPrintContentsTest, AFileThatCannotBeWrittenIsTold) {
    printing.Printer().setOutputFileName("/proc/nowhere/print.pdf");
    // The toolkit grumbles on its own channel too.
    const QtMessageHandler strict =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    Print({1});
    qInstallMessageHandler(strict);
    EXPECT_EQ(dialogs.messages,
              QStringList{"The printer does not take the job: /proc/nowhere/print.pdf"});
}
} // namespace
