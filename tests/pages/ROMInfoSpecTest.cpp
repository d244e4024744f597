// The page's side of the spec files: the list of them, and what follows the choice of one. What
// stands in them is tested with SpecFile.h.
#include "pages/ROMInfoFixture.h"

namespace {
namespace fs = std::filesystem;

const QString tooMany = "There is a maximum of 20 spec files per directory, some spec files were "
                        "not loaded.";

struct TCount {
    int files;
    int listed;
    const char *caption;
};
class TScanTest : public TROMInfoTest, public testing::WithParamInterface<TCount> {};

TEST_P(TScanTest, ListsAtMostTwentyOneFilesAndTheManualMethodLast) {
    for (int i = 0; i < GetParam().files; ++i)
        MakeText("S" + std::to_string(i) + ".spc", "; Spec " + std::to_string(i) + "\n");
    page->ScanSpecDirectory();
    const QStringList items = Items();
    EXPECT_EQ(items.size(), GetParam().listed + 1);
    EXPECT_EQ(items.last(), manual);
    EXPECT_EQ(items.count(manual), 1);
    EXPECT_EQ(Group().title(), GetParam().caption);
    EXPECT_EQ(page->LastItemIndex(), GetParam().listed);
    EXPECT_EQ(page->LastSpecIndex(), GetParam().listed - 1);
    EXPECT_EQ(Group().ItemIndex(), -1);
    const bool remain = GetParam().files > GetParam().listed;
    EXPECT_EQ(dialogs.messages, remain ? QStringList{tooMany} : QStringList{});
}
INSTANTIATE_TEST_SUITE_P(
    Counts, TScanTest,
    testing::Values(TCount{0, 0, "Select a directory containing .SPC files to fill list"},
                    TCount{1, 1, "Select Mapping Specification"},
                    TCount{21, 21, "Select Mapping Specification"},
                    TCount{22, 21, "Select Mapping Specification"}));

TEST_F(TROMInfoTest, AScanAtCreationFindsTheCurrentFoldersFiles) {
    MakeText("B.SPC", "[Main]\n");
    TWorkspace fresh;
    const TfrmROMInformation made(nullptr, fresh, recovery);
    EXPECT_EQ(FindControl<TRadioGroup>(made, "rdoROMtemplate").Item(0), "B.SPC");
}

TEST_F(TROMInfoTest, TheMessageComesWhenTheListIsFilled) {
    for (int i = 0; i < 22; ++i)
        MakeText("S" + std::to_string(i) + ".SPC", "; Spec\n");
    int listed = 0;
    dialogs.duringMessage = [&] { listed = Group().ItemCount(); };
    page->ScanSpecDirectory();
    EXPECT_EQ(listed, 21);
}

TEST_F(TROMInfoTest, EachItemReadsItsOwnFile) {
    for (int i = 1; i <= 5; ++i)
        MakeText("S" + std::to_string(i) + ".SPC",
                 "; Spec " + std::to_string(i) +
                     "\n[Other Maps]\nrevlimit_offset=" + std::to_string(i) + "\n");
    Load(MakeROM("A.BIN"));
    for (int i = 5; i >= 1; --i) {
        Choose("Spec " + QString::number(i));
        EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, i);
        EXPECT_EQ(page->CurrentSpecFileName(), folder / ("S" + std::to_string(i) + ".SPC"));
        EXPECT_EQ(page->TemplateIndex(), Group().ItemIndex());
    }
}

TEST_F(TROMInfoTest, ChoosingASpecPlacesTheMapsAndAppliesTheImage) {
    MakeSpec();
    const fs::path rom = MakeROM("A.BIN", 7);
    Load(rom);
    Image().Poke(0x7000, 99);
    other->DataChanged = true;
    page->ShowPage();
    Choose("Direct");
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(workspace.timingMapSet.WOTMap->GetLocation(), timingWOT);
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, revLimiter);
    EXPECT_EQ(TimingConstants().divider, 0.65);
    EXPECT_EQ(TimingConstants().subtractor, 12.7);
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_TRUE(page->Loaded());
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_EQ(page->CurrentSpecFileName(), folder / "DIRECT.SPC");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoTest, TheMapsAreReadBeforeTheImageIsReadAgain) {
    MakeSpec();
    Load(MakeROM("A.BIN"));
    const int body = fuelPT + 6 + 5;
    Image().Poke(body, 99);
    Choose("Direct");
    EXPECT_EQ(Cell(*workspace.fuelMapSet.PTMap).raw, 99) << "from the image as it was";
    EXPECT_EQ(Image().Peek(body), 1) << "from the file";
}

