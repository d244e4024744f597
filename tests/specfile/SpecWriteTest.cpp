#include "specfile/SpecFixture.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::StartsWith;

namespace {

using TSpecWrite = TSpecFixture;

TEST_F(TSpecWrite, HasTheLabelAndThreeSectionsLineByLine) {
    fuel_.SetOffsets(0x100, 0x200, 0x1A2C);
    timing_.SetOffsets(0x400, 0x500, 0x12345);
    fuel_.revLimiter.SetOffset(0x1F0);
    EXPECT_EQ(NewSpecFile("User Defined", fuel_, timing_), "; User Defined\n"
                                                           "[Fuel Maps]\n"
                                                           "pt_offset=$0100\n"
                                                           "idle_offset=$0200\n"
                                                           "wot_offset=$1A2C\n"
                                                           "[Timing Maps]\n"
                                                           "pt_offset=$0400\n"
                                                           "idle_offset=$0500\n"
                                                           "wot_offset=$12345\n"
                                                           "[Other Maps]\n"
                                                           "revlimit_offset=$01F0\n");
}

TEST_F(TSpecWrite, WritesUnplacedMapsAsZeroAndReadsTheRevLimiterBackAsUnplaced) {
    EXPECT_EQ(NewSpecFile("none", fuel_, timing_), "; none\n"
                                                   "[Fuel Maps]\n"
                                                   "pt_offset=$0000\n"
                                                   "idle_offset=$0000\n"
                                                   "wot_offset=$0000\n"
                                                   "[Timing Maps]\n"
                                                   "pt_offset=$0000\n"
                                                   "idle_offset=$0000\n"
                                                   "wot_offset=$0000\n"
                                                   "[Other Maps]\n"
                                                   "revlimit_offset=$FFFFFFFF\n");
    const TIniFile ini(NewSpecFile("none", fuel_, timing_));
    fuel_.revLimiter.SetOffset(0x1F0);
    ASSERT_TRUE(PlaceFromSpec(ini, fuel_, timing_));
    EXPECT_EQ(fuel_.revLimiter.offset, -1);
    EXPECT_FALSE(fuel_.HasRevLimiter());
}

TEST_F(TSpecWrite, RecordsWhatPointersLeadToAndNoPointerKeys) {
    Put(0x8010, {0x81, 0x00, 0x82, 0x00, 0x83, 0x00});
    fuel_.SetPointers(0x8010, 0x7F, 0x8012, 0x7F, 0x8014, 0x7F);
    timing_.SetPointers(0x8010, 0x7F, 0x8012, 0x7F, 0x8014, 0xFF);
    const std::string text = NewSpecFile("x", fuel_, timing_);
    EXPECT_THAT(text, StartsWith("; x\n[Fuel Maps]\npt_offset=$0100\nidle_offset=$0200\n"
                                 "wot_offset=$0300\n[Timing Maps]\npt_offset=$0100\n"
                                 "idle_offset=$0200\nwot_offset=$8300\n[Other Maps]\n"));
    EXPECT_EQ(text.find("[Main]"), std::string::npos);
}

TEST_F(TSpecWrite, ReadsBackToTheSamePlacesWithDefaultConstants) {
    fuel_.SetOffsets(0x100, 0x200, 0x300);
    timing_.SetOffsets(0x400, 0x500, 0x600);
    fuel_.revLimiter.SetOffset(0x1F0);
    const TIniFile ini(NewSpecFile("again", fuel_, timing_));
    fuel_.SetOffsets(0x700, 0x700, 0x700);
    timing_.SetOffsets(0x700, 0x700, 0x700);
    ASSERT_TRUE(PlaceFromSpec(ini, fuel_, timing_));
    ReadTimingConstants(ini);
    EXPECT_THAT(FuelPlaces(), ElementsAre(0x100, 0x200, 0x300));
    EXPECT_THAT(TimingPlaces(), ElementsAre(0x400, 0x500, 0x600));
    EXPECT_EQ(fuel_.revLimiter.offset, 0x1F0);
    EXPECT_DOUBLE_EQ(TimingConstants().divider, 0.65);
    EXPECT_DOUBLE_EQ(TimingConstants().subtractor, 12.7);
}

struct TLabel {
    const char *name;
    std::string label;
    std::string firstLine;
};

class TSpecLabelLine : public TSpecFixture, public testing::WithParamInterface<TLabel> {};

TEST_P(TSpecLabelLine, StaysOneLine) {
    const std::string text = NewSpecFile(GetParam().label, fuel_, timing_);
    EXPECT_THAT(text, StartsWith(GetParam().firstLine + "\n[Fuel Maps]\npt_offset=$0000\n"));
}

INSTANTIATE_TEST_SUITE_P(Labels, TSpecLabelLine,
                         testing::Values(TLabel{"empty", "", "; "},
                                         TLabel{"blanks_stay", "  a  ", ";   a  "},
                                         TLabel{"utf8", "Z\xC3\xBCndung", "; Z\xC3\xBCndung"},
                                         TLabel{"section", "[Fuel Maps]", "; [Fuel Maps]"},
                                         TLabel{"line_breaks", "a\r\nb\nc", "; a  b c"},
                                         TLabel{"line_break_at_the_end", "a\r\n", "; a  "}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(TSpecWrite, MapOffsetsGoUnderTheNamesGiven) {
    fuel_.SetOffsets(0x100, 0x200, 0x300);
    std::string ini = "; x\n";
    WriteMapOffsets(ini, fuel_, "S", "a", "B", "c");
    EXPECT_EQ(ini, "; x\n[S]\na=$0100\nB=$0200\nc=$0300\n");
}

using TSpecSave = TSpecFixture;

TEST_F(TSpecSave, WritesTheTextOverTheOldFile) {
    const TTemporaryFolder folder;
    PutFile(folder / "a.spc", {1, 2, 3});
    SaveNewSpecFile(folder / "a.spc", "Z\xC3\xBCndung", fuel_, timing_);
    const std::vector<std::uint8_t> bytes = GetFile(folder / "a.spc");
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()),
              NewSpecFile("Z\xC3\xBCndung", fuel_, timing_));
}

TEST_F(TSpecSave, FailsInAFolderThatIsMissingAndOverAFolder) {
    const TTemporaryFolder folder;
    EXPECT_THROW(SaveNewSpecFile(folder / "no" / "a.spc", "x", fuel_, timing_), EFileError);
    EXPECT_FALSE(std::filesystem::exists(folder / "no"));
    EXPECT_THROW(SaveNewSpecFile(folder.Path(), "x", fuel_, timing_), EFileError);
}

} // namespace
