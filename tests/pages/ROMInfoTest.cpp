// The page "ROM Information": loading an image, applying a mapping type, the page's own state.
// Saving is in ROMInfoSaveTest.cpp, the spec files' side in ROMInfoSpecTest.cpp.
#include "pages/OffsetDialog.h"
#include "pages/ROMInfoFixture.h"

#include <array>

#include <QCoreApplication>
#include <QDir>
#include <QStatusBar>

namespace {
namespace fs = std::filesystem;

const QString romFilter = "Binary Data (*.BIN)|*.BIN";
TEST_F(TROMInfoTest, AtCreationNothingIsLoadedChosenOrSavable) {
    EXPECT_TRUE(page->ROMFileName().empty());
    EXPECT_TRUE(page->CurrentSpecFileName().empty());
    EXPECT_EQ(page->TemplateIndex(), -1);
    EXPECT_FALSE(page->Loaded());
    EXPECT_EQ(EnabledButtons(), "l");
    EXPECT_FALSE(Group().isEnabled());
    EXPECT_EQ(Group().ItemIndex(), -1);
    EXPECT_EQ(Items(), QStringList{manual});
}

TEST_F(TROMInfoTest, LoadingReadsTheFileAndLeavesNothingChosen) {
    MakeSpec();
    const fs::path rom = MakeROM("A.BIN", 7);
    Load(rom);
    EXPECT_EQ(Get(0, Image().size), GetFile(rom));
    EXPECT_EQ(Image().size, 0x8000);
    EXPECT_EQ(page->ROMFileName(), rom);
    EXPECT_EQ(workspace.romFileName, rom);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(Items(), (QStringList{"Direct", manual}));
    EXPECT_TRUE(Group().isEnabled());
    EXPECT_EQ(Group().ItemIndex(), -1);
    EXPECT_EQ(page->TemplateIndex(), -1);
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_FALSE(page->Loaded()) << "only ApplyROM says so";
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoTest, TheFirstOpenDialogStartsInTheProgramsFolderTheNextOneAtTheFile) {
    fs::create_directory(folder / "deeper");
    const fs::path rom = MakeROM("deeper/A.BIN");
    Load(rom);
    Load("");
    EXPECT_EQ(dialogs.openDialogs,
              (QStringList{romFilter + "|" + QCoreApplication::applicationDirPath(),
                           romFilter + "|" + QDir::fromNativeSeparators(Name(folder / "deeper"))}));
}

TEST_F(TROMInfoTest, ConfirmingMakesTheFilesFolderTheOneThatIsScanned) {
    MakeSpec("HERE.SPC");
    fs::create_directory(folder / "deeper");
    MakeText("deeper/THERE.SPC", "; There\n");
    Load(MakeROM("deeper/A.BIN"));
    EXPECT_TRUE(fs::equivalent(fs::current_path(), folder / "deeper"));
    EXPECT_EQ(Items(), (QStringList{"There", manual}));
}

TEST_F(TROMInfoTest, CancelWithoutAFileChangesNothing) {
    const fs::path before = fs::current_path();
    Load("");
    EXPECT_TRUE(page->ROMFileName().empty());
    EXPECT_EQ(Caption(), "");
    EXPECT_EQ(EnabledButtons(), "l");
    EXPECT_FALSE(Group().isEnabled());
    EXPECT_EQ(fs::current_path(), before);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoTest, CancelWithAFileReloadsItFromTheDisk) {
    const fs::path rom = MakeROM("A.BIN", 7);
    Load(rom);
    Image().Poke(0x7000, 99);
    Image().modified = true;
    MakeText("NEW.SPC", "; New\n");
    Load("");
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_FALSE(Image().modified);
    EXPECT_EQ(page->ROMFileName(), rom);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(Items(), (QStringList{"New", manual}));
}

TEST_F(TROMInfoTest, AFileThatDoesNotExistIsRecordedAndThenIgnored) {
    const fs::path rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    const fs::path gone = folder / "GONE.BIN";
    Load(gone);
    EXPECT_EQ(page->ROMFileName(), gone);
    EXPECT_EQ(workspace.romFileName, gone);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(Group().Item(Group().ItemIndex()), "Direct");
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoTest, AFileThatIsTooLargeIsRefusedAndAllElseStays) {
    const fs::path rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    Image().modified = true;
    const fs::path large = folder / "LARGE.BIN";
    PutFile(large, {1});
    fs::resize_file(large, TROMImage::capacity + 1);
    MakeText("LATER.SPC", "; Later\n");
    Load(large);
    EXPECT_EQ(dialogs.messages,
              QStringList{"Cannot read '" + Name(large) +
                          "': it has 1048577 bytes, more than the limit of 1048576"});
    EXPECT_EQ(Image().size, 0x8000);
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_TRUE(Image().modified);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(Items(), (QStringList{"Direct", manual}));
    EXPECT_EQ(Group().ItemIndex(), 0);
    Load(rom);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom)) << "the program goes on";
}

