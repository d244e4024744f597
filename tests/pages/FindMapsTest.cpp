// The page "Find Maps": what it lists, tells and draws, with keys and mouse on the samples.
#include "pages/FindMapsFixture.h"

namespace {
class TFindMapsTest : public TFindMapsFixture {};

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
