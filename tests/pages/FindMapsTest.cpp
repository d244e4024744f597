// The page "Find Maps", worked with keys and mouse on the sample images.
#include "discovery/FindMapsPage.h"
#include "filedisplay/FileDisplay.h"
#include "maps/QuickChart.h"
#include "pages/WindowFixture.h"

#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTreeWidget>

namespace {
// Columns of the list.
enum TListColumn { Rank, Kind, Offset, Shape, Rpm, Percent, Chance, Picture, Given, Why };

class TFindMapsTest : public TWindowTest {
protected:
    // Of the sample of 64 KiB.
    static constexpr int fuel = 0xB2C6;
    static constexpr int timing = 0xC91A;
    static constexpr int idle = 0xB406;

    /// Loads a sample; its folder is the current one then, with its spec files.
    void LoadSample(const std::string &name) {
        for (const char *file : {"FERRO32K.BIN", "FERRO64K.BIN", "FERRO32K.SPC"})
            std::filesystem::copy_file(
                std::filesystem::path(FERROLYN_SOURCE_DIR) / "samples" / file, folder / file,
                std::filesystem::copy_options::overwrite_existing);
        TWindowTest::Load(QString::fromStdString((folder / name).string()));
    }
    void FindInSample() {
        LoadSample("FERRO64K.BIN");
        Find();
    }
    void Find() {
        Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        page = dynamic_cast<TfrmFindMaps *>(window.CurrentPage());
        ASSERT_TRUE(page);
    }
    template <class Control>
    Control &OnPage(const QString &name) {
        return FindControl<Control>(*page, name);
    }
    QPushButton &Button(const QString &name) { return OnPage<QPushButton>(name); }
    void ClickOn(const QString &button) { QTest::mouseClick(&Button(button), Qt::LeftButton); }
    QTreeWidget &List() { return OnPage<QTreeWidget>("lstFound"); }
    QString Headline() { return OnPage<QLabel>("lblFound").text(); }
    QString Reasons() { return OnPage<QPlainTextEdit>("memReasons").toPlainText(); }
    QString Said() { return window.StatusBar1->currentMessage(); }

    /// The line of the map at an offset.
    QTreeWidgetItem &Line(int offset) {
        const QString text = "$" + QString::number(offset, 16).toUpper().rightJustified(4, '0');
        const QList<QTreeWidgetItem *> lines = List().findItems(text, Qt::MatchExactly, Offset);
        if (lines.size() != 1)
            throw std::runtime_error("not listed once: " + text.toStdString());
        return *lines.constFirst();
    }
    void ChooseLine(int offset) { List().setCurrentItem(&Line(offset)); }
    QStringList ColumnTexts(int column) {
        QStringList texts;
        for (int line = 0; line < List().topLevelItemCount(); ++line)
            texts << List().topLevelItem(line)->text(column);
        return texts;
    }
    /// As a user does to sort.
    void ClickHeader(int column) {
        QHeaderView &header = *List().header();
        const int x = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
        List().horizontalScrollBar()->setValue(0);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {x, header.height() / 2});
    }
    int PlaceOf(const TMapSet &set, TMapKind kind) { return set.Map(kind).GetLocation(); }
    TfrmFileContents &Contents() {
        return dynamic_cast<TfrmFileContents &>(*window.Page(contentsTab));
    }
    TStringAlignGrid &Bytes() { return On<TStringAlignGrid>(contentsTab, "grdFile"); }
    TColor ColorAt(int offset) { return Bytes().CellColor(offset % 16 + 1, offset / 16 + 1); }

    TfrmFindMaps *page = nullptr;
};

TEST_F(TFindMapsTest, SearchesWhenItIsCalledForAndHasTheKeyboardInItsList) {
    FindInSample();
    EXPECT_EQ(window.PageControl1->tabText(Current()), "Find Maps");
    EXPECT_TRUE(Headline().startsWith("6 likely maps in 64 KiB")) << Headline().toStdString();
    EXPECT_EQ(QApplication::focusWidget(), &List());
    EXPECT_EQ(List().currentItem(), List().topLevelItem(0));
    QStringList likely = ColumnTexts(Offset).mid(0, 6);
    likely.sort();
    EXPECT_EQ(likely, QStringList({"$B2C6", "$B406", "$B43D", "$C8D0", "$C91A", "$CA04"}));
}

TEST_F(TFindMapsTest, TellsOfEachMapWhatItSeemsToBe) {
    FindInSample();
    const QTreeWidgetItem &line = Line(fuel);
    EXPECT_EQ(line.text(Kind), "Fuel, part throttle");
    EXPECT_EQ(line.text(Shape), "16 x 12");
    // As the page "Fuel Maps" shows the axes of the map.
    window.workspace.fuelMapSet.PTMap->SetOffset(fuel);
    const TAxisSet &axes = *window.workspace.fuelMapSet.PTMap->axes;
    const auto end = [](const TAxisData &axis, int point) {
        return QString::number(std::lround(axis.values->GetItem(point, 0)->GetConverted()));
    };
    EXPECT_EQ(line.text(Rpm), end(*axes.rpmAxis, 0) + "-" + end(*axes.rpmAxis, 15));
    EXPECT_EQ(line.text(Percent),
              end(*axes.throttleAxis, 0) + "-" + end(*axes.throttleAxis, 11) + " %");
    EXPECT_TRUE(line.text(Chance).endsWith(" %, likely")) << line.text(Chance).toStdString();
    EXPECT_FALSE(line.text(Why).isEmpty());
    EXPECT_EQ(line.text(Given), "");
    EXPECT_EQ(Line(idle).text(Shape), "16");
    EXPECT_EQ(Line(idle).text(Percent), "") << "it has no load axis";
}

