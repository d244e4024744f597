// What the contents view's commands do to the bytes that are shown, without a window. What each
// search finds in all its edges is tested with the searches themselves.
#include "filedisplay/ContentsSession.h"

#include "searches/TestCells.h"

#include <ostream>

#include <gmock/gmock.h>

namespace {
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::size_t imageSize = 256;

/// A session that shows these bytes.
TContentsSession Showing(const TBytes &bytes) {
    TContentsSession session;
    session.Show(bytes);
    return session;
}

std::vector<std::size_t> Offsets(const TContentsOutcome &outcome) {
    std::vector<std::size_t> offsets;
    for (const auto &cell : outcome.colored)
        offsets.push_back(cell.offset);
    return offsets;
}

struct TScanCase {
    const char *name;
    TBytes bytes;
    TContentsOutcome (*run)(TContentsSession &);
    const char *text;
};

std::ostream &operator<<(std::ostream &out, const TScanCase &item) {
    return out << item.name;
}

TContentsOutcome RunFuelValues(TContentsSession &session) {
    return session.MarkPossibleFuelValues();
}
TContentsOutcome RunTimingValues(TContentsSession &session) {
    return session.MarkPossibleTimingValues();
}
TContentsOutcome RunValue7(TContentsSession &session) {
    return session.MarkValue(7);
}
TContentsOutcome RunPointers(TContentsSession &session) {
    return session.MarkPointers({0x02, 0x34});
}
TContentsOutcome RunTwoDFuel(TContentsSession &session) {
    return session.HighlightAllMaps(TMapShape::TwoD, TMapContents::Fuel);
}
TContentsOutcome RunLinearTiming(TContentsSession &session) {
    return session.HighlightAllMaps(TMapShape::Linear, TMapContents::Timing);
}

class ContentsScan : public testing::TestWithParam<TScanCase> {};

TEST_P(ContentsScan, TellsWhatItFoundAndLeavesNoCellRecorded) {
    TContentsSession session = Showing(GetParam().bytes);
    session.Record(3);
    const TContentsOutcome outcome = GetParam().run(session);
    EXPECT_EQ(outcome.text, GetParam().text);
    EXPECT_FALSE(session.Recorded());
    for (const auto &[offset, color] : outcome.colored)
        EXPECT_EQ(session.Colors()[offset], color);
}

/// 2 x 2 fuel maps at 0x20 and 0x40, 12 cells each.
TBytes TwoFuelMaps() {
    TBytes bytes = ImageWith(TwoDMap(2, 2, 100), 0x20, imageSize);
    const TBytes map = TwoDMap(2, 2, 100);
    std::copy(map.begin(), map.end(), bytes.begin() + 0x40);
    return bytes;
}

const TScanCase scanCases[] = {
    {"no fuel value",
     {89, 201, 100},
     RunFuelValues,
     "No cell found. Marked cells in all: 0; 2-D maps counted: 0, linear maps: 0"},
    {"fuel values",
     {0, 90, 200, 0, 90},
     RunFuelValues,
     "2 cells, first at $0001. Marked cells in all: 2; 2-D maps counted: 0, linear maps: 0"},
    {"timing values",
     {10, 90, 91},
     RunTimingValues,
     "2 cells, first at $0000. Marked cells in all: 2; 2-D maps counted: 0, linear maps: 0"},
    {"one value",
     {1, 2, 7},
     RunValue7,
     "1 cell, at $0002. Marked cells in all: 1; 2-D maps counted: 0, linear maps: 0"},
    {"pointers",
     {0xF2, 0x34, 2, 2, 0x34, 2, 0x34},
     RunPointers,
     "2 pointers, first at $0000. Marked cells in all: 4; 2-D maps counted: 0, linear maps: 0"},
    {"2-D maps", TwoFuelMaps(), RunTwoDFuel,
     "2 maps, first at $0020. Marked cells in all: 24; 2-D maps counted: 2, linear maps: 0"},
    {"a linear map", ImageWith(LinearMap(2, 40), 0x31, imageSize), RunLinearTiming,
     "1 map, at $0031. Marked cells in all: 6; 2-D maps counted: 0, linear maps: 1"},
    {"no map", TBytes(imageSize, 0xFF), RunTwoDFuel,
     "No map found. Marked cells in all: 0; 2-D maps counted: 0, linear maps: 0"},
    {"no image",
     {},
     RunValue7,
     "No cell found. Marked cells in all: 0; 2-D maps counted: 0, linear maps: 0"},
};
INSTANTIATE_TEST_SUITE_P(Searches, ContentsScan, testing::ValuesIn(scanCases));

TEST(ContentsSession, OnlyCellsOfAnotherColourAreGivenButAllAreCounted) {
    TContentsSession session = Showing({7, 1, 7});
    EXPECT_EQ(Offsets(session.MarkValue(7)), (std::vector<std::size_t>{0, 2}));
    const TContentsOutcome again = session.MarkValue(7);
    EXPECT_THAT(again.colored, IsEmpty());
    EXPECT_EQ(
        again.text,
        "2 cells, first at $0000. Marked cells in all: 2; 2-D maps counted: 0, linear maps: 0");
    const TContentsOutcome other = session.MarkValue(1);
    EXPECT_EQ(Offsets(other), std::vector<std::size_t>{1});
    EXPECT_EQ(other.text,
              "1 cell, at $0001. Marked cells in all: 3; 2-D maps counted: 0, linear maps: 0");
}

TEST(ContentsSession, MapsAreFoundOnceAndCounted) {
    TContentsSession session = Showing(TwoFuelMaps());
    RunTwoDFuel(session);
    EXPECT_EQ(RunTwoDFuel(session).text,
              "No map found. Marked cells in all: 24; 2-D maps counted: 2, linear maps: 0");
    EXPECT_EQ(session.Counters().twoD, 2);
}

TEST(ContentsSession, AnotherImageTakesMarksAndParametersButNotCountersAndRecordedCell) {
    TContentsSession session = Showing(TwoFuelMaps());
    RunTwoDFuel(session);
    session.Record(9);
    session.parameters.fuelMinimum = 1;
    session.parameters.pointerMask = 255;
    session.Show(TBytes{1, 2, 3});
    EXPECT_THAT(session.Colors(), testing::ElementsAre(clWindow, clWindow, clWindow));
    EXPECT_EQ(session.parameters.fuelMinimum, 90);
    EXPECT_EQ(session.parameters.pointerMask, 15);
    EXPECT_EQ(session.Counters().twoD, 2);
    EXPECT_EQ(session.Recorded(), 9U);
    EXPECT_FALSE(session.IsEmpty());
    EXPECT_EQ(session.MarkValue(3).text,
              "1 cell, at $0002. Marked cells in all: 1; 2-D maps counted: 2, linear maps: 0");
    session.Show({});
    EXPECT_TRUE(session.IsEmpty());
}

TEST(ContentsSession, ClearingTakesAllMarksAndBothCounters) {
    TContentsSession session = Showing(TwoFuelMaps());
    RunTwoDFuel(session);
    session.HighlightAllMaps(TMapShape::Linear, TMapContents::Any);
    session.Record(5);
    const TContentsOutcome cleared = session.ClearAllMarkers();
    EXPECT_EQ(cleared.text, "All markers are cleared");
    EXPECT_THAT(session.Colors(), testing::Each(clWindow));
    for (const auto &cell : cleared.colored)
        EXPECT_EQ(cell.color, clWindow);
    EXPECT_EQ(session.Counters().twoD, 0);
    EXPECT_EQ(session.Counters().linear, 0);
    EXPECT_EQ(session.Recorded(), 5U);
    EXPECT_THAT(session.ClearAllMarkers().colored, IsEmpty());
}

TEST(HighlightFromRecorded, MarksTheMapAndRecordsTheCellBehindIt) {
    TContentsSession session = Showing(ImageWith(LinearMap(2, 100), 0x22, imageSize));
    session.Record(0x22);
    const TContentsOutcome outcome =
        session.HighlightFromRecorded(TMapShape::Linear, TMapContents::Fuel);
    EXPECT_THAT(outcome.colored, SizeIs(6));
    EXPECT_EQ(outcome.text,
              "1 map, at $0022. Marked cells in all: 6; 2-D maps counted: 0, linear maps: 1");
    EXPECT_EQ(session.Recorded(), 0x28U);
}

TEST(HighlightFromRecorded, MarksAMapOnceMoreAndCountsIt) {
    TContentsSession session = Showing(ImageWith(LinearMap(2, 100), 0x22, imageSize));
    for (int time = 1; time <= 2; ++time) {
        session.Record(0x22);
        const TContentsOutcome outcome =
            session.HighlightFromRecorded(TMapShape::Linear, TMapContents::Fuel);
        EXPECT_EQ(outcome.text.find("1 map, at $0022."), 0U);
        EXPECT_EQ(session.Counters().linear, time);
    }
}

TEST(HighlightFromRecorded, WithoutAMapGoesOneByteOn) {
    TContentsSession session = Showing(TBytes(imageSize, 0xFF));
    session.Record(0x2F);
    const TContentsOutcome outcome =
        session.HighlightFromRecorded(TMapShape::TwoD, TMapContents::Timing);
    EXPECT_THAT(outcome.colored, IsEmpty());
    EXPECT_EQ(outcome.text, "No map begins at $002F; the next try is at $0030");
    EXPECT_EQ(session.Recorded(), 0x30U);
}

TEST(HighlightFromRecorded, WithoutARecordedCellDoesNothingButSaySo) {
    TContentsSession session = Showing(ImageWith(LinearMap(2, 100), 0, imageSize));
    const TContentsOutcome outcome =
        session.HighlightFromRecorded(TMapShape::Linear, TMapContents::Fuel);
    EXPECT_THAT(outcome.colored, IsEmpty());
    EXPECT_EQ(outcome.text, "No cell is selected: click the cell where the map begins");
    EXPECT_FALSE(session.Recorded());
    EXPECT_EQ(session.Counters().linear, 0);
}
} // namespace