TEST_F(TROMInfoTest, ChoosingTheSameItemAgainReadsItAgain) {
    LoadAndPlace(MakeROM("A.BIN", 7));
    Image().Poke(0x7000, 99);
    Choose("Direct");
    EXPECT_EQ(Image().Peek(0x7000), 7);
}

TEST_F(TROMInfoTest, SettingTheIndexByProgramRunsNothing) {
    LoadAndPlace(MakeROM("A.BIN", 7));
    Image().Poke(0x7000, 99);
    Group().SetItemIndex(-1);
    Group().SetItemIndex(0);
    EXPECT_EQ(Image().Peek(0x7000), 99);
}

TEST_F(TROMInfoTest, NothingSelectedZeroesBothSets) {
    LoadAndPlace(MakeROM("A.BIN"));
    ASSERT_FALSE(AllZero());
    Group().SetItemIndex(-1);
    page->rdoROMtemplateClick();
    EXPECT_TRUE(AllZero());
    EXPECT_EQ(page->TemplateIndex(), -1);
    EXPECT_EQ(RawOf(*workspace.fuelMapSet.PTMap->data).size(), 12U) << "zeroed, not unplaced";
    page->ApplyROM();
    EXPECT_EQ(Caption(), "Ferrolyn");
}

TEST_F(TROMInfoTest, APlacementThatFailsStillReadsTheImageAgain) {
    MakeText("BAD.SPC", "; Bad\n[Fuel Maps]\npt_offset=$5000\nidle_offset=junk\n"
                        "[Other Maps]\nrevlimit_offset=$41\n[Main]\ntiming_divider=0.5\n");
    const fs::path rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    Image().Poke(0x7000, 99);
    Choose("Bad");
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, revLimiter);
    EXPECT_EQ(TimingConstants().divider, 0.5) << "the constants are read all the same";
    EXPECT_EQ(page->CurrentSpecFileName(), folder / "DIRECT.SPC") << "the last successful one";
}

struct TBadLine {
    const char *spec;
    const char *message;
    double divider;
    double subtractor;
    bool placed;
};
class TBadSpecTest : public TROMInfoTest, public testing::WithParamInterface<TBadLine> {};

TEST_P(TBadSpecTest, TheErrorIsShownAfterTheImageHasBeenReadAgain) {
    const TBadLine &bad = GetParam();
    const fs::path spec =
        MakeText("BAD.SPC", std::string("; Bad\n[Fuel Maps]\npt_offset=$2000\n") + bad.spec);
    const fs::path rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    TimingConstants() = {1.5, 2.5};
    Image().Poke(0x7000, 99);
    host.setWindowTitle("before");
    QString captionThen;
    int byteThen = 0;
    dialogs.duringMessage = [&] {
        captionThen = Caption();
        byteThen = Image().Peek(0x7000);
    };
    Choose("Bad");
    EXPECT_EQ(dialogs.messages, QStringList{bad.message});
    EXPECT_EQ(captionThen, "Ferrolyn - " + Name(rom));
    EXPECT_EQ(byteThen, 7);
    EXPECT_EQ(TimingConstants().divider, bad.divider);
    EXPECT_EQ(TimingConstants().subtractor, bad.subtractor);
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), bad.placed ? timingPT : fuelPT);
    EXPECT_EQ(page->CurrentSpecFileName(), bad.placed ? spec : folder / "DIRECT.SPC");
    EXPECT_EQ(EnabledButtons(), "lc");
}
INSTANTIATE_TEST_SUITE_P(
    Lines, TBadSpecTest,
    testing::Values(TBadLine{"[Other Maps]\nrevlimit_offset=junk\n[Main]\ntiming_divider=0.5\n",
                             "'junk' is not a valid integer value", 1.5, 2.5, false},
                    TBadLine{"[Main]\ntiming_divider=junk\ntiming_subtractor=3\n",
                             "'junk' is not a valid floating point value", 1.5, 2.5, true},
                    TBadLine{"[Main]\ntiming_divider=\n", "'' is not a valid floating point value",
                             1.5, 2.5, true},
                    TBadLine{"[Main]\ntiming_divider=0.5\ntiming_subtractor=1,5\n",
                             "'1,5' is not a valid floating point value", 0.5, 2.5, true}));

