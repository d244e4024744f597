// What the contents view's commands do to the bytes that are shown, without a window. What each
// search finds in all its edges is tested with the searches themselves.
#include "filedisplay/ContentsSession.h"

#include "searches/TestCells.h"

#include <ostream>

#include <gmock/gmock.h>

namespace {
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t imageSize = 256;

/// A session that shows these bytes, and their colours beside it.
class TShownSession : public TContentsSession {
public:
    explicit TShownSession(const TBytes &bytes)
        : TContentsSession([this] { return TCellColors(colors); }) {
        ShowUnmarked(bytes);
    }
    void ShowUnmarked(const TBytes &bytes) {
        colors.assign(bytes.size(), unmarkedColor);
        Show(bytes);
    }
    /// The offsets of the marked cells.
    std::vector<std::size_t> Marked() const {
        std::vector<std::size_t> offsets;
        for (std::size_t i = 0; i < colors.size(); ++i)
            if (colors[i] != unmarkedColor)
                offsets.push_back(i);
        return offsets;
    }
    std::vector<TColor> colors;
};

struct TScanCase {
    const char *name;
    TBytes bytes;
    std::string (*run)(TContentsSession &);
    const char *text;
};

std::ostream &operator<<(std::ostream &out, const TScanCase &item) {
    return out << item.name;
}

std::string RunFuelValues(TContentsSession &session) {
    return session.MarkPossibleFuelValues();
}
std::string RunTimingValues(TContentsSession &session) {
    return session.MarkPossibleTimingValues();
}
std::string RunValue7(TContentsSession &session) {
    return session.MarkValue(7);
}
std::string RunPointers(TContentsSession &session) {
    return session.MarkPointers({0x02, 0x34});
}
std::string RunTwoDFuel(TContentsSession &session) {
    return session.HighlightAllMaps(TMapShape::TwoD, TMapContents::Fuel);
}
std::string RunLinearTiming(TContentsSession &session) {
    return session.HighlightAllMaps(TMapShape::Linear, TMapContents::Timing);
}

class ContentsScan : public testing::TestWithParam<TScanCase> {};

TEST_P(ContentsScan, TellsWhatItFoundAndLeavesNoCellRecorded) {
    TShownSession session(GetParam().bytes);
    session.Record(3);
    EXPECT_EQ(GetParam().run(session), GetParam().text);
    EXPECT_FALSE(session.Recorded());
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

TEST(ContentsSession, CellsAreFoundAgainAndCountedOnce) {
    TShownSession session({7, 1, 7});
    session.MarkValue(7);
    EXPECT_THAT(session.colors, ElementsAre(searchedColor, unmarkedColor, searchedColor));
    EXPECT_EQ(
        session.MarkValue(7),
        "2 cells, first at $0000. Marked cells in all: 2; 2-D maps counted: 0, linear maps: 0");
    EXPECT_THAT(session.Marked(), ElementsAre(0, 2));
    EXPECT_EQ(session.MarkValue(1),
              "1 cell, at $0001. Marked cells in all: 3; 2-D maps counted: 0, linear maps: 0");
}

TEST(ContentsSession, ColoursAreThoseThatAreLentWhoeverWroteThem) {
    TShownSession session(TwoFuelMaps());
    session.colors[0x20] = possibleFuelColor;
    session.colors[3] = 0x008002;
    EXPECT_EQ(RunTwoDFuel(session), "1 map, at $0040. Marked cells in all: 14; 2-D maps counted: "
                                    "1, linear maps: 0")
        << "a map does not begin at a marked cell";
    EXPECT_EQ(&session.Colors()[3], &session.colors[3]);
}

TEST(ContentsSession, MapsAreFoundOnceAndCounted) {
    TShownSession session(TwoFuelMaps());
    RunTwoDFuel(session);
    EXPECT_EQ(RunTwoDFuel(session),
              "No map found. Marked cells in all: 24; 2-D maps counted: 2, linear maps: 0");
    EXPECT_EQ(session.Counters().twoD, 2);
}

TEST(ContentsSession, AnotherImageTakesParametersButNotCountersAndRecordedCell) {
    TShownSession session(TwoFuelMaps());
    RunTwoDFuel(session);
    session.Record(9);
    session.parameters.fuelMinimum = 1;
    session.parameters.pointerMask = 255;
    session.ShowUnmarked({1, 2, 3});
    EXPECT_EQ(session.parameters.fuelMinimum, 90);
    EXPECT_EQ(session.parameters.pointerMask, 15);
    EXPECT_EQ(session.Counters().twoD, 2);
    EXPECT_EQ(session.Recorded(), 9U);
    EXPECT_FALSE(session.IsEmpty());
    EXPECT_EQ(session.MarkValue(3),
              "1 cell, at $0002. Marked cells in all: 1; 2-D maps counted: 2, linear maps: 0");
    session.ShowUnmarked({});
    EXPECT_TRUE(session.IsEmpty());
}

TEST(ContentsSession, ClearingTakesAllMarksAndBothCounters) {
    TShownSession session(TwoFuelMaps());
    RunTwoDFuel(session);
    session.HighlightAllMaps(TMapShape::Linear, TMapContents::Any);
    session.Record(5);
    EXPECT_EQ(session.ClearAllMarkers(), "All markers are cleared");
    EXPECT_THAT(session.colors, Each(unmarkedColor));
    EXPECT_EQ(session.Counters().twoD, 0);
    EXPECT_EQ(session.Counters().linear, 0);
    EXPECT_EQ(session.Recorded(), 5U);
}

TEST(HighlightFromRecorded, MarksTheMapAndRecordsTheCellBehindIt) {
    TShownSession session(ImageWith(LinearMap(2, 100), 0x22, imageSize));
    session.Record(0x22);
    EXPECT_EQ(session.HighlightFromRecorded(TMapShape::Linear, TMapContents::Fuel),
              "1 map, at $0022. Marked cells in all: 6; 2-D maps counted: 0, linear maps: 1");
    EXPECT_EQ(session.Marked(), Positions(0x22, 0x28));
    EXPECT_EQ(session.Recorded(), 0x28U);
}

TEST(HighlightFromRecorded, MarksAMapOnceMoreAndCountsIt) {
    TShownSession session(ImageWith(LinearMap(2, 100), 0x22, imageSize));
    for (int time = 1; time <= 2; ++time) {
        session.Record(0x22);
        const std::string text =
            session.HighlightFromRecorded(TMapShape::Linear, TMapContents::Fuel);
        EXPECT_EQ(text.find("1 map, at $0022."), 0U);
        EXPECT_EQ(session.Counters().linear, time);
    }
}

TEST(HighlightFromRecorded, WithoutAMapGoesOneByteOn) {
    TShownSession session(TBytes(imageSize, 0xFF));
    session.Record(0x2F);
    EXPECT_EQ(session.HighlightFromRecorded(TMapShape::TwoD, TMapContents::Timing),
              "No map begins at $002F; the next try is at $0030");
    EXPECT_THAT(session.Marked(), IsEmpty());
    EXPECT_EQ(session.Recorded(), 0x30U);
}

TEST(HighlightFromRecorded, WithoutARecordedCellDoesNothingButSaySo) {
    TShownSession session(ImageWith(LinearMap(2, 100), 0, imageSize));
    EXPECT_EQ(session.HighlightFromRecorded(TMapShape::Linear, TMapContents::Fuel),
              "No cell is selected: click the cell where the map begins");
    EXPECT_THAT(session.Marked(), IsEmpty());
    EXPECT_FALSE(session.Recorded());
    EXPECT_EQ(session.Counters().linear, 0);
}

TEST(HighlightMap, MarksAMapWhateverIsSearchedForAndKeepsTheRecordedCell) {
    for (const int byte : {0, 100, 255})
        for (const TMapContents contents : {TMapContents::Fuel, TMapContents::Timing}) {
            TShownSession session(ImageWith(LinearMap(2, std::uint8_t(byte)), 0x22, imageSize));
            session.parameters.rpmLocation = 0x77;
            session.parameters.fuelMinimum = session.parameters.timingMinimum = 101;
            session.Record(5);
            EXPECT_EQ(
                session.HighlightMap(0x22, TMapShape::Linear, contents),
                "1 map, at $0022. Marked cells in all: 6; 2-D maps counted: 0, linear maps: 1");
            EXPECT_EQ(session.Marked(), Positions(0x22, 0x28));
            EXPECT_EQ(session.Colors()[0x22], MapColor(contents));
            EXPECT_EQ(session.Recorded(), 5U);
            EXPECT_EQ(session.parameters.rpmLocation, 0x77);
        }
}

TEST(HighlightMap, SaysWhereNoMapBegins) {
    TShownSession session(TBytes(imageSize, 0xFF));
    EXPECT_EQ(session.HighlightMap(0x2F, TMapShape::TwoD, TMapContents::Timing),
              "No map begins at $002F; the next try is at $0030");
    EXPECT_THAT(session.Marked(), IsEmpty());
}
} // namespace
