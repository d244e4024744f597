// The contents view: the grid of the whole image, copying, printing, the menu and what its commands
// ask, and the key window. What the searches find is tested with them; here they are only reached
// through the menu.
#include "filedisplay/FileDisplay.h"
#include "filedisplay/filedisplaykey.h"
#include "pages/PageFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QTextDocument>

namespace {
class TFakePrinting : public IPrinting {
public:
    void RunSetup() override { ++setups; }
    void Print(const QTextDocument &text, const QString &jobTitle) override {
        jobs << jobTitle + "|" + text.toPlainText();
    }
    int setups = 0;
    QStringList jobs;
};

class TFileContentsTest : public TPageTest {
protected:
    TFileContentsTest() { TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn"; }

    /// Shows an image of these bytes under a file name of its own.
    void Show(const TBytes &bytes) {
        Put(0, bytes);
        Image().size = static_cast<std::int32_t>(bytes.size());
        workspace.romFileName = "image" + std::to_string(++files_) + ".BIN";
        page->ShowPage();
    }
    void Trigger(const QString &name) { FindControl<QAction>(*page, name).trigger(); }
    TStringAlignGrid &Grid() { return FindControl<TStringAlignGrid>(*page, "grdFile"); }
    TColor ColorAt(std::size_t offset) {
        return Grid().CellColor(static_cast<int>(offset % 16) + 1,
                                static_cast<int>(offset / 16) + 1);
    }

    TWorkspace workspace;
    TFakePrinting printing;
    std::unique_ptr<TfrmFileContents> page =
        std::make_unique<TfrmFileContents>(nullptr, workspace, printing);

private:
    int files_ = 0;
};

TEST_F(TFileContentsTest, AnEmptyImageHasItsHeaderRowOnly) {
    page->ShowPage();
    EXPECT_EQ(Grid().RowCount(), 1);
    EXPECT_EQ(Grid().ColCount(), 17);
    EXPECT_EQ(Grid().Cell(1, 0), "0");
    EXPECT_EQ(Grid().Cell(16, 0), "F");
}

class TSizeTest : public TFileContentsTest, public testing::WithParamInterface<int> {};

TEST_P(TSizeTest, EveryByteHasACellAndTheLastRowAnEmptyTail) {
    const int size = GetParam();
    Show(TBytes(static_cast<std::size_t>(size), 7));
    EXPECT_EQ(Grid().RowCount(), 1 + (size + 15) / 16);
    for (int i = 0; i < ((size + 15) / 16) * 16; ++i)
        ASSERT_EQ(Grid().Cell(i % 16 + 1, i / 16 + 1), i < size ? "7" : "") << i;
}
INSTANTIATE_TEST_SUITE_P(Sizes, TSizeTest, testing::Values(1, 15, 16, 17, 33, 65535, 65536, 65537));

TEST_F(TFileContentsTest, AddressesAreThreeDigitsAndAnX) {
    Show(TBytes(0x10010, 0));
    EXPECT_EQ(Grid().Cell(0, 1), "000x");
    EXPECT_EQ(Grid().Cell(0, 0x1A5 + 1), "1A5x");
    EXPECT_EQ(Grid().Cell(0, 0x1001), "1000x");
}

TEST_F(TFileContentsTest, HexadecimalTextsAndBackAgainWithoutMarks) {
    Show({10, 255, 0});
    dialogs.inputs = {"10"};
    Trigger("HighlightAValue1");
    EXPECT_EQ(ColorAt(0), 0x008080u);
    page->parameters.fuelMinimum = 1;
    FindControl<QCheckBox>(*page, "chkDisplayHex").click();
    EXPECT_EQ(Grid().Cell(1, 1), "$0A");
    EXPECT_EQ(Grid().Cell(2, 1), "$FF");
    EXPECT_EQ(ColorAt(0), clWindow);
    EXPECT_EQ(page->parameters.fuelMinimum, 90);
    FindControl<QCheckBox>(*page, "chkDisplayHex").click();
    EXPECT_EQ(Grid().Cell(1, 1), "10");
}

TEST_F(TFileContentsTest, TheViewFollowsTheFileNameAlone) {
    Show({1, 2});
    Image().Poke(0, 99);
    page->QueryClose();
    page->ShowPage();
    EXPECT_EQ(Grid().Cell(1, 1), "1");
    Show({5});
    EXPECT_EQ(Grid().Cell(1, 1), "5");
    EXPECT_EQ(Grid().Cell(2, 1), "");
}

TEST_F(TFileContentsTest, ColumnsAre38PixelsWide) {
    Show(TBytes(64, 0));
    for (int column = 0; column < 17; ++column)
        EXPECT_EQ(Grid().ColWidth(column), 38) << column;
    EXPECT_FALSE(Grid().Editable);
    EXPECT_EQ(Grid().NextCellEdit, nc_downleft);
}

TEST_F(TFileContentsTest, CopiesTheWholeGridWithTabs) {
    Show({1, 2});
    Trigger("Copy1");
    const QString tail = QString("\t").repeated(14) + "\n";
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "\t0\t1\t2\t3\t4\t5\t6\t7\t8\t9\tA\tB\tC\tD\tE\tF\n000x\t1\t2" + tail);
}

TEST_F(TFileContentsTest, CopiesTheSelectionWithCommas) {
    Show({1, 2, 3, 4});
    Grid().SetSelection({2, 1, 3, 1});
    Trigger("CopySelected1");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2,3\n");
}

TEST_F(TFileContentsTest, PrintsTheGridUnderTheTitle) {
    Show({9});
    Trigger("Print1");
    ASSERT_EQ(printing.jobs.size(), 1);
    const QStringList lines = printing.jobs[0].split('\n');
    EXPECT_EQ(lines[0], "Ferrolyn|");
    EXPECT_EQ(lines[1], "Ferrolyn");
    EXPECT_EQ(lines[3], "");
    EXPECT_EQ(lines[4], "");
    EXPECT_TRUE(lines[6].startsWith("000x\t9"));
    Trigger("PrintSetup1");
    EXPECT_EQ(printing.setups, 1);
}

TEST_F(TFileContentsTest, ADoubleClickTellsTheGridCoordinates) {
    Show(TBytes(64, 0));
    Grid().SetCurrent(3, 2);
    page->grdFileDblClick();
    EXPECT_EQ(dialogs.messages, QStringList{"col: 3 row: 2"});
}

TEST_F(TFileContentsTest, TheMouseLeavesAnchorAndExtent) {
    Show(TBytes(64, 0));
    page->grdFileMouseDown(Qt::LeftButton, {}, {50, 60});
    EXPECT_EQ(page->mouseAnchor, QPoint(50, 60));
    EXPECT_EQ(page->mouseExtent, QPoint(-1, -1));
    Grid().SetSelection({2, 1, 4, 3});
    page->grdFileMouseUp(Qt::LeftButton);
    EXPECT_EQ(page->mouseAnchor, QPoint(2, 1));
    EXPECT_EQ(page->mouseExtent, QPoint(4, 3));
    page->grdFileMouseDown(Qt::LeftButton, Qt::ShiftModifier, {70, 80});
    page->grdFileMouseUp(Qt::LeftButton);
    EXPECT_EQ(page->mouseAnchor, QPoint(2, 1));
    EXPECT_EQ(page->mouseExtent, QPoint(70, 80));
    page->grdFileMouseDown(Qt::RightButton, {}, {1, 1});
    EXPECT_EQ(page->mouseAnchor, QPoint(2, 1));
}

TEST_F(TFileContentsTest, TheMenuStandsInItsOrderWithThreeSeparators) {
    QStringList captions;
    for (const QAction *action : FindControl<QMenu>(*page, "PopupMenu1").actions())
        captions << (action->isSeparator() ? "-" : action->text());
    EXPECT_EQ(captions,
              (QStringList{"Copy", "Copy Selected", "Print", "Print Setup", "-",
                           "Clear All Markers", "Highlight Map From Current Cell", "-",
                           "Set Search Parameters", "Manual Searches", "Search and Highlight Maps",
                           "-", "Update Notebook Map", "Add Notebook Map", "Quick Map"}));
}

struct TParameterCase {
    const char *action;
    const char *caption;
    const char *prompt;
    std::int32_t TSearchParameters::*parameter;
};
class TParameterTest : public TFileContentsTest,
                       public testing::WithParamInterface<TParameterCase> {};

TEST_P(TParameterTest, IsAskedForWithItsCurrentValueAndStored) {
    const TParameterCase &item = GetParam();
    std::int32_t &value = page->parameters.*item.parameter;
    const QString before = value == -1 ? QString() : QString::number(value);
    EXPECT_EQ(FindControl<QAction>(*page, item.action).text(), item.caption);
    const std::vector<std::pair<QString, std::int32_t>> answers{
        {"$2A", 42}, {QString(), 42}, {"abc", -1}, {"7", 7}, {"", -1}, {"-5", -5}};
    for (const auto &[answer, stored] : answers) {
        dialogs.inputs = {answer};
        Trigger(item.action);
        EXPECT_EQ(value, stored) << answer.toStdString();
    }
    EXPECT_EQ(dialogs.inputBoxes.first(),
              QString("Search Parameters|%1|%2").arg(item.prompt, before));
}
INSTANTIATE_TEST_SUITE_P(
    Items, TParameterTest,
    testing::Values(
        TParameterCase{"MinFuelVal1", "Fuel Val Min", "Minimum PossibleFuel value to include",
                       &TSearchParameters::fuelMinimum},
        TParameterCase{"MaxFuelVal1", "Fuel Value Max", "Maximum PossibleFuel value to include",
                       &TSearchParameters::fuelMaximum},
        TParameterCase{"MinTimingVal1", "Timing Val Min", "Minimum PossibleTiming value to include",
                       &TSearchParameters::timingMinimum},
        TParameterCase{"MaxTimingVal1", "Timing Val Max", "Maximum PossibleTiming value to include",
                       &TSearchParameters::timingMaximum},
        TParameterCase{"RPMRAMLocation1", "RPM RAM Location", "RAM location of RPM reading",
                       &TSearchParameters::rpmLocation},
        TParameterCase{"LoadRAMLocation1", "% Load RAM Location", "RAM Location of % Load reading",
                       &TSearchParameters::loadLocation}));

TEST_F(TFileContentsTest, FindValueAsksUntilThereIsANumberOrNothing) {
    Show({3, 4, 3});
    dialogs.inputs = {"x", "-1", "3"};
    Trigger("HighlightAValue1");
    EXPECT_EQ(dialogs.inputBoxes.size(), 3);
    EXPECT_EQ(dialogs.inputBoxes[0], "Find Value|Enter a value to search for|");
    EXPECT_EQ(ColorAt(0), 0x008080u);
    EXPECT_EQ(ColorAt(1), clWindow);
    EXPECT_EQ(ColorAt(2), 0x008080u);
    dialogs.inputs = {""};
    Trigger("HighlightAValue1");
    EXPECT_EQ(ColorAt(1), clWindow);
}

TEST_F(TFileContentsTest, ThePointerLookupAsksTwiceAndKeepsTheMask) {
    Show({0xF2, 0x34, 0x02, 0x34});
    dialogs.inputs = {"$0234", "15"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(dialogs.inputBoxes, (QStringList{"Indirect Ref Lookup|Enter Address To Find|",
                                               "Indirect Ref Lookup|Mask Bits|15"}));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(ColorAt(i), 0x008080u) << i;
    dialogs.inputs = {"", "511"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(page->parameters.pointerMask, 255);
    dialogs.inputs = {"$10000", "none"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(page->parameters.pointerMask, 0);
    EXPECT_EQ(dialogs.messages, QStringList{"Address out of range"});
}

TEST_F(TFileContentsTest, AScanLeavesNoCellSelected) {
    Show(TBytes(64, 100));
    Grid().SetCurrent(2, 2);
    EXPECT_EQ(page->selected, (TGridCell{2, 2}));
    Trigger("FindConsecutivePossFuelVals");
    EXPECT_EQ(page->selected, (TGridCell{0, 0}));
    EXPECT_EQ(ColorAt(5), 0x00FF00u);
    Trigger("Fuel4");
    EXPECT_EQ(page->counters.linear, 0);
}

TEST_F(TFileContentsTest, AMapIsMarkedFromTheSelectedCellWhichMovesBehindIt) {
    TBytes bytes(96, 0);
    const TBytes map{0, 2, 5, 6, 100, 101};
    std::copy(map.begin(), map.end(), bytes.begin() + 16);
    Show(bytes);
    Grid().SetCurrent(1, 2);
    Trigger("Fuel4");
    EXPECT_EQ(page->counters.linear, 1);
    EXPECT_EQ(ColorAt(16), 0x008000u);
    EXPECT_EQ(ColorAt(17), 0xFF0000u);
    EXPECT_EQ(page->selected, (TGridCell{7, 2}));
    Trigger("ClearAllMarkers1");
    EXPECT_EQ(page->counters.linear, 0);
    EXPECT_EQ(ColorAt(16), clWindow);
    Trigger("Fuel6");
    EXPECT_EQ(page->counters.linear, 1);
    EXPECT_EQ(ColorAt(17), 0xFF0000u);
}

TEST_F(TFileContentsTest, CommandsBeforeAnyImageDoNothing) {
    page->ShowPage();
    for (const char *name : {"FindConsecutivePossTimeVals", "Timing3", "Timing5", "Any1", "Any2",
                             "ClearAllMarkers1", "CopySelected1"})
        Trigger(name);
    EXPECT_EQ(page->counters.twoD, 0);
}

TEST_F(TFileContentsTest, TheKeyWindowShowsTheParametersAndLivesWhileThePageIsShown) {
    page->ShowPage();
    auto &button = FindControl<QPushButton>(*page, "Button1");
    auto *key = page->findChild<TfrmKey *>();
    ASSERT_TRUE(key);
    EXPECT_FALSE(key->isVisible());
    page->parameters.loadLocation = 76;
    button.click();
    EXPECT_TRUE(key->isVisible());
    EXPECT_EQ(FindControl<QLabel>(*key, "lblFuelMin").text(), "min: 90");
    EXPECT_EQ(FindControl<QLabel>(*key, "lblFuelMax").text(), "max: 200");
    EXPECT_EQ(FindControl<QLabel>(*key, "lblTimingMin").text(), "min: 10");
    EXPECT_EQ(FindControl<QLabel>(*key, "lblTimingMax").text(), "max: 90");
    EXPECT_EQ(FindControl<QLabel>(*key, "lblRPMLocation").text(), "RPM: (not specified)");
    EXPECT_EQ(FindControl<QLabel>(*key, "lblLoadLocation").text(), "Load: 76");
    button.click();
    EXPECT_FALSE(key->isVisible());
    page->QueryClose();
    EXPECT_FALSE(page->findChild<TfrmKey *>());
}
} // namespace