TEST_F(TFindMapsTest, SaysAllReasonsOfTheChosenMap) {
    FindInSample();
    ChooseLine(timing);
    EXPECT_TRUE(Reasons().startsWith("Timing, part throttle at $C91A, 16 x "))
        << Reasons().toStdString();
    EXPECT_GT(Reasons().count('\n'), 2);
    const QString first = Reasons().section('\n', 1, 1);
    ASSERT_TRUE(first.startsWith("For it: ")) << first.toStdString();
    EXPECT_TRUE(Line(timing).text(Why).startsWith(first.section(": ", 1) + "; "))
        << Line(timing).text(Why).toStdString();
}

TEST_F(TFindMapsTest, DrawsTheBodyOfEachMapInValueColours) {
    FindInSample();
    const QImage framed = Line(fuel).icon(Picture).pixmap({200, 200}).toImage();
    const QImage picture = framed.copy(0, 2, 32, framed.height() - 4); // the rest is room
    ASSERT_EQ(picture.width() % 16, 0);
    ASSERT_EQ(picture.height() % 12, 0);
    // Load runs downwards: the bytes of a column lie one behind the other.
    const int body = fuel + 2 + 16 + 2 + 12;
    const auto dot = [&](int rpm, int load) {
        return picture.pixelColor(rpm * picture.width() / 16, load * picture.height() / 12);
    };
    EXPECT_EQ(Image().Peek(body) == Image().Peek(body + 1), dot(0, 0) == dot(0, 1));
    int least = 0;
    int largest = 0;
    for (int i = 0; i < 16 * 12; ++i) {
        least = Image().Peek(body + i) < Image().Peek(body + least) ? i : least;
        largest = Image().Peek(body + i) > Image().Peek(body + largest) ? i : largest;
    }
    EXPECT_EQ(dot(least / 12, least % 12).name(), "#440154") << "the ends of the scale";
    EXPECT_EQ(dot(largest / 12, largest % 12).name(), "#fde725");
}

TEST_F(TFindMapsTest, SortsByAClickOnAHeaderNumbersAsNumbers) {
    FindInSample();
    ClickHeader(Rpm);
    std::vector<int> speeds;
    for (const QString &range : ColumnTexts(Rpm))
        speeds.push_back(range.section('-', 0, 0).toInt());
    EXPECT_TRUE(std::is_sorted(speeds.begin(), speeds.end()));
    ClickHeader(Offset);
    QStringList offsets = ColumnTexts(Offset);
    EXPECT_TRUE(std::is_sorted(offsets.begin(), offsets.end()));
    const QStringList before = ColumnTexts(Rank);
    ClickHeader(Offset);
    offsets = ColumnTexts(Offset);
    EXPECT_TRUE(std::is_sorted(offsets.rbegin(), offsets.rend()));
    ClickHeader(Rank);
    const QStringList ranks = ColumnTexts(Rank);
    for (int line = 0; line < ranks.size(); ++line)
        EXPECT_EQ(ranks[line], QString::number(line + 1));
    EXPECT_NE(ranks, before);
}

TEST_F(TFindMapsTest, SortsByTheMenuToo) {
    FindInSample();
    FindControl<QAction>(*page, "actSortOffset").trigger();
    QStringList offsets = ColumnTexts(Offset);
    EXPECT_TRUE(std::is_sorted(offsets.begin(), offsets.end()));
    FindControl<QAction>(*page, "actSortOffset").trigger();
    offsets = ColumnTexts(Offset);
    EXPECT_TRUE(std::is_sorted(offsets.rbegin(), offsets.rend()));
    EXPECT_TRUE(List().currentItem()) << "what was chosen stays";
}