TEST_F(TROMInfoTest, TheLargestFileIsTaken) {
    const fs::path large = folder / "LARGE.BIN";
    PutFile(large, {1});
    fs::resize_file(large, TROMImage::capacity);
    Load(large);
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(Image().size, TROMImage::capacity);
}

TEST_F(TROMInfoTest, AFolderUnderTheNameOfAFileIsAnError) {
    fs::create_directory(folder / "F.BIN");
    Load(folder / "F.BIN");
    EXPECT_EQ(dialogs.messages, QStringList{"Cannot read '" + Name(folder / "F.BIN") +
                                            "': " + Says(TReason::FolderToRead)});
    EXPECT_EQ(EnabledButtons(), "l");
    EXPECT_EQ(Caption(), "");
}

TEST_F(TROMInfoTest, LoadingAgainZeroesTheMapsAndDisablesManualOffsets) {
    const fs::path rom = MakeROM("A.BIN");
    LoadAndPlace(rom);
    {
        const TInOffsetDialog dialog(TInOffsetDialog::OK);
        Choose(manual);
    }
    ASSERT_EQ(EnabledButtons(), "lcm");
    Cell(*workspace.fuelMapSet.PTMap).raw = 5;
    dialogs.answers = {TAnswer::No}; // zeroed cells count as modified
    Load(rom);
    EXPECT_TRUE(AllZero());
    EXPECT_EQ(RawOf(*workspace.fuelMapSet.PTMap->data).size(), 12U);
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_EQ(dialogs.questions, QStringList{"Save Changes?"});
}

TEST_F(TROMInfoTest, ACaptionShowsTheFileNameLetterByLetter) {
    const fs::path rom = MakeROM("A [] &B.BIN");
    Load(rom);
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
}

TEST_F(TROMInfoTest, ApplyWithNothingChosenTakesTheFileOutOfTheCaption) {
    Load(MakeROM("A.BIN"));
    other->DataChanged = true;
    page->ShowPage();
    ASSERT_EQ(EnabledButtons(), "lcs");
    Image().Poke(0x7000, 99);
    page->ApplyROM();
    EXPECT_EQ(Caption(), "Ferrolyn");
    EXPECT_EQ(EnabledButtons(), "l");
    EXPECT_EQ(Image().Peek(0x7000), 99) << "not read again";
    EXPECT_FALSE(page->Loaded());
}

TEST_F(TROMInfoTest, ApplyWithAMappingTypeReadsTheFileAgain) {
    const fs::path rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    EXPECT_TRUE(page->Loaded());
    other->DataChanged = true;
    page->ShowPage();
    ASSERT_EQ(EnabledButtons(), "lcs");
    Image().Poke(0x7000, 99);
    Image().modified = true;
    page->ApplyROM();
    EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
    EXPECT_EQ(EnabledButtons(), "lc");
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_FALSE(Image().modified);
}

TEST_F(TROMInfoTest, ApplyWithTheFileGoneTakesItOutOfTheCaption) {
    const fs::path rom = MakeROM("A.BIN", 7);
    LoadAndPlace(rom);
    fs::remove(rom);
    page->ApplyROM();
    EXPECT_EQ(Caption(), "Ferrolyn");
    EXPECT_EQ(EnabledButtons(), "l");
    EXPECT_EQ(Image().Peek(0x7000), 7);
    EXPECT_TRUE(page->Loaded()) << "an image has been loaded before";
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TROMInfoTest, SaveROMIsEnabledOnShowExactlyWhenAPageHasChangedData) {
    EXPECT_FALSE(Button("btnSave").isEnabled());
    other->DataChanged = true;
    EXPECT_TRUE(page->QueryClose());
    EXPECT_FALSE(page->PageVisible());
    EXPECT_FALSE(Button("btnSave").isEnabled());
    page->ShowPage();
    EXPECT_TRUE(page->PageVisible());
    EXPECT_TRUE(Button("btnSave").isEnabled());
    other->DataChanged = false;
    page->ShowPage();
    EXPECT_FALSE(Button("btnSave").isEnabled());
}

