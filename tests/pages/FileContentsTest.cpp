// The contents view: the grid of the whole image, copying, printing, the mouse, the menu's order
// and the key window. What the menu's searches ask and mark: FileSearchesTest.cpp.
#include "filedisplay/filedisplaykey.h"
#include "pages/FileContentsFixture.h"

#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

namespace {
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
INSTANTIATE_TEST_SUITE_P(Sizes, TSizeTest,
                         testing::Values(1, 15, 16, 17, 33, 65535, 65536, 65537, 0x100000));

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
    page->session.parameters.fuelMinimum = 1;
    FindControl<QCheckBox>(*page, "chkDisplayHex").click();
    EXPECT_EQ(Grid().Cell(1, 1), "$0A");
    EXPECT_EQ(Grid().Cell(2, 1), "$FF");
    EXPECT_EQ(ColorAt(0), clWindow);
    EXPECT_EQ(page->session.parameters.fuelMinimum, 90);
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

TEST_F(TFileContentsTest, APrintLeavesTheGridOnTheClipboard) {
    Show({9, 8});
    Trigger("Copy1");
    const QString grid = QGuiApplication::clipboard()->text();
    QGuiApplication::clipboard()->setText("something else");
    Trigger("Print1");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), grid);
    EXPECT_TRUE(printing.jobs.value(0).endsWith(grid));
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
    page->grdFileMouseDown(Qt::LeftButton, {}, {5, 6});
    EXPECT_EQ(page->mouseExtent, QPoint(-1, -1)) << "a new press has no extent yet";
    page->grdFileMouseUp(Qt::LeftButton);
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

TEST_F(TFileContentsTest, TheKeyWindowShowsTheParametersAndLivesWhileThePageIsShown) {
    page->ShowPage();
    auto &button = FindControl<QPushButton>(*page, "Button1");
    auto *key = page->findChild<TfrmKey *>();
    ASSERT_TRUE(key);
    EXPECT_FALSE(key->isVisible());
    page->session.parameters.loadLocation = 76;
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
    page->session.parameters.rpmLocation = 0;
    button.click();
    EXPECT_EQ(FindControl<QLabel>(*key, "lblRPMLocation").text(), "RPM: 0");
    page->QueryClose();
    EXPECT_FALSE(page->findChild<TfrmKey *>());
}

TEST_F(TFileContentsTest, TheKeyIsPlacedWithTheTextsThatItComesUpWith) {
    page->ShowPage();
    page->session.parameters.fuelMinimum = 2147483647;
    auto &key = FindControl<TfrmKey>(*page, "frmKey");
    key.PlaceAt(*page);
    EXPECT_EQ(FindControl<QLabel>(key, "lblFuelMin").text(), "min: 2147483647");
    EXPECT_EQ(key.size(), key.sizeHint());
}

TEST_F(TFileContentsTest, TheKeysLegendHasItsOwnColours) {
    page->ShowPage();
    const auto &key = FindControl<TfrmKey>(*page, "frmKey");
    QStringList shown;
    for (const QLabel *text : key.findChildren<QLabel *>()) {
        const auto *legend = dynamic_cast<QGridLayout *>(text->parentWidget()->layout());
        if (!legend)
            continue;
        for (int row = 0; row < legend->rowCount(); ++row)
            if (const QLayoutItem *item = legend->itemAtPosition(row, 1);
                item && item->widget() == text) {
                const QWidget &box = *legend->itemAtPosition(row, 0)->widget();
                EXPECT_TRUE(box.autoFillBackground());
                shown << text->text() + " " + box.palette().color(QPalette::Window).name() + " " +
                             box.accessibleName();
            }
    }
    EXPECT_EQ(shown,
              (QStringList{"Axis Count #0000ff blue", "Axis Values #008000 green",
                           "Map Data #ffff00 yellow", "Possible Fuel Val #00ff00 lime",
                           "Possible Timing Val #ff00ff fuchsia", "Searched Val #808000 olive"}));
}

TEST_F(TFileContentsTest, TheKeyClosesWithoutAQuestion) {
    Show({100, 100});
    auto &key = FindControl<TfrmKey>(*page, "frmKey");
    auto &button = FindControl<QPushButton>(*page, "Button1");
    const std::vector<std::function<void()>> ways{[&] { key.btnOK->click(); },
                                                  [&] { QTest::keyClick(&key, Qt::Key_Escape); },
                                                  [&] { key.close(); }, [&] { button.click(); }};
    for (const auto &close : ways) {
        button.click();
        ASSERT_TRUE(key.isVisible());
        dialogs.inputs = {"42"};
        Trigger("MinFuelVal1");
        Trigger("FindConsecutivePossFuelVals");
        close();
        EXPECT_FALSE(key.isVisible());
    }
    page->QueryClose();
    EXPECT_EQ(dialogs.questions, QStringList());
}

TEST_F(TFileContentsTest, TheKeyStandsInTheMainWindowsCorner) {
    QWidget window;
    page->setParent(&window);
    window.setGeometry(100, 50, 700, 600);
    window.show();
    page->ShowPage();
    auto &key = FindControl<TfrmKey>(window, "frmKey");
    for (const std::int32_t location : {-1, 7}) { // texts of different lengths
        page->session.parameters.rpmLocation = page->session.parameters.loadLocation = location;
        FindControl<QPushButton>(*page, "Button1").click();
        ASSERT_TRUE(key.isVisible());
        EXPECT_EQ(key.frameGeometry().bottomRight(), window.frameGeometry().bottomRight());
        FindControl<QPushButton>(*page, "Button1").click();
    }
    page->QueryClose();
    page->setParent(nullptr);
}

TEST_F(TFileContentsTest, TheGridIsAsWideAsItsColumns) {
    page->resize(900, 600);
    const int columns = 17 * (38 + Grid().GridLineWidth()) + 4;
    Show(TBytes(32, 0));
    EXPECT_EQ(Grid().width(), columns);
    Show(TBytes(0x1000, 0));
    EXPECT_EQ(Grid().width(), columns + 24);
    EXPECT_EQ(Grid().horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(TFileContentsTest, ARealDoubleClickAndTheRightButton) {
    page->resize(900, 600);
    Show(TBytes(64, 0));
    page->show();
    const QRect cell = Grid().visualRect(Grid().model()->index(1, 2));
    QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(dialogs.messages, QStringList{"col: 3 row: 2"});
    auto &menu = FindControl<QMenu>(*page, "PopupMenu1");
    QTest::mousePress(Grid().viewport(), Qt::RightButton, {}, cell.center());
    EXPECT_FALSE(menu.isVisible());
    QTest::mouseRelease(Grid().viewport(), Qt::RightButton, {}, cell.center());
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}
} // namespace
