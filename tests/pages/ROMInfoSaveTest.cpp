// Saving from the page "ROM Information": the ROM image and the question before it is lost, with
// every way in which the user backs out and the disk refuses. New spec files are saved in
// SaveSpecTest.cpp, what each system refuses in its own way is in SavesRefused*Test.cpp.
#include "pages/ROMInfoSaveFixture.h"

#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;

TEST_F(TROMInfoSaveTest, TheDialogIsPrepared) {
    Save("");
    EXPECT_EQ(dialogs.saveDialogs, QStringList{"Save ROM File|Binary Data (*.BIN)|*.BIN|.BIN|"});
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_EQ(GetFile(rom), original);
}

TEST_F(TROMInfoSaveTest, ANewNameGetsTheEditedImageAndBecomesTheROMFile) {
    const TBytes expected = Edit();
    Image().Poke(0x7001, 55); // not in a map, in the image all the same
    TBytes bytes = expected;
    bytes[0x7001] = 55;
    const fs::path target = folder / "B.BIN";
    Save(target);
    EXPECT_EQ(GetFile(target), bytes);
    EXPECT_EQ(GetFile(rom), original);
    EXPECT_EQ(page->ROMFileName(), target);
    EXPECT_EQ(workspace.romFileName, target);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(target));
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_FALSE(Image().modified);
    EXPECT_FALSE(workspace.fuelMapSet.IsModified());
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_TRUE(other->DataChanged) << "nobody clears it after a save";
}

TEST_F(TROMInfoSaveTest, TheImageIsReadAgainFromTheNewFile) {
    Edit();
    Image().Poke(0x9000, 66); // behind the file's end
    Save(folder / "B.BIN");
    EXPECT_EQ(Get(0, Image().size), GetFile(folder / "B.BIN"));
    PutFile(folder / "B.BIN", TBytes(0x10, 3));
    page->ApplyROM();
    EXPECT_EQ(Image().size, 0x10);
}

TEST_F(TROMInfoSaveTest, WithNothingChosenASaveTakesTheFileOutOfTheCaption) {
    Load(rom);
    dialogs.questions.clear();
    workspace.fuelMapSet.SetOffsets(fuelPT, fuelIdle, fuelWOT);
    workspace.timingMapSet.SetOffsets(timingPT, timingIdle, timingWOT);
    const TBytes expected = Edit();
    Save(folder / "B.BIN");
    EXPECT_EQ(GetFile(folder / "B.BIN"), expected);
    EXPECT_EQ(Caption(), "Ferrolyn");
    EXPECT_EQ(page->ROMFileName(), folder / "B.BIN");
    EXPECT_EQ(EnabledButtons(), "l");
}

TEST_F(TROMInfoSaveTest, AllMapsAndTheRevLimiterAreWritten) {
    TBytes expected = original;
    int value = 101;
    for (TMapSet *maps : {static_cast<TMapSet *>(&workspace.fuelMapSet),
                          static_cast<TMapSet *>(&workspace.timingMapSet)})
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            Cell(maps->Map(kind), 1).SetValue(value);
            const int place = maps->Map(kind).data->offset + (kind == TMapKind::PT ? 3 : 1);
            expected[static_cast<std::size_t>(place)] = static_cast<std::uint8_t>(value++);
        }
    workspace.fuelMapSet.revLimiter.SetValue(6000);
    expected[revLimiter] = 150;
    Save(folder / "B.BIN");
    EXPECT_EQ(GetFile(folder / "B.BIN"), expected);
}

TEST_F(TROMInfoSaveTest, TheTimingSetIsWrittenAfterTheFuelSet) {
    workspace.timingMapSet.PTMap->SetOffset(fuelPT);
    const TBytes expected = Edit(77);
    Cell(*workspace.timingMapSet.PTMap).SetValue(88);
    Save(folder / "B.BIN");
    EXPECT_EQ(GetFile(folder /
                      "B.BIN")[static_cast<std::size_t>(workspace.fuelMapSet.PTMap->data->offset)],
              88);
    EXPECT_EQ(GetFile(folder / "B.BIN").size(), expected.size());
}

