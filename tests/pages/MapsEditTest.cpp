// Edits on the map pages that are cut, refused, discarded or fail, up to the commit; and the timing
// page's own numbers.
#include "model/Numbers.h"
#include "pages/MapPageFixture.h"
#include "system/Errors.h"

namespace {
using TMapsEditTest = TFuelPageTest;
using TTimingEditTest = TTimingPageTest;

TEST_F(TMapsEditTest, ATextThatCannotBeReadBeforeTheEditIsSaidOnceAndCanBeCorrected) {
    Grid("grdPTMap").SetCell(2, 1, "abc");
    BeginType("grdPTMap", 2, 1, "12");
    EXPECT_EQ(dialogs.messages, QStringList{"'abc' is not a valid floating point value"});
    QTest::keyClick(Editor("grdPTMap"), Qt::Key_Enter);
    QTest::qWait(0);
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_EQ(Grid("grdPTMap").Cell(2, 1), "12");
    EXPECT_EQ(Grid("grdPTMap").FontColor(2, 1), clBlue);
    EXPECT_EQ(page->EditOldValue, 0.0L);
}

TEST_F(TMapsEditTest, TheSameNumberTypedAgainIsAnEditToo) {
    ASSERT_EQ(Grid("grdPTMap").Cell(2, 1), "4");
    Type("grdPTMap", 2, 1, "4");
    EXPECT_EQ(Grid("grdPTMap").FontColor(2, 1), clBlue);
    EXPECT_TRUE(page->PTChanged);
}

TEST_F(TMapsEditTest, AnEscapedEditLeavesTheCell) {
    BeginType("grdPTMap", 2, 1, "12");
    QTest::keyClick(Editor("grdPTMap"), Qt::Key_Escape);
    EXPECT_EQ(Grid("grdPTMap").Cell(2, 1), "4");
    EXPECT_EQ(Grid("grdPTMap").FontColor(2, 1), clWindowText);
    EXPECT_FALSE(page->PTChanged);
    EXPECT_EQ(page->EditOldValue, 4.0L);
}

TEST_F(TMapsEditTest, LoadHeadersAreCutAtTheirPercentOnThePartThrottleGridAlone) {
    Choose("UnlockAxis1");
    Type("grdPTMap", 0, 1, "24 % of it");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(page->EditOldValue, 20.0L);
    EXPECT_EQ(Grid("grdPTMap").FontColor(0, 1), clBlue);
    Type("grdPTMap", 1, 1, "24%");
    EXPECT_EQ(dialogs.messages, QStringList{"'24%' is not a valid floating point value"});
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 1), clWindowText);
    EXPECT_EQ(Grid("grdIdMap").Cell(0, 1), "0%");
    EXPECT_THROW(page->grdIdMapAfterEdit(0, 1), EConvertError);
    EXPECT_THROW(page->grdFTMapBeforeEdit(0, 1), EConvertError);
}

TEST_F(TMapsEditTest, EditedHeadersOfTheOneAxisMapsAreWritten) {
    Choose("UnlockAxis2");
    Type("grdIdMap", 1, 0, "2440");
    Click("btnSaveIdle");
    EXPECT_EQ(Get(fuelIdle, 6), (TBytes{0xA5, 4, 59, 60, 60, 16}));
    EXPECT_EQ(Grid("grdIdMap").Cell(0, 1), "0%");
}

TEST_F(TMapsEditTest, UnlockingTheAxisTakesAnOpenEdit) {
    BeginType("grdPTMap", 1, 1, "77");
    Choose("UnlockAxis1");
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "77");
    Click("btnSavePT");
    EXPECT_EQ(BodyByte(TMapKind::PT, 0), 77);
}

TEST_F(TMapsEditTest, ADiscardedHeaderEditIsNeverReadBack) {
    Choose("UnlockAxis1");
    Type("grdPTMap", 2, 0, "5200");
    Click("btnResetPT");
    EXPECT_EQ(Grid("grdPTMap").Cell(2, 0), "4800");
    const TBytes before = Get(0, Image().size);
    Type("grdPTMap", 1, 1, "1");
    Click("btnSavePT");
    EXPECT_EQ(Get(0, Image().size), before);
}

TEST_F(TMapsEditTest, ACommitDrawsNoChart) {
    Type("grdPTMap", 1, 1, "300");
    Click("btnSavePT");
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "300") << "only the byte wraps";
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").Series()[2].points[0].value, 300.0);
    page->LoadPTMap();
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "44");
    EXPECT_EQ(Find<TAreaChart>("chtPTMap").Series()[2].points[0].value, 44.0);
}

TEST_F(TMapsEditTest, AFailedWriteSaysItsOwnMessage) {
    Type("grdIdMap", 1, 1, "9");
    workspace.fuelMapSet.IdleMap->data->offset = TROMImage::capacity;
    Click("btnSaveIdle");
    EXPECT_EQ(dialogs.messages, QStringList{"Error saving data map data"});
}

TEST_F(TMapsEditTest, YesCommitsInTheOrderPartThrottleIdleFullThrottle) {
    // Three maps over one place: the last one written is what stays.
    workspace.fuelMapSet.SetOffsets(fuelIdle, fuelIdle, fuelIdle);
    page->ShowPage();
    Type("grdFTMap", 1, 1, "53");
    Type("grdIdMap", 1, 1, "52");
    dialogs.answers = {TAnswer::Yes};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(BodyByte(TMapKind::WOT, 0), 53);
}

