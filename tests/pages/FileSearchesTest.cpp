// The searches as the user starts them: what the menu's items ask, and what then stands in the
// grid. What each search finds in all its edges is tested with the searches themselves.
#include "pages/FileContentsFixture.h"
#include "searches/LiteralSearches.h"

#include <array>
#include <random>

#include <QSignalSpy>

namespace {
class TFileSearchesTest : public TFileContentsTest {};

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
    std::int32_t &value = page->session.parameters.*item.parameter;
    const QString before = value == -1 ? QString() : QString::number(value);
    EXPECT_EQ(FindControl<QAction>(*page, item.action).text(), item.caption);
    const std::vector<std::pair<QString, std::int32_t>> answers{
        {"$2A", 42}, {QString(), 42}, {"abc", -1}, {"7", 7}, {"", -1}, {"-5", -5}, {QString(), -5}};
    for (const auto &[answer, stored] : answers) {
        dialogs.inputs = {answer};
        Trigger(item.action);
        EXPECT_EQ(value, stored) << answer.toStdString();
    }
    EXPECT_EQ(dialogs.inputBoxes.first(),
              QString("Search Parameters|%1|%2").arg(item.prompt, before));
    EXPECT_EQ(dialogs.inputBoxes.last(), QString("Search Parameters|%1|-5").arg(item.prompt));
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

TEST_F(TFileSearchesTest, FindValueAsksUntilThereIsANumberOrNothing) {
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

TEST_F(TFileSearchesTest, FindValueTakesANumberThatNoByteHasAndMarksNothing) {
    Show({44, 255});
    dialogs.inputs = {"300"};
    Trigger("HighlightAValue1");
    EXPECT_EQ(dialogs.inputBoxes.size(), 1);
    EXPECT_EQ(ColorAt(0), clWindow);
    EXPECT_EQ(ColorAt(1), clWindow);
}

TEST_F(TFileSearchesTest, ThePointerLookupComparesTheBitsOfTheMask) {
    Show({0xF2, 0x34, 0x02, 0x34});
    dialogs.inputs = {"$F234", "$FF"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(ColorAt(0), 0x008080u);
    EXPECT_EQ(ColorAt(1), 0x008080u);
    EXPECT_EQ(ColorAt(2), clWindow);
}

TEST_F(TFileSearchesTest, ThePointerLookupAsksTwiceAndKeepsTheMask) {
    Show({0xF2, 0x34, 0x02, 0x34});
    dialogs.inputs = {"$0234", "15"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(dialogs.inputBoxes, (QStringList{"Indirect Ref Lookup|Enter Address To Find|",
                                               "Indirect Ref Lookup|Mask Bits|15"}));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(ColorAt(i), 0x008080u) << i;
    dialogs.inputs = {"", "511"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(page->session.parameters.pointerMask, 255);
    dialogs.inputs = {"", "$12C"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(page->session.parameters.pointerMask, 0x2C) << "the low byte";
    dialogs.inputs = {"$10000", "none"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(page->session.parameters.pointerMask, 0);
    EXPECT_EQ(dialogs.messages, QStringList{"Address out of range"});
}

TEST_F(TFileSearchesTest, AScanLeavesNoCellSelected) {
    Show(TBytes(64, 100));
    Grid().SetCurrent(2, 2);
    EXPECT_EQ(page->session.Recorded(), 17U);
    Trigger("FindConsecutivePossFuelVals");
    EXPECT_FALSE(page->session.Recorded());
    EXPECT_EQ(ColorAt(5), 0x00FF00u);
    Trigger("Fuel4");
    EXPECT_EQ(page->session.Counters().linear, 0);
}

TEST_F(TFileSearchesTest, AMapIsMarkedFromTheSelectedCellWhichMovesBehindIt) {
    TBytes bytes(96, 0);
    const TBytes map{0, 2, 5, 6, 100, 101};
    std::copy(map.begin(), map.end(), bytes.begin() + 16);
    Show(bytes);
    Grid().SetCurrent(1, 2);
    Trigger("Fuel4");
    EXPECT_EQ(page->session.Counters().linear, 1);
    EXPECT_EQ(ColorAt(16), 0x008000u);
    EXPECT_EQ(ColorAt(17), 0xFF0000u);
    EXPECT_EQ(page->session.Recorded(), 22U);
    Trigger("ClearAllMarkers1");
    EXPECT_EQ(page->session.Counters().linear, 0);
    EXPECT_EQ(ColorAt(16), clWindow);
    Trigger("Fuel6");
    EXPECT_EQ(page->session.Counters().linear, 1);
    EXPECT_EQ(ColorAt(17), 0xFF0000u);
}

TEST_F(TFileSearchesTest, HighlightingLeavesTheCurrentCellAndGoesOnWithTheRecordedOne) {
    TBytes bytes(96, 255);
    const TBytes map{0, 2, 5, 6, 100, 101};
    std::copy(map.begin(), map.end(), bytes.begin() + 19);
    Show(bytes);
    Grid().SetCurrent(2, 2);
    for (const std::size_t next : {18U, 19U, 25U, 26U}) {
        Trigger("Fuel4");
        EXPECT_EQ(page->session.Recorded(), next);
        EXPECT_EQ(Grid().Col(), 2);
        EXPECT_EQ(Grid().Row(), 2);
        EXPECT_EQ(Grid().Selection(), (TGridRect{2, 2, 2, 2}));
    }
    EXPECT_EQ(ColorAt(20), 0xFF0000u);
}

TEST_F(TFileSearchesTest, SearchesReadTheCellsAsShownNotTheImageAsItIsNow) {
    Show({7, 8, 7, 8});
    Image().Poke(0, 9);
    Image().Poke(1, 7);
    dialogs.inputs = {"7"};
    Trigger("HighlightAValue1");
    EXPECT_EQ(ColorAt(0), 0x008080u);
    EXPECT_EQ(ColorAt(1), clWindow);
    EXPECT_EQ(ColorAt(2), 0x008080u);
    Image().Poke(2, 100);
    Image().Poke(3, 100);
    Trigger("FindConsecutivePossFuelVals");
    EXPECT_EQ(ColorAt(3), clWindow);
}

TEST_F(TFileSearchesTest, AnAddressWithoutADollarIsDecimal) {
    Show({0x02, 0x34, 0x00, 0xEA});
    dialogs.inputs = {"234", "15"};
    Trigger("FindMapPointers1");
    EXPECT_EQ(ColorAt(0), clWindow);
    EXPECT_EQ(ColorAt(2), 0x008080u);
    EXPECT_EQ(ColorAt(3), 0x008080u);
}

TEST_F(TFileSearchesTest, ARebuildKeepsTheCountersAndTheRecordedCell) {
    TBytes bytes(96, 255);
    const TBytes map{0, 2, 5, 6, 100, 101};
    std::copy(map.begin(), map.end(), bytes.begin() + 19);
    Show(bytes);
    Trigger("Fuel6");
    Grid().SetCurrent(2, 4);
    FindControl<QCheckBox>(*page, "chkDisplayHex").click();
    EXPECT_EQ(page->session.Counters().linear, 1);
    EXPECT_EQ(page->session.Recorded(), 49U);
    Show(TBytes(96, 1));
    EXPECT_EQ(page->session.Counters().linear, 1);
    EXPECT_EQ(page->session.Recorded(), 49U);
}

TEST_F(TFileSearchesTest, CommandsBeforeAnyImageDoNothing) {
    page->ShowPage();
    for (const char *name : {"FindConsecutivePossTimeVals", "Timing3", "Timing5", "Any1", "Any2",
                             "ClearAllMarkers1", "CopySelected1"})
        Trigger(name);
    EXPECT_EQ(page->session.Counters().twoD, 0);
}

TEST_F(TFileSearchesTest, ASearchIsAnnouncedAsOneChangeOfTheGrid) {
    Show(TBytes(0x400, 7));
    QCoreApplication::processEvents();
    const QSignalSpy changes(Grid().model(), &QAbstractItemModel::dataChanged);
    const QSignalSpy resets(Grid().model(), &QAbstractItemModel::modelReset);
    dialogs.inputs = {"7"};
    Trigger("HighlightAValue1");
    QCoreApplication::processEvents();
    EXPECT_EQ(ColorAt(0x3FF), searchedColor);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(resets.size(), 0);
}

TEST_F(TFileSearchesTest, SearchesReadAndWriteTheGridsOwnColours) {
    TBytes bytes{1, 2, 5, 6, 1, 2, 7, 8, 100, 100, 100, 100};
    bytes.resize(0x40, 255);
    Show(bytes);
    Grid().SetCellColor(1, 1, possibleFuelColor);
    Trigger("Fuel5");
    EXPECT_EQ(page->session.Counters().twoD, 0) << "no map begins at a marked cell";
    Grid().SetCellColor(1, 1, unmarkedColor);
    Trigger("Fuel5");
    EXPECT_EQ(page->session.Counters().twoD, 1);
    EXPECT_EQ(Grid().CellColor(1, 1), 0x008002U);
    Trigger("ClearAllMarkers1");
    EXPECT_EQ(Grid().CellColor(1, 1), unmarkedColor);
    EXPECT_EQ(Grid().CellColor(0, 1), clWindow);
}

TEST_F(TFileSearchesTest, TheHourglassStandsWhileAScanRuns) {
    Show(TBytes(64, 100));
    std::vector<bool> seen;
    QObject::connect(Grid().model(), &QAbstractItemModel::dataChanged, page.get(), [&seen] {
        const QCursor *cursor = QGuiApplication::overrideCursor();
        seen.push_back(cursor && cursor->shape() == Qt::WaitCursor);
    });
    for (const char *name : {"FindConsecutivePossFuelVals", "ClearAllMarkers1"}) {
        seen.clear();
        Trigger(name);
        EXPECT_EQ(seen, std::vector<bool>{true}) << name;
        EXPECT_FALSE(QGuiApplication::overrideCursor()) << name;
    }
}

/// A menu item and what it does, word by word.
struct TSearchItem {
    const char *action;
    void (*literally)(TLiteralView &);
};

const TSearchItem searchItems[] = {
    {"FindConsecutivePossFuelVals",
     [](TLiteralView &view) { view.MarkPossible(90, 200, 0x00FF00); }},
    {"FindConsecutivePossTimeVals",
     [](TLiteralView &view) { view.MarkPossible(10, 90, 0xFF00FF); }},
    {"Fuel5",
     [](TLiteralView &view) {
         view.SearchAndHighlight({true, 90, 200, 0x008000});
     }},
    {"Fuel6",
     [](TLiteralView &view) {
         view.SearchAndHighlight({false, 90, 200, 0x008000});
     }},
    {"Timing5",
     [](TLiteralView &view) {
         view.SearchAndHighlight({true, 10, 90, 0x800080});
     }},
    {"Timing6",
     [](TLiteralView &view) {
         view.SearchAndHighlight({false, 10, 90, 0x800080});
     }},
    {"Any1",
     [](TLiteralView &view) {
         view.SearchAndHighlight({true, 0, 255, 0xFFFFFF});
     }},
    {"Any2",
     [](TLiteralView &view) {
         view.SearchAndHighlight({false, 0, 255, 0xFFFFFF});
     }},
    {"Fuel3",
     [](TLiteralView &view) {
         view.MapAtCurrentCell({true, 90, 200, 0x008000});
     }},
    {"Fuel4",
     [](TLiteralView &view) {
         view.MapAtCurrentCell({false, 90, 200, 0x008000});
     }},
    {"Timing3",
     [](TLiteralView &view) {
         view.MapAtCurrentCell({true, 10, 90, 0x800080});
     }},
    {"Timing4",
     [](TLiteralView &view) {
         view.MapAtCurrentCell({false, 10, 90, 0x800080});
     }},
};

/// Small counts everywhere, the rest from one range, so that there are maps of all kinds.
std::vector<std::uint8_t> ImageFullOfMaps(std::mt19937 &random) {
    std::vector<std::uint8_t> image(40 + random() % 600);
    const unsigned low = std::array{10u, 90u, 0u}.at(random() % 3);
    const unsigned width = low == 0 ? 256 : 80;
    for (std::uint8_t &byte : image)
        byte = static_cast<std::uint8_t>(random() % 3 == 0 ? 2 + random() % 3
                                                           : low + random() % width);
    return image;
}

class TItemTest : public TFileContentsTest, public testing::WithParamInterface<TSearchItem> {};

TEST_P(TItemTest, MarksWhatItsStepsMarkInBothDisplays) {
    std::mt19937 random(7);
    std::size_t marked = 0;
    for (int image = 0; image < 30; ++image) {
        const TBytes bytes = ImageFullOfMaps(random);
        const bool hexadecimal = image % 2 == 1;
        FindControl<QCheckBox>(*page, "chkDisplayHex").setChecked(hexadecimal);
        Show(bytes);
        TLiteralView literal(bytes, hexadecimal);
        for (int row = 1; row <= 2; ++row)
            for (int column = 1; column <= 16; ++column) {
                literal.column = column;
                literal.row = row;
                GetParam().literally(literal);
                Grid().SetCurrent(row == 1 && column == 1 ? 2 : 1, 1);
                Grid().SetCurrent(column, row);
                Trigger(GetParam().action);
            }
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            const TColor expected =
                literal.Color(static_cast<int>(i % 16) + 1, static_cast<int>(i / 16) + 1);
            ASSERT_EQ(ColorAt(i), expected) << "image " << image << ", offset " << i;
            marked += expected != clWindow ? 1 : 0;
        }
        ASSERT_EQ(page->session.Counters().linear, literal.linearFound);
        ASSERT_EQ(page->session.Counters().twoD, literal.twoDFound);
        page->searches.ClearAllMarkers1Click();
    }
    EXPECT_GT(marked, 0u) << "no image tells anything of this search";
}
INSTANTIATE_TEST_SUITE_P(Menu, TItemTest, testing::ValuesIn(searchItems),
                         [](const auto &item) { return std::string(item.param.action); });
} // namespace