TEST_F(TROMInfoSaveTest, ARevLimiterThatIsNotPlacedReportsItselfAtEachSave) {
    workspace.fuelMapSet.revLimiter.SetOffset(-1);
    const TBytes expected = Edit();
    Save(folder / "B.BIN");
    EXPECT_EQ(dialogs.messages, QStringList{"Error saving rev limiter data"});
    EXPECT_EQ(GetFile(folder / "B.BIN"), expected);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(folder / "B.BIN"));
}

TEST_F(TROMInfoSaveTest, NothingStandsUnderANewNameBeforeTheImageDoes) {
    workspace.fuelMapSet.revLimiter.SetOffset(-1); // reports itself before the image is written
    bool thereThen = true;
    dialogs.duringMessage = [&] { thereThen = fs::exists(folder / "B.BIN"); };
    Save(folder / "B.BIN");
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_FALSE(thereThen) << "no copy of the loaded image";
}

TEST_F(TROMInfoSaveTest, AnExistingFileIsReplacedAfterYes) {
    const fs::path target = folder / "B.BIN";
    PutFile(target, TBytes(10, 9));
    const TBytes expected = Edit();
    dialogs.answers = {TAnswer::Yes};
    Save(target);
    EXPECT_EQ(dialogs.questions, QStringList{overwrite});
    EXPECT_EQ(GetFile(target), expected);
    EXPECT_EQ(page->ROMFileName(), target);
}

TEST_F(TROMInfoSaveTest, TheROMFileItselfMayBeTheTarget) {
    const TBytes expected = Edit();
    dialogs.answers = {TAnswer::Yes};
    Save(rom);
    EXPECT_EQ(GetFile(rom), expected);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
}

TEST_F(TROMInfoSaveTest, AnExistingFileStaysAfterNo) {
    const fs::path target = folder / "B.BIN";
    PutFile(target, TBytes(10, 9));
    Edit();
    dialogs.answers = {TAnswer::No};
    Save(target);
    EXPECT_EQ(GetFile(target), TBytes(10, 9));
    EXPECT_EQ(page->ROMFileName(), rom);
    EXPECT_TRUE(workspace.fuelMapSet.IsModified());
    EXPECT_EQ(Image().Peek(workspace.fuelMapSet.PTMap->data->offset), 1);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoSaveTest, CancelAfterAnEarlierSaveAsksAboutTheRememberedName) {
    Edit();
    Save(folder / "B.BIN");
    const TBytes first = GetFile(folder / "B.BIN");
    Edit(78);
    dialogs.answers = {TAnswer::Yes, TAnswer::No};
    dialogs.saves = {""};
    EXPECT_FALSE(page->QuerySave());
    EXPECT_EQ(dialogs.saveDialogs.back(), "Save ROM File|Binary Data (*.BIN)|*.BIN|.BIN|B.BIN");
    EXPECT_EQ(dialogs.questions, (QStringList{"Save Changes?", overwrite}));
    EXPECT_EQ(dialogs.messages, QStringList{"Save unsuccessful"});
    EXPECT_EQ(GetFile(folder / "B.BIN"), first);
}

TEST_F(TROMInfoSaveTest, AfterALoadFromAnotherFolderNoNameIsOffered) {
    fs::create_directory(folder / "other");
    const fs::path same = folder / "other" / "A.BIN";
    PutFile(same, original);
    Edit();
    dialogs.answers = {TAnswer::Yes};
    Save(rom);
    Load(same);
    dialogs.answers = {TAnswer::No, TAnswer::No};
    Save("");
    EXPECT_TRUE(dialogs.saveDialogs.back().endsWith("|.BIN|"))
        << "not the file in the other folder";
    EXPECT_EQ(dialogs.questions.back(), overwrite) << "the remembered one all the same";
    Load(rom);
    dialogs.answers = {TAnswer::No};
    Save("");
    EXPECT_TRUE(dialogs.saveDialogs.back().endsWith("|.BIN|A.BIN")) << "back in its folder";
}