TEST_F(TFindMapsTest, GivesTheChosenMapToTheNotebookByKeys) {
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

TEST_F(TFindMapsTest, GivesNoMapWhatItCannotBe) {
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

TEST_F(TFindMapsTest, GivesByTheButtonsToo) {
    FindInSample();
    ChooseLine(timing);
    ClickOn("btnGiveTimingPT");
    EXPECT_EQ(PlaceOf(window.workspace.timingMapSet, TMapKind::PT), timing);
    EXPECT_EQ(Said(), "Timing Maps - Part Throttle is at $C91A now");
}

TEST_F(TFindMapsTest, GivesAllSix) {
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

TEST_F(TFindMapsTest, PlacesMapsBeyond64KiBWhereTheyAre) {
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

TEST_F(TFindMapsTest, GivesNoMapThatBeginsTheImage) {
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

TEST_F(TFindMapsTest, DoesNothingToANotebookThatItIsNotIn) {
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

TEST_F(TFindMapsTest, TellsWhatIsGivenWhateverTheOrder) {
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

TEST_F(TFindMapsTest, DrawsAMapByEnterAndByADoubleClick) {
    FindInSample();
    ChooseLine(timing);
    List().setFocus();
    Press(Qt::Key_Return);
    auto *chart = window.findChild<TfrmQuickChart *>();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->windowTitle(), "Map Offset: $C91A");
    delete chart;
    ChooseLine(idle);
    List().scrollToItem(&Line(idle));
    const QPoint at = List().visualItemRect(&Line(idle)).center();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, at);
    chart = window.findChild<TfrmQuickChart *>();
    ASSERT_TRUE(chart);
    EXPECT_EQ(chart->windowTitle(), "Map Offset: $B406");
}

TEST_F(TFindMapsTest, ShowsAMapInFileContentsWithTheMarksOfASearch) {
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

TEST_F(TFindMapsTest, MarksAMapWhoseBytesNoSearchWouldFind) {
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

TEST_F(TFindMapsTest, GivesItsRAMLocationsToTheSearches) {
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

TEST_F(TFindMapsTest, SavesASpecAsROMInformationDoes) {
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

TEST_F(TFindMapsTest, SavesNoSpecWhileROMInformationCannot) {
    FindInSample();
    On<QPushButton>(romTab, "btnSaveSpec").setEnabled(false);
    Enter(romTab);
    Enter(window.PageIndex(page));
    EXPECT_FALSE(Button("btnSaveFound").isEnabled());
}

TEST_F(TFindMapsTest, SaysWhatIsNotThere) {
    Find();
    EXPECT_EQ(Headline(), "No ROM image is loaded");
    EXPECT_EQ(List().topLevelItemCount(), 0);
    EXPECT_EQ(Reasons(), "");
    EXPECT_EQ(OnPage<QLabel>("lblLocations").text(), "");
    for (const QPushButton *button : page->findChildren<QPushButton *>())
        EXPECT_EQ(button->isEnabled(), button->objectName() == "btnSearch" ||
                                           button->objectName() == "btnClose" ||
                                           button->objectName() == "btnHelp")
            << button->objectName().toStdString();
    Press(Qt::Key_1);
    Press(Qt::Key_Return);
    EXPECT_FALSE(window.findChild<TfrmQuickChart *>());
    page->btnShowContentsClick();
    EXPECT_EQ(window.CurrentPage(), page);

    Image().size = 0x8000;
    Image().data.fill(0xFF);
    ClickOn("btnSearch");
    EXPECT_EQ(Headline(), "No likely map was found in 32 KiB");
    EXPECT_EQ(Said(), Headline());
    Image().size = 15;
    ClickOn("btnSearch");
    EXPECT_EQ(Headline(), "No likely map was found in 15 bytes");
}

TEST_F(TFindMapsTest, SearchesAgainWhenItIsEnteredWithOtherBytes) {
    FindInSample();
    ChooseLine(timing);
    Enter(fuelTab);
    Find();
    EXPECT_EQ(List().currentItem(), &Line(timing)) << "the same bytes: all is as it was left";
    Image().Poke(fuel + 1, 0); // no count of points
    Enter(fuelTab);
    Enter(window.PageIndex(page));
    EXPECT_FALSE(ColumnTexts(Offset).contains("$B2C6"));
    Enter(romTab);
    LoadSample("FERRO32K.BIN");
    Find();
    EXPECT_TRUE(Headline().contains("32 KiB")) << Headline().toStdString();
    EXPECT_FALSE(ColumnTexts(Offset).contains("$C91A"));
}

TEST_F(TFindMapsTest, SearchesAgainWhenAsked) {
    FindInSample();
    Image().Poke(fuel + 1, 0);
    EXPECT_TRUE(ColumnTexts(Offset).contains("$B2C6"));
    ClickOn("btnSearch");
    EXPECT_FALSE(ColumnTexts(Offset).contains("$B2C6"));
    EXPECT_EQ(Said(), Headline());
}

TEST_F(TFindMapsTest, KnowsWhichMapsTheNotebookHas) {
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

TEST_F(TFindMapsTest, IsOneAndClosesLikeTheOthers) {
    FindInSample();
    const int tabs = window.PageCount();
    Enter(fuelTab);
    Find();
    EXPECT_EQ(window.PageCount(), tabs);
    ClickOn("btnClose");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.PageCount(), tabs - 1);
}

TEST_F(TFindMapsTest, TellsReadersOfALineWhatItShows) {
    FindInSample();
    const QTreeWidgetItem &line = *List().topLevelItem(0);
    const QString told = line.data(Rank, Qt::AccessibleTextRole).toString();
    EXPECT_TRUE(told.startsWith("1: " + line.text(Kind) + " at " + line.text(Offset)))
        << told.toStdString();
    EXPECT_TRUE(told.endsWith("likely")) << told.toStdString();
    EXPECT_FALSE(line.data(Picture, Qt::AccessibleTextRole).toString().isEmpty());
}
} // namespace