TEST_F(TROMInfoTest, LoadingWithUnmodifiedMapsAsksNothingWhateverTheImageSays) {
    LoadAndPlace(MakeROM("A.BIN"));
    Image().modified = true;
    other->DataChanged = true;
    Load(MakeROM("B.BIN"));
    EXPECT_TRUE(dialogs.questions.empty());
    EXPECT_EQ(page->ROMFileName(), folder / "B.BIN");
}

TEST_F(TROMInfoTest, EachSetCountsForTheQuestion) {
    LoadAndPlace(MakeROM("A.BIN"));
    EXPECT_TRUE(page->QuerySave());
    int asked = 0;
    for (TVal *value : {&Cell(*workspace.fuelMapSet.PTMap), &Cell(*workspace.timingMapSet.WOTMap),
                        static_cast<TVal *>(&workspace.fuelMapSet.revLimiter)}) {
        value->modified = true;
        dialogs.answers = {TAnswer::No};
        EXPECT_TRUE(page->QuerySave());
        EXPECT_EQ(dialogs.questions.size(), ++asked);
        EXPECT_EQ(dialogs.questions.back(), "Save Changes?");
        value->modified = false;
    }
}

TEST_F(TROMInfoTest, AnUnsuccessfulSaveStopsTheLoad) {
    const fs::path rom = MakeROM("A.BIN");
    LoadAndPlace(rom);
    Cell(*workspace.fuelMapSet.PTMap).SetValue(77);
    dialogs.answers = {TAnswer::Yes};
    dialogs.saves = {""};
    Button("btnLoad").click();
    EXPECT_EQ(dialogs.messages, QStringList{"Save unsuccessful"});
    EXPECT_EQ(dialogs.openDialogs.size(), 1) << "only the first load asked for a file";
    EXPECT_EQ(Cell(*workspace.fuelMapSet.PTMap).raw, 77);
}

TEST_F(TROMInfoTest, DecliningLoadsOverTheChanges) {
    LoadAndPlace(MakeROM("A.BIN"));
    Cell(*workspace.fuelMapSet.PTMap).SetValue(77);
    const fs::path next = MakeROM("B.BIN", 8);
    dialogs.answers = {TAnswer::No};
    Load(next);
    EXPECT_EQ(dialogs.questions, QStringList{"Save Changes?"});
    EXPECT_EQ(Image().Peek(0x7000), 8);
    EXPECT_TRUE(AllZero());
}

// The page itself

TEST_F(TROMInfoTest, TheStatusBarHasThreePanels) {
    auto &bar = Find<QStatusBar>("StatusBar1");
    QList<int> widths;
    for (const QLabel *panel : bar.findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
        EXPECT_EQ(panel->minimumWidth(), panel->maximumWidth());
        widths << panel->minimumWidth();
    }
    EXPECT_EQ(widths, (QList<int>{500, 80, 50}));
}

TEST_F(TROMInfoTest, ThePanelOfTheSizeIsAsWideAsItsTextNeedsAndNoWider) {
    QLabel &size = *Find<QStatusBar>("StatusBar1")
                        .findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)[1];
    QFont large = size.font();
    large.setPointSize(30);
    size.setFont(large);
    const fs::path small = folder / "SMALL.BIN";
    PutFile(small, {1});
    Load(small);
    const int before = size.width();
    EXPECT_EQ(before, qMax(80, size.sizeHint().width()));
    fs::resize_file(small, TROMImage::capacity);
    Load(small);
    EXPECT_EQ(size.text(), "1,048,576 bytes");
    EXPECT_EQ(size.width(), size.sizeHint().width());
    EXPECT_GT(size.width(), before);
    fs::resize_file(small, 1);
    Load(small);
    EXPECT_EQ(size.width(), before) << "as wide as before the long text";
    size.setFont(page->font());
    Load(small);
    EXPECT_EQ(size.width(), 80);
}

