// The page "Moved Maps": from a known image with its spec file to another one of its family.
#include "discovery/MovedMapsPage.h"

#include "forms/Aligrid.h"
#include "pages/WindowFixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTreeWidget>

namespace fs = std::filesystem;

namespace {
/// FERRO32K.BIN is the known image; the image in memory has its maps $300 higher.
class TMovedMapsPageTest : public TWindowTest {
protected:
    static constexpr int moved = 0x0300;
    static constexpr std::array<int, 6> places{0x6000, 0x6100, 0x6140, 0x6200, 0x6300, 0x6340};

    TMovedMapsPageTest() {
        for (const char *file : {"FERRO32K.BIN", "FERRO32K.SPC"})
            fs::copy_file(fs::path(FERROLYN_SOURCE_DIR) / "samples" / file, file);
        std::ifstream stream("FERRO32K.BIN", std::ios::binary);
        known.assign(std::istreambuf_iterator<char>(stream), {});
        TBytes image(known.size(), 0xFF);
        std::copy(known.begin(), known.begin() + 0x5000, image.begin());
        std::copy(known.begin() + places[0], known.begin() + 0x6400,
                  image.begin() + places[0] + moved);
        fs::create_directory("other");
        std::ofstream("other/NEW.BIN", std::ios::binary)
            .write(reinterpret_cast<const char *>(image.data()), std::ssize(image));
        Image().LoadFromFile("other/NEW.BIN");
        window.workspace.romFileName = "other/NEW.BIN";
        timing = TimingConstants();
    }
    ~TMovedMapsPageTest() override { TimingConstants() = timing; }

    void Look() { window.ShowMovedMaps(TOtherImage(fs::absolute("FERRO32K.BIN"))); }
    TEmbeddedForm &Page() { return *window.CurrentPage(); }
    template <class Control>
    Control &Find(const QString &name) {
        return FindControl<Control>(Page(), name);
    }
    QTreeWidget &List() { return Find<QTreeWidget>("lstMoved"); }
    void Choose(int line) { List().setCurrentItem(List().topLevelItem(line)); }
    QStringList Line(int line) {
        QStringList texts;
        for (int column = 0; column < 5; ++column)
            texts << List().topLevelItem(line)->text(column);
        return texts;
    }
    QString Headline() { return Find<QLabel>("lblMoved").text(); }
    QPushButton &Button(const QString &name) { return Find<QPushButton>(name); }
    QString Reasons() { return Find<QPlainTextEdit>("memReasons").toPlainText(); }
    std::vector<int> Placed() {
        const auto &fuel = window.workspace.fuelMapSet;
        const auto &spark = window.workspace.timingMapSet;
        return {fuel.PTMap->GetLocation(),    fuel.IdleMap->GetLocation(),
                fuel.WOTMap->GetLocation(),   spark.PTMap->GetLocation(),
                spark.IdleMap->GetLocation(), spark.WOTMap->GetLocation()};
    }
    static std::vector<int> AllMoved() {
        std::vector<int> all;
        for (const int place : places)
            all.push_back(place + moved);
        return all;
    }
    /// Of the image in memory, as another file that is loaded would have it.
    void Change(int offset, std::uint8_t byte) {
        Image().Poke(offset, byte);
        Page().ShowPage();
    }

