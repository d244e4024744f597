// The file of the printed pages of differences; what stands on them is read in
// ChangesReportLinuxTest.cpp.
#include "pages/ChangesReportFixture.h"
#include "pages/PdfFile.h"
#include "system/Errors.h"

namespace {
TEST_F(TChangesReportTest, IsAWholeFileWithAsManyPagesAsItTakes) {
    after[0x7000] = 1;
    Write();
    EXPECT_EQ(PagesOf(folder / "report.pdf"), 1);
    for (std::size_t i = 0x4000; i < 0x8000; ++i)
        after[i] = 1;
    Write();
    EXPECT_GT(PagesOf(folder / "report.pdf"), 5);
}

TEST_F(TChangesReportTest, NamesAFileThatCannotBeWritten) {
    after[0x7000] = 1;
    TMappedImage one(before);
    TMappedImage other(after);
    try {
        WriteReport(folder.Path() / "none" / "report.pdf", {one, other, "OLD.BIN", "NEW.BIN"});
        FAIL() << "no error";
    } catch (const EFileError &error) {
        EXPECT_NE(std::string(error.what()).find("report.pdf"), std::string::npos);
    }
}
} // namespace
