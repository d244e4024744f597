// The page "Find Maps": what becomes of found maps, in the notebook, in "File Contents", in a spec
// file.
#include "pages/FindMapsFixture.h"

namespace {
class TFindMapsUseTest : public TFindMapsFixture {};

TEST_F(TFindMapsUseTest, GivesTheChosenMapToTheNotebookByKeys) {
    FindInSample();
    List().setFocus();
    ChooseLine(fuel);
    Press(Qt::Key_1);
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::PT), fuel);
    EXPECT_EQ(Said(), "Fuel Maps - Part Throttle is at $B2C6 now");
    EXPECT_EQ(Line(fuel).text(Given), "Fuel Maps - Part Throttle");
    ChooseLine(idle);
    Press(Qt::Key_2);
    Press(Qt::Key_6);
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::PT), fuel) << "it stays";
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::Idle), idle);
    EXPECT_EQ(PlaceOf(window.workspace.timingMapSet, TMapKind::WOT), idle);
    EXPECT_EQ(Line(idle).text(Given), "Fuel Maps - Idle, Timing Maps - WOT");
    ChooseLine(timing);
    Press(Qt::Key_4);
    EXPECT_EQ(PlaceOf(window.workspace.timingMapSet, TMapKind::PT), timing);
    EXPECT_EQ(Line(timing).text(Given), "Timing Maps - Part Throttle");
}

TEST_F(TFindMapsUseTest, GivesNoMapWhatItCannotBe) {
    FindInSample();
    ChooseLine(idle);
    EXPECT_FALSE(Button("btnGiveFuelPT").isEnabled());
    EXPECT_FALSE(Button("btnGiveTimingPT").isEnabled());
    for (const char *button :
         {"btnGiveFuelIdle", "btnGiveFuelWOT", "btnGiveTimingIdle", "btnGiveTimingWOT"})
        EXPECT_TRUE(Button(button).isEnabled()) << button;
    Press(Qt::Key_1);
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::PT), 0);
    EXPECT_EQ(Said(), "A map without load can only be an idle or a full throttle map");
    EXPECT_EQ(Button("btnGiveFuelPT").statusTip(), Said());
    ChooseLine(fuel);
    EXPECT_TRUE(Button("btnGiveFuelPT").isEnabled());
    EXPECT_TRUE(Button("btnGiveTimingPT").isEnabled()) << "what it seems to be may be wrong";
    EXPECT_FALSE(Button("btnGiveTimingIdle").isEnabled());
    Press(Qt::Key_5);
    EXPECT_EQ(PlaceOf(window.workspace.timingMapSet, TMapKind::Idle), 0);
    EXPECT_EQ(Said(), "A map over load can only be a part throttle map");
}

TEST_F(TFindMapsUseTest, GivesByTheButtonsToo) {
    FindInSample();
    ChooseLine(timing);
    ClickOn("btnGiveTimingPT");
    EXPECT_EQ(PlaceOf(window.workspace.timingMapSet, TMapKind::PT), timing);
    EXPECT_EQ(Said(), "Timing Maps - Part Throttle is at $C91A now");
}

TEST_F(TFindMapsUseTest, GivesAllSix) {
    FindInSample();
    ClickOn("btnGiveSix");
    const TWorkspace &workspace = window.workspace;
    EXPECT_EQ(PlaceOf(workspace.fuelMapSet, TMapKind::PT), fuel);
    EXPECT_EQ(PlaceOf(workspace.fuelMapSet, TMapKind::Idle), idle);
    EXPECT_EQ(PlaceOf(workspace.fuelMapSet, TMapKind::WOT), 0xB43D);
    EXPECT_EQ(PlaceOf(workspace.timingMapSet, TMapKind::PT), timing);
    EXPECT_EQ(PlaceOf(workspace.timingMapSet, TMapKind::Idle), 0xC8D0);
    EXPECT_EQ(PlaceOf(workspace.timingMapSet, TMapKind::WOT), 0xCA04);
    EXPECT_EQ(Said(), "All six maps of the notebook have their places now");
    EXPECT_EQ(Line(0xCA04).text(Given), "Timing Maps - WOT");
}

