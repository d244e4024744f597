// The bar on "ROM Information" that offers what was committed and never saved: there only with an
// offer, in the words of the mapping in force, and doing nothing by itself.
#include "changes/RecoveryBar.h"

#include "changes/EarlierVersions.h"
#include "maps/Maps.h"
#include "pages/WindowFixture.h"

#include <chrono>

#include <QLabel>
#include <QSpinBox>
#include <QStatusBar>
#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;

class TRecoveryBarTest : public TWindowTest {
protected:
    static constexpr auto firstCell = "grdPTMap";

    /// Waits until the folder has answered, which may take longer than the window waits.
    void Settle() {
        window.Recovery().Finish();
        window.StateChanged();
    }
    void Choose(int index) {
        TWindowTest::Choose(index);
        Settle();
    }
    void Load(const QString &file) {
        TWindowTest::Load(file);
        Settle();
    }
    void Click(int tab, const QString &button) {
        TWindowTest::Click(tab, button);
        Settle();
    }
    TRecoveryBar &Bar() { return ROMPage().RecoveryBar(); }
    QString Text() {
        return Bar().isVisible() ? On<QLabel>(romTab, "lblRecovery").text() : QString();
    }
    /// The text behind the time.
    QString Extent() { return Text().section("never saved: ", 1); }
    QString Said() { return FindControl<QStatusBar>(window, "StatusBar1").currentMessage(); }
    QString State() { return FindControl<QPushButton>(window, "btnState").accessibleName(); }
    std::vector<fs::path> Kept() const {
        std::vector<fs::path> files;
        for (const fs::directory_entry &entry : fs::directory_iterator(ownState.Folder()))
            files.push_back(entry.path());
        return files;
    }
    /// Commits a number to the first cell of the part throttle fuel map, from and to any page.
    void CommitCell(const QString &text) {
        Enter(fuelTab);
        Type(fuelTab, firstCell, 1, 1, text);
        Click(fuelTab, "btnSavePT");
        Enter(romTab);
    }
    void LoadAndPlace() {
        TWindowTest::LoadAndPlace();
        Settle();
    }
    /// An image, its mapping chosen, with a committed byte of an earlier sitting.
    void LoadWithOffer() {
        LoadAndPlace();
        CommitCell("77");
        Choose(0); // reads the image anew
    }
    QString ImageFile() { return QString::fromStdString((folder / "A.BIN").string()); }
    std::int32_t Body() { return window.workspace.fuelMapSet.PTMap->data->offset; }
};

TEST_F(TRecoveryBarTest, IsNotThereWithoutAnOffer) {
    const int top = On<QWidget>(romTab, "grpLoadROM").mapTo(&window, QPoint()).y();
    EXPECT_FALSE(Bar().isVisible());
    LoadAndPlace();
    CommitCell("77");
    EXPECT_FALSE(Bar().isVisible()) << "these are not lost";
    EXPECT_EQ(On<QWidget>(romTab, "grpLoadROM").mapTo(&window, QPoint()).y(), top);
    Choose(0);
    EXPECT_TRUE(Bar().isVisible());
    QTest::qWait(0);
    EXPECT_GT(On<QWidget>(romTab, "grpLoadROM").mapTo(&window, QPoint()).y(), top);
    Click(romTab, "btnForget");
    QTest::qWait(0);
    EXPECT_EQ(On<QWidget>(romTab, "grpLoadROM").mapTo(&window, QPoint()).y(), top);
}

TEST_F(TRecoveryBarTest, SaysWhatWasLostInTheWordsOfTheMapping) {
    LoadAndPlace();
    CommitCell("77");
    dialogs.answers = {TAnswer::No}; // "Save Changes?"
    Load(ImageFile());
    EXPECT_EQ(Extent(), "1 byte in 1 map") << "the maps are still placed";
    Choose(0);
    Enter(fuelTab);
    Type(fuelTab, firstCell, 1, 1, "78");
    Type(fuelTab, firstCell, 2, 1, "78");
    Type(fuelTab, "grdFTMap", 2, 1, "78");
    for (const char *button : {"btnSavePT", "btnSaveFT"})
        Click(fuelTab, button);
    Enter(romTab);
    Choose(0);
    EXPECT_EQ(Extent(), "3 bytes in 2 maps") << "the newest";
    Image().Poke(0x7000, 99);
    Image().Poke(0x7001, 99);
    window.StateChanged();
    Choose(0);
    EXPECT_EQ(Extent(), "2 bytes");
}