TEST_F(TTimingEditTest, WithoutADividerAnEntryIsSaidKeepsTheByteAndCountsAsModified) {
    Find<QCheckBox>("chkInterpret").click();
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "0.0");
    Type("grdPTMap", 1, 1, "12");
    EXPECT_TRUE(dialogs.messages.empty()) << "the page does not convert before the commit";
    EXPECT_TRUE(page->PTChanged);
    const TBytes before = Get(0, Image().size);
    Click("btnSavePT");
    EXPECT_EQ(dialogs.messages, QStringList{"Timing Divider Not yet Set"});
    EXPECT_EQ(Get(0, Image().size), before);
    EXPECT_FALSE(page->PTChanged);
    EXPECT_TRUE(page->DataChanged);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "0.0");
}

TEST_F(TTimingEditTest, TimingCellsInDegreesAndCounts) {
    TimingConstants() = {0.65, 12.7};
    EXPECT_EQ(Grid("grdIdMap").Cell(1, 1), "1");
    Find<QCheckBox>("chkInterpret").click();
    EXPECT_EQ(Grid("grdIdMap").Cell(1, 1), "-7.6");
    Type("grdIdMap", 1, 1, "30");
    Click("btnSaveIdle");
    EXPECT_EQ(BodyByte(TMapKind::Idle, 0), 59);
    EXPECT_EQ(Grid("grdIdMap").Cell(1, 1), "30.1");
}

TEST_F(TTimingEditTest, CellsFollowTheDecimalSeparator) {
    TimingConstants() = {0.5, 0.0};
    SetDecimalSeparator(",");
    Find<QCheckBox>("chkInterpret").click();
    EXPECT_EQ(Grid("grdIdMap").Cell(1, 1), "0,5");
    Type("grdIdMap", 1, 1, "2.5");
    EXPECT_EQ(dialogs.messages, QStringList{"'2.5' is not a valid floating point value"});
    Type("grdIdMap", 1, 1, "2,5");
    EXPECT_EQ(Find<TAreaChart>("chtIdMap").Series()[0].points[0].value, 2.5);
    Click("btnSaveIdle");
    EXPECT_EQ(BodyByte(TMapKind::Idle, 0), 5);
}
TEST_F(TMapsEditTest, NoKeepsTheFlagsAndClosingAsksAgain) {
    Type("grdPTMap", 1, 1, "50");
    Type("grdIdMap", 1, 1, "51");
    dialogs.answers = {TAnswer::No, TAnswer::No};
    EXPECT_TRUE(page->QueryClose());
    EXPECT_TRUE(page->PTChanged);
    EXPECT_TRUE(page->IdleChanged);
    EXPECT_FALSE(page->FTChanged);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "50");
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 1), clBlue);
    EXPECT_TRUE(page->QueryClose());
    EXPECT_EQ(dialogs.questions, (QStringList{"Commit Changes?", "Commit Changes?"}));
    page->ShowPage();
    EXPECT_FALSE(page->PTChanged);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "1");
}

TEST_F(TMapsEditTest, ABlueCellEditedIntoNoNumberStaysBlue) {
    Type("grdPTMap", 1, 1, "50");
    Type("grdPTMap", 1, 1, "fifty");
    EXPECT_EQ(dialogs.messages, QStringList{"'fifty' is not a valid floating point value"});
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "fifty");
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 1), clBlue);
    EXPECT_TRUE(page->PTChanged);
    Click("btnSavePT"); // skips what it cannot read
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_EQ(Grid("grdPTMap").Cell(1, 1), "1");
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 1), clWindowText);
}

TEST_F(TMapsEditTest, TheBulkToolLeavesDataChangedAlone) {
    for (const bool before : {false, true}) {
        page->DataChanged = before;
        page->ToolWindow->edtValExit();
        page->ToolWindow->btnExecClick();
        EXPECT_TRUE(page->PTChanged);
        EXPECT_EQ(page->DataChanged, before);
    }
}

TEST_F(TMapsEditTest, TheOneCellWithoutAMapIsNotEdited) {
    TWorkspace empty;
    TfrmFuelMaps other(nullptr, empty, empty.fuelMapSet);
    other.ShowPage();
    for (const char *name : {"grdPTMap", "grdIdMap", "grdFTMap"}) {
        auto &grid = FindControl<TStringAlignGrid>(other, name);
        grid.setFocus();
        QTest::keyClick(grid.viewport(), Qt::Key_F2);
        EXPECT_FALSE(grid.IsEditing()) << name;
        QTest::keyClick(grid.viewport(), Qt::Key_7);
        EXPECT_FALSE(grid.IsEditing()) << name;
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, {5, 5});
        EXPECT_FALSE(grid.IsEditing()) << name;
    }
    EXPECT_TRUE(dialogs.messages.empty());
    empty.fuelMapSet.SetOffsets(fuelPT, fuelIdle, fuelWOT);
    other.LoadPTMap();
    auto &grid = FindControl<TStringAlignGrid>(other, "grdPTMap");
    QTest::keyClick(grid.viewport(), Qt::Key_F2);
    EXPECT_TRUE(grid.IsEditing());
}
} // namespace
