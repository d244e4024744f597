// What the main window says of the state of the work: which bytes a save would write unasked, and
// the words for it. The button that shows them is in pages/StateTest.cpp.
#include "spec/ProgramState.h"

#include "support/ModelFixture.h"

#include <gmock/gmock.h>

namespace {

/// Both sets placed at maps of 2 x 2 and of 2 points whose bodies count up from 1, all within the
/// file.
class TUncommittedCellsTest : public TModelTest {
protected:
    TUncommittedCellsTest() {
        for (const std::int32_t place : {0x100, 0x400})
            PutMap(place, {0x20, 0x40}, {0x20, 0x00});
        for (const std::int32_t place : {0x200, 0x300, 0x500, 0x600})
            PutMap(place, {0x20, 0x40}, {});
        Image().size = 0x700;
        workspace.fuelMapSet.SetOffsets(0x100, 0x200, 0x300);
        workspace.timingMapSet.SetOffsets(0x400, 0x500, 0x600);
    }

    std::pair<std::size_t, std::size_t> Found() const {
        const auto [zeros, others] = UncommittedCells(workspace);
        return {zeros, others};
    }
    using TCounts = std::pair<std::size_t, std::size_t>;
    static constexpr std::size_t allCells = 2 * (4 + 2 + 2);

    TWorkspace workspace;
};

TEST_F(TUncommittedCellsTest, AreNoneOfMapsAsTheyWereRead) {
    EXPECT_EQ(Found(), TCounts(0, 0));
}

TEST_F(TUncommittedCellsTest, AreNoneOfMapsThatHaveNoPlace) {
    const TWorkspace fresh;
    EXPECT_EQ(UncommittedCells(fresh).zeros, 0U);
}

TEST_F(TUncommittedCellsTest, AreZerosOnceNoMappingIsChosen) {
    ZeroBothSets(workspace);
    EXPECT_EQ(Found(), TCounts(allCells, 0));
    Put(0x108, {0, 0, 0, 0}); // the body of the first map
    EXPECT_EQ(Found(), TCounts(allCells - 4, 0)) << "they are zero in the image too";
}

TEST_F(TUncommittedCellsTest, AreWhatASaveWritesAndNoMore) {
    ZeroBothSets(workspace);
    const TBytes before = Get(0, Image().size);
    const std::size_t told = UncommittedCells(workspace).zeros;
    workspace.fuelMapSet.TMapSet::SaveAll();
    workspace.timingMapSet.SaveAll();
    const TBytes after = Get(0, Image().size);
    std::size_t written = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        written += before[i] != after[i] && after[i] == 0;
    EXPECT_EQ(told, written);
    EXPECT_EQ(Found(), TCounts(0, 0));
}

TEST_F(TUncommittedCellsTest, AreTheDegreesOfZeroWhereTheseAreShown) {
    TimingConstants() = {0.65, 12.7};
    workspace.timingMapSet.SetShowConverted(true);
    ZeroBothSets(workspace);
    EXPECT_EQ(Found(), TCounts(8, 8)) << "0 degrees are stored as 13";
}

TEST_F(TUncommittedCellsTest, AreValuesOfAnyKindThatWereNotCommitted) {
    workspace.fuelMapSet.PTMap->data->values->GetItem(1, 1)->SetValue(99);
    workspace.timingMapSet.WOTMap->data->values->GetItem(0, 0)->SetValue(256 + 7);
    workspace.timingMapSet.WOTMap->data->values->GetItem(1, 0)->SetValue(256 + 2);
    EXPECT_EQ(Found(), TCounts(0, 2)) << "the last one is stored as it stands there";
}

TEST_F(TUncommittedCellsTest, AreOnlyThoseInTheFile) {
    ZeroBothSets(workspace);
    Image().size = 0x604 + 1; // behind the first cell of the last map
    EXPECT_EQ(Found(), TCounts(allCells - 1, 0));
    Image().size = 0;
    EXPECT_EQ(Found(), TCounts(0, 0));
    ExchangeROMImage(nullptr);
    EXPECT_EQ(Found(), TCounts(0, 0));
}

TEST_F(TUncommittedCellsTest, AreNotThoseThatASaveRefuses) {
    Image().size = TROMImage::capacity;
    ZeroBothSets(workspace);
    workspace.fuelMapSet.PTMap->data->offset = TROMImage::capacity;
    EXPECT_EQ(Found(), TCounts(allCells - 4, 0));
}

TEST_F(TUncommittedCellsTest, OfTheRevLimiterAreToldByThemselves) {
    TRPMVal &limiter = workspace.fuelMapSet.revLimiter;
    EXPECT_FALSE(RevLimiterIsUnsaved(workspace.fuelMapSet)) << "not placed";
    Put(0x10, {170});
    limiter.SetOffset(0x10);
    EXPECT_FALSE(RevLimiterIsUnsaved(workspace.fuelMapSet));
    limiter.SetValue(7000);
    EXPECT_TRUE(RevLimiterIsUnsaved(workspace.fuelMapSet));
    limiter.Save();
    EXPECT_FALSE(RevLimiterIsUnsaved(workspace.fuelMapSet));
    limiter.SetValue(6800);
    Image().size = 0x10;
    EXPECT_FALSE(RevLimiterIsUnsaved(workspace.fuelMapSet)) << "behind the file";
}

/// "line: sentence @tab, !sentence": a warning has the sign, a tab other than 0 its number.
std::string Told(const TProgramState &state) {
    const std::vector<TStateText> texts = StateTexts(state);
    std::string told = StateLine(texts) + ":";
    for (const TStateText &text : texts)
        told += "\n" + std::string(text.warning ? "!" : "") + text.sentence +
                (text.tab ? " @" + std::to_string(text.tab) : "");
    return told;
}

struct TStateCase {
    const char *name;
    TProgramState state;
    const char *told;
};

void PrintTo(const TStateCase &tested, std::ostream *out) {
    *out << tested.name;
}

constexpr auto none = TMappingType::None;
constexpr auto spec = TMappingType::Spec;
constexpr auto byHand = TMappingType::Manual;

const TStateCase cases[] = {
    {"NoImage",
     {.edited = {{"Fuel PT", 1}}, .unsavedBytes = 3},
     "no image:\nNo ROM image is loaded"},
    {"NoMapping",
     {.loaded = true},
     "no mapping:\nNothing is edited, and all is in the file\nNo mapping is chosen"},
    {"Spec",
     {.loaded = true, .mapping = spec, .spec = "A.SPC"},
     "spec A.SPC:\nNothing is edited, and all is in the file\nSpec file in force: A.SPC"},
    {"Manual",
     {.loaded = true, .mapping = byHand},
     "manual:\nNothing is edited, and all is in the file\nManual offsets are in force"},
    {"OneEdit",
     {.loaded = true, .edited = {{"Fuel PT", 1}}, .mapping = byHand},
     "Fuel PT edited · manual:\nEdited and not committed: Fuel PT @1\nManual offsets are in "
     "force"},
    {"TwoEdits",
     {.loaded = true, .edited = {{"Fuel PT", 1}, {"Max RPM", 1}}, .mapping = byHand},
     "Fuel PT, Max RPM edited · manual:\nEdited and not committed: Fuel PT @1\nEdited and not "
     "committed: Max RPM @1\nManual offsets are in force"},
    {"OneByte",
     {.loaded = true, .unsavedBytes = 1, .mapping = byHand},
     "1 byte not saved · manual:\n1 byte is committed and not in the file @-1\nManual offsets are "
     "in "
     "force"},
    {"ManyBytes",
     {.loaded = true, .unsavedBytes = 12, .mapping = byHand},
     "12 bytes not saved · manual:\n12 bytes are committed and not in the file @-1\nManual offsets "
     "are "
     "in force"},
    {"RevLimiter",
     {.loaded = true, .unsavedRevLimiter = true, .mapping = byHand},
     "Max RPM not saved · manual:\nMax RPM is in no file yet: Save ROM writes it\nManual offsets "
     "are in force"},
    {"ZerosWithoutMapping",
     {.loaded = true, .cells = {192, 0}, .mapping = none},
     "no mapping: would save 192 zeros:\n!No mapping chosen: Save ROM would write 192 zeros"},
    {"OneZeroWithoutMapping",
     {.loaded = true, .cells = {1, 0}, .mapping = none},
     "no mapping: would save 1 zero:\n!No mapping chosen: Save ROM would write 1 zero"},
    {"OtherCellsWithoutMapping",
     {.loaded = true, .cells = {192, 3}, .mapping = none},
     "no mapping: would save 192 zeros · would save 3 uncommitted cells:\n!No mapping chosen: Save "
     "ROM would write 192 zeros\n!Save ROM would write 3 cells that were not committed"},
    {"CellsInPlacedMaps",
     {.loaded = true, .cells = {4, 3}, .mapping = byHand},
     "would save 7 uncommitted cells · manual:\n!Save ROM would write 7 cells that were not "
     "committed\nManual offsets are in force"},
    {"OneCell",
     {.loaded = true, .cells = {0, 1}, .mapping = byHand},
     "would save 1 uncommitted cell · manual:\n!Save ROM would write 1 cell that was not "
     "committed\nManual offsets are in force"},
    {"SpecOfAnotherFolder",
     {.loaded = true, .unsavedBytes = 2, .mapping = spec, .spec = "A.SPC", .elsewhere = "/other"},
     "spec of another folder · 2 bytes not saved · spec A.SPC:\n!The spec file is of another "
     "folder "
     "than the image: /other\n2 bytes are committed and not in the file @-1\nSpec file in force: "
     "A.SPC"},
};

class TStateTextsTest : public testing::TestWithParam<TStateCase> {};

TEST_P(TStateTextsTest, AreWhatTheStateIs) {
    EXPECT_EQ(Told(GetParam().state), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(States, TStateTextsTest, testing::ValuesIn(cases),
                         [](const auto &tested) { return std::string(tested.param.name); });
} // namespace
