// The file into which the contents view is printed; what stands on the pages is read in
// PrintContentsLinuxTest.cpp.
#include "pages/PdfFile.h"
#include "pages/PrintContentsFixture.h"

namespace {
TEST_F(TPrintContentsTest, APrintIsAWholeFileWithAsManyPagesAsItTakes) {
    Print(TBytes(0x8000, 7));
    EXPECT_GT(PagesOf(folder / "print.pdf"), 20);
}

TEST_F(TPrintContentsTest, AFileThatCannotBeWrittenIsTold) {
    const QString nowhere = QString::fromStdString((folder.Path() / "nowhere/print.pdf").string());
    printing.Printer().setOutputFileName(nowhere);
    // The toolkit grumbles on its own channel too.
    const QtMessageHandler strict =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    Print({1});
    qInstallMessageHandler(strict);
    EXPECT_EQ(dialogs.messages, QStringList{"The printer does not take the job: " + nowhere});
}
} // namespace