TEST_F(TRecoveryBarTest, SaysWhen) {
    LoadWithOffer();
    const QDate today = QDate::currentDate();
    const auto textOf = [&](const QDateTime &time) {
        fs::last_write_time(
            Kept().front(),
            std::chrono::file_clock::from_sys(std::chrono::sys_time<std::chrono::milliseconds>(
                std::chrono::milliseconds(time.toMSecsSinceEpoch()))));
        Choose(0);
        return Text();
    };
    EXPECT_EQ(textOf({QDate(today.year(), 1, 2), QTime(3, 4)}),
              "Changes of 2 Jan, 03:04 were committed and never saved: 1 byte in 1 map");
    EXPECT_EQ(textOf({QDate(2019, 11, 22), QTime(13, 5)}),
              "Changes of 22 Nov 2019, 13:05 were committed and never saved: 1 byte in 1 map");
}

TEST_F(TRecoveryBarTest, BringsBackAsAnEditInMemory) {
    LoadWithOffer();
    EXPECT_EQ(Image().Peek(Body()), 1);
    Click(romTab, "btnBringBack");
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_EQ(Image().Peek(Body()), 77);
    EXPECT_EQ(State(), "State: 1 byte not saved \u00B7 spec A.SPC");
    EXPECT_TRUE(On<QPushButton>(romTab, "btnSave").isEnabled());
    EXPECT_TRUE(ROMPage().DataChanged);
    EXPECT_EQ(Kept().size(), 1U) << "kept as before, until it is saved";
    Enter(fuelTab);
    EXPECT_EQ(On<TStringAlignGrid>(fuelTab, firstCell).Cell(1, 1), "77");
    Enter(romTab);
    dialogs.saves = {ImageFile()};
    dialogs.answers = {TAnswer::Yes};
    Click(romTab, "btnSave");
    EXPECT_EQ(GetFile(folder / "A.BIN").at(static_cast<std::size_t>(Body())), 77);
    EXPECT_EQ(dialogs.messages, QStringList());
    EXPECT_EQ(dialogs.questions, QStringList{"Overwrite existing file?"});
    const std::vector<TEarlier> earlier = EarlierVersions(ownState.Folder(), folder / "A.BIN");
    ASSERT_EQ(earlier.size(), 1U);
    EXPECT_EQ(earlier.front().bytes.at(static_cast<std::size_t>(Body())), 1);
    EXPECT_EQ(Kept(), std::vector{earlier.front().kept}) << "nothing that is not saved";
}

TEST_F(TRecoveryBarTest, BringsBackARevLimiterToo) {
    LoadAndPlace();
    Enter(fuelTab);
    On<QSpinBox>(fuelTab, "spnRevLimiter").setValue(6000);
    Click(fuelTab, "btnSaverev");
    Enter(romTab);
    Choose(0);
    EXPECT_EQ(Extent(), "1 byte");
    Click(romTab, "btnBringBack");
    EXPECT_EQ(Image().Peek(revLimiter), 150);
    Enter(fuelTab);
    EXPECT_EQ(On<QSpinBox>(fuelTab, "spnRevLimiter").value(), 6000);
}

TEST_F(TRecoveryBarTest, ChangesNothingWhenAnOfferDoesNotFit) {
    LoadWithOffer();
    CommitCell("78");
    EXPECT_TRUE(Bar().isVisible());
    Click(romTab, "btnBringBack");
    EXPECT_EQ(dialogs.messages, QStringList{"At $100B the image has 78 where the patch expects 1"});
    EXPECT_EQ(Image().Peek(Body()), 78);
    EXPECT_TRUE(Bar().isVisible());
}