TEST_F(TROMInfoSaveTest, CancelAsksNothingWhenTheRememberedFileIsGone) {
    Edit();
    Save(folder / "B.BIN");
    fs::remove(folder / "B.BIN");
    Save("");
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoSaveTest, YesAfterCancelEndsInTheFileErrorAndLosesNothing) {
    Edit();
    Save(folder / "B.BIN");
    const TBytes first = GetFile(folder / "B.BIN");
    Edit(78);
    dialogs.answers = {TAnswer::Yes};
    Save("");
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '': " + Says(TReason::NoName)});
    EXPECT_EQ(GetFile(folder / "B.BIN"), first);
    EXPECT_EQ(GetFile(rom), original);
    EXPECT_EQ(page->ROMFileName(), folder / "B.BIN");
    EXPECT_TRUE(Image().modified);
    dialogs.messages.clear();
    Save(folder / "C.BIN");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(GetFile(folder / "C.BIN"), [&] {
        TBytes bytes = first;
        bytes[static_cast<std::size_t>(workspace.fuelMapSet.PTMap->data->offset)] = 78;
        return bytes;
    }());
}

TEST_F(TROMInfoSaveTest, QuerySaveSavesAfterYes) {
    const TBytes expected = Edit();
    dialogs.answers = {TAnswer::Yes};
    dialogs.saves = {Name(folder / "B.BIN")};
    EXPECT_TRUE(page->QuerySave());
    EXPECT_EQ(dialogs.questions, QStringList{"Save Changes?"});
    EXPECT_EQ(GetFile(folder / "B.BIN"), expected);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoSaveTest, QuerySaveTellsOfACancelledSave) {
    Edit();
    dialogs.answers = {TAnswer::Yes};
    dialogs.saves = {""};
    EXPECT_FALSE(page->QuerySave());
    EXPECT_EQ(dialogs.messages, QStringList{"Save unsuccessful"});
}

TEST_F(TROMInfoSaveTest, AFileErrorStopsTheLoadThatAsked) {
    Edit();
    dialogs.answers = {TAnswer::Yes};
    dialogs.saves = {Name(folder / "missing/B.BIN")};
    Button("btnLoad").click();
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(folder / "missing/B.BIN") +
                                            "': " + Says(TReason::NoFolder)});
    EXPECT_EQ(dialogs.openDialogs.size(), 1) << "only the first load asked for a file";
}

TEST_F(TROMInfoSaveTest, WithoutAROMFileAnEmptyFileIsWritten) {
    page->SetROMFileName({});
    Image().size = 0;
    Save(folder / "B.BIN");
    EXPECT_EQ(GetFile(folder / "B.BIN"), TBytes());
    EXPECT_TRUE(dialogs.messages.empty());
}

// What the disk refuses

TEST_F(TROMInfoSaveTest, AFolderAsTarget) {
    fs::create_directory(folder / "B.BIN");
    dialogs.answers = {TAnswer::Yes};
    ExpectFailure(folder / "B.BIN", Says(TReason::FolderToWrite));
    EXPECT_TRUE(fs::is_empty(folder / "B.BIN"));
}

TEST_F(TROMInfoSaveTest, AMissingFolder) {
    ExpectFailure(folder / "missing" / "B.BIN", Says(TReason::NoFolder));
    EXPECT_FALSE(fs::exists(folder / "missing"));
}

TEST_F(TROMInfoSaveTest, TheROMFileMayGoBetweenLoadAndSave) {
    const TBytes expected = Edit();
    fs::remove(rom);
    Save(folder / "B.BIN");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(GetFile(folder / "B.BIN"), expected);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(folder / "B.BIN"));
}
} // namespace