TEST_F(TFindMapsUseTest, PlacesMapsBeyond64KiBWhereTheyAre) {
    LoadSample("FERRO64K.BIN");
    const TBytes sample = Get(0, 0x10000);
    Image().data.fill(0xFF);
    Put(0x10000, sample);
    Image().size = 0x20000;
    Find();
    ClickOn("btnGiveSix");
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::PT), 0x10000 + fuel);
    EXPECT_EQ(Line(0x10000 + idle).text(Given), "Fuel Maps - Idle");
    ChooseLine(0x10000 + fuel);
    page->DrawChosen();
    EXPECT_EQ(window.findChild<TfrmQuickChart *>()->windowTitle(), "Map Offset: $1B2C6");
    ClickOn("btnShowContents");
    EXPECT_EQ(Contents().CurrentOffset(), std::size_t{0x10000 + fuel});
    EXPECT_EQ(ColorAt(0x10000 + fuel), TColor{0x008002});
}

TEST_F(TFindMapsUseTest, GivesNoMapThatBeginsTheImage) {
    LoadSample("FERRO64K.BIN");
    Put(0, Get(fuel, 0x10000 - fuel));
    Image().size = 0x10000 - fuel;
    Find();
    ChooseLine(0);
    Press(Qt::Key_1);
    EXPECT_EQ(Said(), "Fuel Maps - Part Throttle was not moved: no map begins at $0000")
        << "0 stands for no place";
    EXPECT_EQ(Line(0).text(Given), "");
    ClickOn("btnGiveSix");
    EXPECT_EQ(Said(), "Maps given: 5; not found, and left alone: Fuel Maps - Part Throttle");
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::Idle), idle - fuel);
}

TEST_F(TFindMapsUseTest, DoesNothingToANotebookThatItIsNotIn) {
    LoadSample("FERRO64K.BIN");
    TfrmFindMaps alone(nullptr, window.workspace);
    alone.ShowPage();
    alone.DrawChosen();
    alone.btnGiveSixClick();
    alone.btnUseLocationsClick();
    alone.btnShowContentsClick();
    alone.btnSaveFoundClick();
    EXPECT_EQ(PlaceOf(window.workspace.fuelMapSet, TMapKind::PT), 0);
    EXPECT_EQ(FindControl<QTreeWidget>(alone, "lstFound").topLevelItem(0)->text(Rank), "1");
}

TEST_F(TFindMapsUseTest, TellsWhatIsGivenWhateverTheOrder) {
    FindInSample();
    FindControl<QAction>(*page, "actSortGiven").trigger();
    ClickOn("btnGiveSix");
    QStringList given = ColumnTexts(Given);
    EXPECT_TRUE(std::is_sorted(given.begin(), given.end()));
    given.removeAll("");
    EXPECT_EQ(given, QStringList({"Fuel Maps - Idle", "Fuel Maps - Part Throttle",
                                  "Fuel Maps - WOT", "Timing Maps - Idle",
                                  "Timing Maps - Part Throttle", "Timing Maps - WOT"}));
}

TEST_F(TFindMapsUseTest, ShowsAMapInFileContentsWithTheMarksOfASearch) {
    FindInSample();
    ChooseLine(fuel);
    ClickOn("btnShowContents");
    EXPECT_EQ(Current(), contentsTab);
    EXPECT_EQ(QApplication::focusWidget(), &Bytes());
    EXPECT_EQ(Contents().CurrentOffset(), std::size_t{fuel});
    EXPECT_EQ(Said(), "1 map, at $B2C6. Marked cells in all: 224; 2-D maps counted: 1, linear "
                      "maps: 0");
    std::vector<TColor> shown;
    for (int i = -1; i < 230; ++i)
        shown.push_back(ColorAt(fuel + i));
    FindControl<QAction>(Contents(), "ClearAllMarkers1").trigger();
    Bytes().SetCurrent(1, 1);
    Bytes().SetCurrent(fuel % 16 + 1, fuel / 16 + 1);
    FindControl<QAction>(Contents(), "Fuel3").trigger(); // "Highlight Map From Current Cell"
    for (int i = -1; i < 230; ++i)
        EXPECT_EQ(shown[static_cast<std::size_t>(i + 1)], ColorAt(fuel + i)) << i;
    EXPECT_EQ(ColorAt(fuel), TColor{0x008002});
}