TEST_F(TROMInfoTest, TheSpecsErrorIsShownWhenTheImageIsGoneToo) {
    MakeText("BAD.SPC", "; Bad\n[Main]\ntiming_divider=junk\n");
    const fs::path rom = MakeROM("A.BIN");
    Load(rom);
    fs::remove(rom);
    Choose("Bad");
    EXPECT_EQ(dialogs.messages, QStringList{"'junk' is not a valid floating point value"});
    EXPECT_EQ(Caption(), "Ferrolyn");
}

TEST_F(TROMInfoTest, ASpecFileThatHasGoneReadsAsAllDefaults) {
    const fs::path rom = MakeROM("A.BIN");
    LoadAndPlace(rom);
    TimingConstants() = {1.5, 2.5};
    fs::remove(folder / "DIRECT.SPC");
    Choose("Direct");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(workspace.fuelMapSet.PTMap->axes->rpmAxis->offset, fuelPT) << "the old place";
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), 0);
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, 0);
    EXPECT_EQ(TimingConstants().divider, 0.65);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
}

TEST_F(TROMInfoTest, TheDirectFormKeepsAMapWhoseKeyIsMissing) {
    MakeText("PART.SPC", "; Part\n[Fuel Maps]\npt_offset=$2000\nidle_offset=$1200\n"
                         "[Timing Maps]\npt_offset=$1000\n");
    LoadAndPlace(MakeROM("A.BIN"));
    Cell(*workspace.fuelMapSet.WOTMap).SetValue(88);
    Choose("Part");
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), timingPT);
    EXPECT_EQ(workspace.fuelMapSet.WOTMap->axes->rpmAxis->offset, fuelWOT);
    EXPECT_EQ(Cell(*workspace.fuelMapSet.WOTMap).raw, 88) << "the sets are not zeroed first";
    EXPECT_EQ(Cell(*workspace.timingMapSet.WOTMap).raw, 1);
}

TEST_F(TROMInfoTest, ThePointerFormZeroesTheSetsFirst) {
    MakeText("POINTER.SPC",
             "; Pointer\n[Main]\nprimary_offset=$100\nfuelmap_pt_pointer_offset=$10\n"
             "bitmask=$3F\nfuelmap_id_pointer_offset=$7FFFFFFF\n"
             "[Other Maps]\nrevlimit_offset=$1F0\n");
    const fs::path rom = MakeROM("A.BIN");
    TBytes bytes = GetFile(rom);
    bytes[0x110] = 0xE0; // masked to 0x20
    PutFile(rom, bytes);
    LoadAndPlace(rom);
    Choose("Pointer");
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), timingPT);
    EXPECT_EQ(Cell(*workspace.fuelMapSet.PTMap).raw, 1) << "placed after the sets were zeroed";
    EXPECT_EQ(workspace.fuelMapSet.revLimiter.offset, 0x1F0);
    EXPECT_EQ(page->CurrentSpecFileName(), folder / "POINTER.SPC");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoTest, ABadPointerLeavesTheMapsUnzeroed) {
    MakeText("POINTER.SPC", "; Pointer\n[Main]\nprimary_offset=$100\nbitmask=junk\n");
    LoadAndPlace(MakeROM("A.BIN"));
    Choose("Pointer");
    EXPECT_EQ(Cell(*workspace.fuelMapSet.PTMap).raw, 1);
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(page->CurrentSpecFileName(), folder / "DIRECT.SPC");
}

TEST_F(TROMInfoTest, AnImageThatCannotBeReadIsToldAfterTheMapsWerePlaced) {
    MakeSpec();
    const fs::path rom = MakeROM("A.BIN", 7);
    Load(rom);
    fs::resize_file(rom, TROMImage::capacity + 1);
    Choose("Direct");
    EXPECT_EQ(dialogs.messages,
              QStringList{"Cannot read '" + Name(rom) +
                          "': it has 1048577 bytes, more than the limit of 1048576"});
    EXPECT_EQ(workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
    EXPECT_FALSE(page->Loaded());
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(EnabledButtons(), "l");
}
} // namespace
