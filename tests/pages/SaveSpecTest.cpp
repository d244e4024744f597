// "Save Spec" on the page "ROM Information": what is written, and how the user or the disk prevents
// it.
#include "pages/SaveSpecFixture.h"

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;

TEST_F(TSaveSpecTest, ANewFileRecordsAllPlacesUnderTheDefaultLabel) {
    dialogs.inputs = {QString()};
    SaveSpec(folder / "NEW.SPC");
    EXPECT_EQ(Text(folder / "NEW.SPC"), "; User Defined\n" + rest);
    EXPECT_EQ(dialogs.saveDialogs,
              QStringList{"Save ROM Spec File|Spec Files (*.SPC)|*.SPC|.SPC|"});
    EXPECT_EQ(dialogs.inputBoxes, QStringList{"Display label|Display As: |User Defined"});
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(Items().size(), 2) << "the list is not scanned again";
    EXPECT_EQ(page->ROMFileName(), rom);
}

TEST_F(TSaveSpecTest, TheLabelIsTheUsers) {
    dialogs.inputs = {"Tuned, für 8 cylinders"};
    SaveSpec(folder / "NEW.SPC");
    EXPECT_EQ(Text(folder / "NEW.SPC"), "; Tuned, für 8 cylinders\n" + rest);
    Load(rom);
    EXPECT_TRUE(Items().contains("Tuned, für 8 cylinders"));
}

TEST_F(TSaveSpecTest, AfterThePointerFormTheResolvedPlacesAreWritten) {
    Image().Poke(0x100, 0x31); // masked to 0x01
    Image().Poke(0x101, 0x80);
    PutMap(0x180, {60, 60}, {100, 100});
    workspace.fuelMapSet.SetPointers(0x100, 0x0F, 0x100, 0x0F, 0x100, 0x0F);
    dialogs.inputs = {"P"};
    SaveSpec(folder / "NEW.SPC");
    EXPECT_EQ(Text(folder / "NEW.SPC"),
              "; P\n[Fuel Maps]\npt_offset=$0180\nidle_offset=$0180\nwot_offset=$0180\n" +
                  rest.substr(rest.find("[Timing")));
}

TEST_F(TSaveSpecTest, UnplacedMapsAndRevLimiter) {
    workspace.fuelMapSet.PTMap->SetOffset(0);
    workspace.timingMapSet.WOTMap->SetOffset(0x12345);
    workspace.fuelMapSet.revLimiter.SetOffset(-1);
    dialogs.inputs = {"P"};
    SaveSpec(folder / "NEW.SPC");
    const std::string text = Text(folder / "NEW.SPC");
    EXPECT_THAT(text, testing::HasSubstr("[Fuel Maps]\npt_offset=$0000\n"));
    EXPECT_THAT(text, testing::HasSubstr("wot_offset=$12345\n"));
    EXPECT_THAT(text, testing::EndsWith("revlimit_offset=$FFFFFFFF\n"));
}

TEST_F(TSaveSpecTest, CancelWritesNothing) {
    SaveSpec("");
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_TRUE(dialogs.inputBoxes.empty());
    EXPECT_THAT(folder.Names(), testing::UnorderedElementsAre("A.BIN", "DIRECT.SPC"));
}

TEST_F(TSaveSpecTest, AnExistingFileIsReplacedAfterYesOnly) {
    const fs::path target = MakeText("OLD.SPC", "; Old\n[Main]\ntiming_divider=0.5\n");
    dialogs.answers = {TAnswer::No};
    SaveSpec(target);
    EXPECT_EQ(dialogs.questions, QStringList{overwrite});
    EXPECT_EQ(Text(target), "; Old\n[Main]\ntiming_divider=0.5\n");
    EXPECT_TRUE(dialogs.inputBoxes.empty());
    dialogs.answers = {TAnswer::Yes};
    dialogs.inputs = {QString()};
    SaveSpec(target);
    EXPECT_EQ(Text(target), "; User Defined\n" + rest);
}

TEST_F(TSaveSpecTest, AFileThatCannotBeCreatedIsToldBeforeTheLabelIsAskedFor) {
    const fs::path target = folder / "missing" / "NEW.SPC";
    SaveSpec(target);
    EXPECT_EQ(dialogs.messages,
              QStringList{"Cannot write '" + Name(target) + "': " + Says(TReason::NoFolder)});
    EXPECT_TRUE(dialogs.inputBoxes.empty());
    EXPECT_FALSE(fs::exists(folder / "missing"));
}

TEST_F(TSaveSpecTest, AFolderAsTargetIsAnError) {
    fs::create_directory(folder / "NEW.SPC");
    dialogs.answers = {TAnswer::Yes};
    dialogs.inputs = {QString()};
    SaveSpec(folder / "NEW.SPC");
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(folder / "NEW.SPC") +
                                            "': " + Says(TReason::FolderToWrite)});
    EXPECT_TRUE(fs::is_empty(folder / "NEW.SPC"));
}

TEST_F(TSaveSpecTest, OneDialogServesBothAndOffersItsNameToItsOwnKind) {
    other->DataChanged = true;
    page->ShowPage();
    dialogs.saves = {Name(folder / "B.BIN")};
    Button("btnSave").click();
    dialogs.answers = {TAnswer::Yes};
    SaveSpec("");
    EXPECT_EQ(dialogs.saveDialogs.back(), "Save ROM Spec File|Spec Files (*.SPC)|*.SPC|.SPC|")
        << "no image's name";
    EXPECT_EQ(dialogs.questions, QStringList{overwrite});
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '': " + Says(TReason::NoName)});
    EXPECT_EQ(GetFile(folder / "B.BIN"), GetFile(rom));
}

TEST_F(TSaveSpecTest, ASpecsNameIsOfferedForTheNextSpecOnly) {
    other->DataChanged = true;
    page->ShowPage();
    dialogs.inputs = {QString()};
    SaveSpec(folder / "NEW.spc");
    dialogs.answers = {TAnswer::No, TAnswer::No};
    SaveSpec("");
    EXPECT_TRUE(dialogs.saveDialogs.back().endsWith("|.SPC|NEW.spc")) << "in any letter case";
    dialogs.saves = {""};
    Button("btnSave").click();
    EXPECT_TRUE(dialogs.saveDialogs.back().endsWith("|.BIN|")) << "or the spec were lost";
}
} // namespace