TEST_F(TROMInfoTest, TheAboutLinesAreShown) {
    EXPECT_EQ(Find<QLabel>("Label1").text(), "Ferrolyn");
    for (const char *name : {"Label2", "Label3"})
        EXPECT_FALSE(Find<QLabel>(name).text().isEmpty()) << name;
    EXPECT_EQ(Find<QLabel>("Label5").text(), "data offset");
}

TEST_F(TROMInfoTest, TheCreditsTurnWhileThePageIsShown) {
    auto &timer = Find<QTimer>("tmrThanks");
    EXPECT_EQ(timer.interval(), 3000);
    EXPECT_TRUE(timer.isActive());
    EXPECT_TRUE(page->QueryClose());
    EXPECT_FALSE(timer.isActive());
    page->ShowPage();
    EXPECT_TRUE(timer.isActive());
}

TEST_F(TROMInfoTest, TheTimerIsOffBeforeThePageIsShown) {
    TWorkspace fresh;
    TfrmROMInformation unshown(nullptr, fresh, recovery);
    EXPECT_FALSE(FindControl<QTimer>(unshown, "tmrThanks").isActive());
}

TEST_F(TROMInfoTest, FiveCreditLinesFollowEachOtherAndBeginAnewOnShow) {
    auto &timer = Find<QTimer>("tmrThanks");
    auto &line = Find<QLabel>("Label4");
    const auto turn = [&](int count) {
        QStringList lines;
        for (int i = 0; i < count; ++i) {
            page->tmrThanksTimer();
            EXPECT_TRUE(timer.isActive());
            lines << line.text();
        }
        return lines;
    };
    const QStringList lines = turn(7);
    EXPECT_EQ(QSet<QString>(lines.begin(), lines.end()).size(), 5);
    EXPECT_EQ(lines[5], lines[0]);
    EXPECT_EQ(lines[6], lines[1]);
    EXPECT_TRUE(page->QueryClose());
    page->ShowPage();
    EXPECT_EQ(turn(1), lines.first(1));
}

TEST_F(TROMInfoTest, AllItemsOfAFullListFitInTwoColumns) {
    for (int i = 0; i < 21; ++i)
        MakeText("S" + std::to_string(i) + ".SPC", "; " + std::string(40, 'W') + "\n");
    Load(MakeROM("A.BIN"));
    host.resize(800, 600);
    host.show();
    QCoreApplication::processEvents();
    const QList<QRadioButton *> items = Group().findChildren<QRadioButton *>();
    ASSERT_EQ(items.size(), 22);
    QSet<int> columns;
    for (const QRadioButton *item : items) {
        columns << item->x();
        EXPECT_TRUE(Group().rect().contains(item->geometry())) << item->objectName().toStdString();
        EXPECT_GE(item->height(), item->fontMetrics().height());
        for (const QRadioButton *second : items)
            EXPECT_TRUE(second == item || !second->geometry().intersects(item->geometry()));
    }
    EXPECT_EQ(columns.size(), 2);
}
TEST_F(TROMInfoTest, ALoadWithoutMappingEmptiesTheCellsAndKeepsThePlaces) {
    const auto file = MakeROM("OLD.BIN");
    LoadAndPlace(file);
    dialogs.answers = {TAnswer::No}; // the maps may count as modified
    std::filesystem::remove(folder / "DIRECT.SPC");
    Load(file);
    EXPECT_TRUE(AllZero());
    const TFuelMapSet &fuel = workspace.fuelMapSet;
    const TTimingMapSet &timing = workspace.timingMapSet;
    EXPECT_EQ(fuel.PTMap->GetLocation(), fuelPT);
    EXPECT_EQ(fuel.IdleMap->GetLocation(), fuelIdle);
    EXPECT_EQ(fuel.WOTMap->GetLocation(), fuelWOT);
    EXPECT_EQ(timing.PTMap->GetLocation(), timingPT);
    EXPECT_EQ(timing.IdleMap->GetLocation(), timingIdle);
    EXPECT_EQ(timing.WOTMap->GetLocation(), timingWOT);
    EXPECT_EQ(fuel.PTMap->axes->offset, fuelPT);
    EXPECT_EQ(fuel.PTMap->RPMCount(), 4);
    EXPECT_TRUE(fuel.HasRevLimiter());
}
} // namespace