    TBytes known;
    TTimingConstants timing;
};

TEST_F(TMovedMapsPageTest, AsksForTheKnownImageWhenItComes) {
    dialogs.opens = {""};
    FindControl<QAction>(window, "actMovedMaps").trigger();
    EXPECT_EQ(window.PageControl1->tabText(Current()), "Moved Maps");
    EXPECT_EQ(Headline(), "No known image is chosen");
    EXPECT_EQ(List().topLevelItemCount(), 0);
    for (const char *button : {"btnPlaceSure", "btnPlaceMap"})
        EXPECT_FALSE(Button(button).isEnabled());
    dialogs.opens = {"FERRO32K.BIN"};
    Button("btnOther").click();
    EXPECT_EQ(List().topLevelItemCount(), 7);
    FindControl<QAction>(window, "actMovedMaps").trigger();
    EXPECT_EQ(dialogs.openDialogs.size(), 2) << "it has one";
}

TEST_F(TMovedMapsPageTest, TakesTheSpecFileThatIsNamedAsTheImage) {
    std::ofstream("A.SPC") << "; Another\n[Main]\n";
    Look();
    EXPECT_EQ(Find<QComboBox>("cboSpec").currentText(),
              "Ferrolyn sample 32K, offsets (FERRO32K.SPC)");
    Find<QComboBox>("cboSpec").setCurrentIndex(0);
    EXPECT_EQ(Headline(), "Choose the spec file of the known image: it says where its maps are");
    EXPECT_EQ(List().topLevelItemCount(), 0);
}

TEST_F(TMovedMapsPageTest, SaysWhatIsMissing) {
    fs::remove("FERRO32K.SPC");
    Look();
    EXPECT_EQ(Headline(), "Beside the known image lies no spec file that says where its maps are");
    Image().size = 0;
    Page().ShowPage();
    EXPECT_EQ(Headline(), "No ROM image is loaded");
}

TEST_F(TMovedMapsPageTest, ListsWhereTheMapsLie) {
    Look();
    EXPECT_EQ(Headline(), "Maps of FERRO32K.BIN in this image: 6 sure, 0 unsure, 0 not found");
    EXPECT_EQ(Line(0), QStringList({"Fuel PT", "$6000", "$6300", "sure", ""}));
    EXPECT_EQ(Line(5), QStringList({"Timing WOT", "$6340", "$6640", "sure", ""}));
    EXPECT_EQ(Line(6), QStringList({"Max RPM", "$01F0", "$01F0", "sure", ""}));
}

TEST_F(TMovedMapsPageTest, SaysWhyAndShowsBothMaps) {
    Image().Poke(0x6320, 0x80);
    Look();
    EXPECT_THAT(Reasons().toStdString(), testing::HasSubstr("Values that are equal: 191 of 192."));
    EXPECT_EQ(Find<QLabel>("lblThere").text(), "In the known image: $6000");
    EXPECT_EQ(Find<QLabel>("lblHere").text(), "Here: $6300");
    EXPECT_EQ(Find<TStringAlignGrid>("grdThere").Cell(1, 1), "111");
    EXPECT_EQ(Find<TStringAlignGrid>("grdHere").Cell(1, 1), "128");
    EXPECT_EQ(Find<TStringAlignGrid>("grdHere").Cell(0, 1),
              Find<TStringAlignGrid>("grdThere").Cell(0, 1));
    Choose(6);
    EXPECT_EQ(Find<QLabel>("lblHere").text(), "Here: $01F0, 6800 RPM");
    EXPECT_TRUE(Find<TStringAlignGrid>("grdHere").isHidden());
}

TEST_F(TMovedMapsPageTest, LooksAtDegreesByTheKnownConstants) {
    window.workspace.timingMapSet.SetShowConverted(true);
    TimingConstants() = {0, 0};
    Look();
    Choose(3);
    EXPECT_EQ(Find<TStringAlignGrid>("grdHere").Cell(1, 1), "17.1");
    EXPECT_EQ(Find<TStringAlignGrid>("grdThere").Cell(1, 1), "17.1");
    EXPECT_EQ(TimingConstants().divider, 0);
    EXPECT_THAT(Find<QLabel>("lblTiming").text().toStdString(),
                testing::HasSubstr("timing_divider=0.65, timing_subtractor=12.7"));
}

TEST_F(TMovedMapsPageTest, PlacesWhatIsSure) {
    Look();
    Button("btnPlaceSure").click();
    EXPECT_EQ(Placed(), AllMoved());
    EXPECT_EQ(window.workspace.fuelMapSet.revLimiter.offset, 0x01F0);
    EXPECT_EQ(Line(0).constLast(), "yes");
    EXPECT_EQ(window.StatusBar1->currentMessage(),
              "Placed: Fuel PT, Fuel Idle, Fuel WOT, Timing PT, Timing Idle, Timing WOT, Max RPM");
}

TEST_F(TMovedMapsPageTest, LeavesWhatIsUnsureToTheUser) {
    window.workspace.fuelMapSet.SetOffsets(0, 0x1000, 0);
    Look();
    for (int i = 0; i < 16; ++i) // quite other values
        Image().Poke(0x6400 + 18 + i, static_cast<std::uint8_t>(i * 97));
    Page().ShowPage();
    ASSERT_EQ(Line(1).at(3), "unsure");
    Button("btnPlaceSure").click();
    EXPECT_EQ(Placed()[1], 0x1000);
    EXPECT_EQ(Placed()[2], 0x6440);
    Choose(1);
    EXPECT_THAT(Reasons().toStdString(), testing::StartsWith("The values differ much."));
    Button("btnPlaceMap").click();
    EXPECT_EQ(Placed()[1], 0x6400);
}

TEST_F(TMovedMapsPageTest, PlacesNothingThatWasNotFound) {
    Look();
    Choose(1);
    Change(0x6401, 0); // no such count
    EXPECT_EQ(Line(1), QStringList({"Fuel Idle", "$6100", "", "not found", ""}));
    EXPECT_EQ(List().indexOfTopLevelItem(List().currentItem()), 1);
    EXPECT_FALSE(Button("btnPlaceMap").isEnabled());
    EXPECT_EQ(Find<QLabel>("lblHere").text(), "Here: not found");
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(Placed()[1], 0);
}

TEST_F(TMovedMapsPageTest, PlacesOneByEnter) {
    Look();
    Choose(3);
    QTest::keyClick(&List(), Qt::Key_Return);
    EXPECT_EQ(Placed(), std::vector<int>({0, 0, 0, 0x6500, 0, 0}));
    EXPECT_EQ(Line(3).constLast(), "yes");
    EXPECT_EQ(window.StatusBar1->currentMessage(), "Placed: Timing PT");
}

TEST_F(TMovedMapsPageTest, WritesTheNewSpecFile) {
    Look();
    EXPECT_FALSE(Button("btnSaveMoved").isEnabled()) << "as on ROM Information";
    FindControl<QPushButton>(*window.Page(0), "btnSaveSpec").setEnabled(true);
    Page().ShowPage();
    Button("btnPlaceSure").click();
    dialogs.saves.push_back("NEW.SPC");
    dialogs.inputs.push_back("New");
    Button("btnSaveMoved").click();
    std::ifstream stream("NEW.SPC");
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_EQ(text, "; New\n[Fuel Maps]\npt_offset=$6300\nidle_offset=$6400\nwot_offset=$6440\n"
                    "[Timing Maps]\npt_offset=$6500\nidle_offset=$6600\nwot_offset=$6640\n"
                    "[Other Maps]\nrevlimit_offset=$01F0\n");
}

TEST_F(TMovedMapsPageTest, OfABadSpecFileSaysWhy) {
    std::ofstream("FERRO32K.SPC") << "; Bad\n[Main]\ntiming_divider=x\n";
    Look();
    EXPECT_EQ(dialogs.messages, QStringList("'x' is not a valid floating point value"));
    EXPECT_EQ(List().topLevelItemCount(), 0);
    EXPECT_EQ(Headline(), "");
}
} // namespace