TEST_F(TFindMapsUseTest, MarksAMapWhoseBytesNoSearchWouldFind) {
    FindInSample();
    const int body = idle + 2 + 16;
    ChooseLine(idle);
    Contents().ShowFile();
    Contents().session.parameters.fuelMinimum = 255;
    Contents().session.parameters.rpmLocation = 1;
    ClickOn("btnShowContents");
    EXPECT_EQ(ColorAt(idle), TColor{0x008000});
    EXPECT_EQ(ColorAt(idle + 1), clBlue);
    EXPECT_NE(ColorAt(body + 15), clWindow);
    EXPECT_EQ(Contents().session.parameters.rpmLocation, 1) << "what the user has set stays";
}

TEST_F(TFindMapsUseTest, GivesItsRAMLocationsToTheSearches) {
    FindInSample();
    EXPECT_EQ(OnPage<QLabel>("lblLocations").text(),
              "RPM in RAM cell $4A: 6 of 6 likely maps. Load in RAM cell $4C: 2 of 2 likely maps");
    ClickOn("btnUseLocations");
    EXPECT_EQ(Said(),
              "The searches look for the RAM locations 74 ($4A) of RPM and 76 ($4C) of load");
    Enter(contentsTab); // for the first time with this image
    EXPECT_EQ(Contents().session.parameters.rpmLocation, 74);
    EXPECT_EQ(Contents().session.parameters.loadLocation, 76);
    Click(contentsTab, "Button1");
    EXPECT_EQ(FindControl<QLabel>(window, "lblRPMLocation").text(), "RPM: 74");
    FindControl<QAction>(Contents(), "Fuel6").trigger();
    EXPECT_TRUE(Said().startsWith("2 maps, first at $B406.")) << Said().toStdString();
}

TEST_F(TFindMapsUseTest, SavesASpecAsROMInformationDoes) {
    FindInSample();
    EXPECT_TRUE(Button("btnSaveFound").isEnabled());
    ClickOn("btnGiveSix");
    dialogs.saves.push_back(QString::fromStdString((folder / "FOUND.SPC").string()));
    dialogs.inputs.push_back("Found");
    ClickOn("btnSaveFound");
    EXPECT_EQ(window.CurrentPage(), page);
    std::ifstream file(folder / "FOUND.SPC");
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    for (const char *place : {"$B2C6", "$B406", "$B43D", "$C91A", "$C8D0", "$CA04"})
        EXPECT_NE(text.find(place), std::string::npos) << place;
    EXPECT_EQ(text.substr(0, 7), "; Found");
}

TEST_F(TFindMapsUseTest, SavesNoSpecWhileROMInformationCannot) {
    FindInSample();
    On<QPushButton>(romTab, "btnSaveSpec").setEnabled(false);
    Enter(romTab);
    Enter(window.PageIndex(page));
    EXPECT_FALSE(Button("btnSaveFound").isEnabled());
}

TEST_F(TFindMapsUseTest, KnowsWhichMapsTheNotebookHas) {
    LoadSample("FERRO32K.BIN");
    Choose(0);
    Find();
    const QString partThrottle =
        QString::fromStdString(FormatOffset(PlaceOf(window.workspace.fuelMapSet, TMapKind::PT)));
    EXPECT_EQ(Line(partThrottle.mid(1).toInt(nullptr, 16)).text(Given),
              "Fuel Maps - Part Throttle");
    window.workspace.fuelMapSet.PTMap->SetOffset(0x100);
    Enter(fuelTab);
    Find();
    EXPECT_EQ(Line(partThrottle.mid(1).toInt(nullptr, 16)).text(Given), "");
}
} // namespace