TEST_F(TRecoveryBarTest, ForgetsOneAndOffersTheNext) {
    LoadWithOffer();
    CommitCell("78");
    Enter(fuelTab);
    Type(fuelTab, firstCell, 2, 1, "79");
    Click(fuelTab, "btnSavePT");
    Enter(romTab);
    Choose(0);
    EXPECT_EQ(Extent(), "2 bytes in 1 map");
    Click(romTab, "btnForget");
    EXPECT_EQ(Extent(), "1 byte in 1 map");
    Click(romTab, "btnForget");
    EXPECT_FALSE(Bar().isVisible());
    EXPECT_TRUE(Kept().empty());
    EXPECT_EQ(Image().Peek(Body()), 1);
    EXPECT_FALSE(On<QPushButton>(romTab, "btnSave").isEnabled());
}

TEST_F(TRecoveryBarTest, OffersWhatAWindowThatWasClosedHasLeft) {
    MakeSpec("A.SPC");
    const QString file = MakeImage("A.BIN");
    {
        TfrmNotebook before;
        before.show();
        before.tmrSplashTimer();
        dialogs.opens = {file};
        FindControl<QPushButton>(before, "btnLoad").click();
        FindControl<QRadioButton>(before, "rdoROMtemplate0").click();
        before.PageControl1->SelectByUser(fuelTab);
        auto &grid = FindControl<TStringAlignGrid>(*before.Page(fuelTab), firstCell);
        grid.SetCell(1, 1, "77");
        dynamic_cast<TfrmMaps *>(before.Page(fuelTab))->grdPTMapAfterEdit(1, 1);
        dialogs.answers = {TAnswer::Yes}; // "Commit Changes?"
        ASSERT_TRUE(before.close());
    }
    Load(file);
    EXPECT_EQ(Extent(), "1 byte");
    Click(romTab, "btnBringBack");
    EXPECT_EQ(Image().Peek(fuelPT + 6 + 5), 77);
}

TEST_F(TRecoveryBarTest, ShowsAnOfferOnThePageCompare) {
    LoadWithOffer();
    Click(romTab, "btnShowRecovered");
    QWidget &page = *window.CurrentPage();
    EXPECT_EQ(FindControl<QLabel>(page, "lblTotal").text(),
              "1 byte differs from what was not saved");
    EXPECT_EQ(FindControl<TStringAlignGrid>(page, "grdChanges").Cell(1, 1), "1\n77");
    EXPECT_EQ(Image().Peek(fuelPT + 6 + 5), 1) << "it is only shown";
    EXPECT_TRUE(Bar().isVisibleTo(window.Page(romTab)));
}

TEST_F(TRecoveryBarTest, SaysWhyAnOfferThatDoesNotFitIsNotShown) {
    LoadWithOffer();
    Image().Poke(fuelPT + 6 + 5, 99); // committed meanwhile
    Click(romTab, "btnShowRecovered");
    EXPECT_EQ(dialogs.messages.size(), 1);
    EXPECT_EQ(window.PageControl1->currentIndex(), romTab);
}

TEST_F(TRecoveryBarTest, SaysOnceThatNothingCanBeKept) {
    fs::create_directories(ownState.Folder().parent_path());
    PutFile(ownState.Folder(), {'x'});
    LoadAndPlace();
    EXPECT_THAT(Said().toStdString(), testing::HasSubstr("Kept changes cannot be looked at: "));
    CommitCell("77");
    EXPECT_THAT(Said().toStdString(), testing::HasSubstr("Committed changes cannot be kept"));
    window.statusBar()->clearMessage();
    CommitCell("78");
    EXPECT_EQ(Said(), "");
    EXPECT_EQ(dialogs.messages, QStringList());
    dialogs.saves = {ImageFile()};
    dialogs.answers = {TAnswer::Yes};
    Click(romTab, "btnSave");
    EXPECT_EQ(GetFile(folder / "A.BIN").at(static_cast<std::size_t>(Body())), 78);
}

TEST_F(TRecoveryBarTest, KeysReachItsButtons) {
    LoadWithOffer();
    On<QPushButton>(romTab, "btnBringBack").setFocus();
    QTest::keyClick(&On<QPushButton>(romTab, "btnBringBack"), Qt::Key_Space);
    EXPECT_EQ(Image().Peek(Body()), 77);
}
} // namespace
