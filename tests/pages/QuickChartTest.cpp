// The quick chart: where its map comes from, what it shows of it, and how its buttons move the
// view.
#include "maps/QuickChart.h"

#include "pages/PageFixture.h"
#include "support/FakeMapViews.h"
#include "support/Wheel.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

namespace {
class TQuickChartTest : public TPageTest {
protected:
    TQuickChartTest() {
        TfrmBaseForm::ProgRegKey = "key";
        PlantMaps();
        window = new TfrmQuickChart(&owner);
    }
    ~TQuickChartTest() override { TfrmBaseForm::ProgRegKey.clear(); }

    TAreaChart &Chart() { return FindControl<TAreaChart>(*window, "chtMap"); }
    const std::vector<TChartSeries> &Series() { return Chart().Series(); }
    QString Offset() { return FindControl<QLineEdit>(*window, "edtOffset").text(); }
    std::array<int, 3> View() { return {Chart().Rotation(), Chart().Elevation(), Chart().Zoom()}; }
    std::vector<double> Values(std::size_t series) {
        std::vector<double> values;
        for (const TChartPoint &point : Series()[series].points)
            values.push_back(point.value);
        return values;
    }
    void ExpectDesignTime() {
        EXPECT_EQ(window->windowTitle(), "Quick Map");
        EXPECT_EQ(Offset(), "");
        ASSERT_EQ(Series().size(), 12U);
        EXPECT_EQ(Series()[0].title, "10%");
        EXPECT_TRUE(Series()[11].stairs);
        EXPECT_FALSE(Chart().isHidden());
    }

    QWidget owner;
    QPointer<TfrmQuickChart> window;
};

TEST_F(TQuickChartTest, IsAToolWindowThatShowsItsDesignAtFirst) {
    ExpectDesignTime();
    EXPECT_EQ(window->objectName(), "frmQuickChart");
    EXPECT_EQ(window->windowType(), Qt::Tool);
    EXPECT_FALSE(window->isModal());
    EXPECT_TRUE(window->windowFlags() & Qt::WindowSystemMenuHint);
    EXPECT_TRUE(window->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(window->windowFlags() & Qt::WindowMinMaxButtonsHint);
    EXPECT_FALSE(window->windowFlags() & Qt::WindowContextHelpButtonHint);
    EXPECT_TRUE(Chart().BottomInverted());
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TQuickChartTest, ItsOffsetBoxIsReadOnlyAndLabelled) {
    auto &box = FindControl<QLineEdit>(*window, "edtOffset");
    EXPECT_TRUE(box.isReadOnly());
    const auto labels = window->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
        return label->buddy() == &box && label->text() == "Offset";
    }));
}

TEST_F(TQuickChartTest, ThereIsNothingToAccept) {
    window->show();
    for (const QPushButton *button :
         {window->btnOK, window->btnCancel, window->btnFilter, window->btnHelp})
        EXPECT_FALSE(button->isVisible()) << button->objectName().toStdString();
}

TEST_F(TQuickChartTest, WithAnEmptyImageItShowsItsDesign) {
    Image().size = 0;
    window->SetMapKind(2);
    window->SetMapOffset(fuelPT);
    window->show();
    ExpectDesignTime();
}

TEST_F(TQuickChartTest, WithoutAnImageItShowsItsDesign) {
    RemoveImage();
    window->SetMapKind(1);
    window->SetMapOffset(fuelIdle);
    window->show();
    ExpectDesignTime();
}

TEST_F(TQuickChartTest, ATwoDimensionalMapIsDrawnBackwardsWithMatchingTitles) {
    window->SetMapKind(2);
    window->SetMapOffset(fuelPT);
    window->show();
    EXPECT_EQ(window->windowTitle(), "Map Offset: $1000");
    EXPECT_EQ(Offset(), "$1000");
    ASSERT_EQ(Series().size(), 3U);
    EXPECT_EQ(Series()[0].title, "100");
    EXPECT_EQ(Series()[1].title, "60");
    EXPECT_EQ(Series()[2].title, "20");
    EXPECT_EQ(Values(0), (std::vector<double>{3, 6, 9, 12}));
    EXPECT_EQ(Values(2), (std::vector<double>{1, 4, 7, 10}));
    EXPECT_EQ(Series()[0].points[3].label, "9600");
    EXPECT_EQ(Series()[0].points[3].x, 9600.0);
    EXPECT_EQ(Series()[0].points[3].color, 0x88000CU);
}

TEST_F(TQuickChartTest, ALinearMapIsOneSeries) {
    window->SetMapKind(1);
    window->SetMapOffset(fuelIdle);
    window->show();
    ASSERT_EQ(Series().size(), 1U);
    EXPECT_EQ(Series()[0].title, "0");
    EXPECT_EQ(Values(0), (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(Offset(), "$1200");
}

TEST_F(TQuickChartTest, KindAndPlaceMayBeGivenInEitherOrder) {
    window->SetMapOffset(fuelPT);
    window->SetMapKind(1);
    window->show();
    ASSERT_EQ(Series().size(), 1U);
    EXPECT_EQ(Values(0), (std::vector<double>{0xA5, 3, 100, 100})) << "the load axis, as a body";
    window->hide();
    window->SetMapKind(2);
    window->show();
    EXPECT_EQ(Series().size(), 3U);
}

TEST_F(TQuickChartTest, AMapOf16LoadPointsReplacesTheTwelveSeries) {
    PutMap(0x4000, {60, 60}, TBytes(16, 10));
    window->SetMapOffset(0x4000);
    window->show();
    EXPECT_EQ(Series().size(), 16U);
    EXPECT_EQ(Values(15), (std::vector<double>{1, 17}));
}

struct TPointer {
    std::uint8_t mask;
    int location;
    const char *shown;
};
class TQuickChartPointerTest : public TQuickChartTest,
                               public testing::WithParamInterface<TPointer> {};

TEST_P(TQuickChartPointerTest, PlacesTheMapThroughTheMaskedPointer) {
    Put(0x0100, {0x86, 0x1C});
    PutMap(GetParam().location, {100, 100}, {});
    window->SetMapKind(1);
    window->SetMapPointer(0x0100, GetParam().mask);
    window->show();
    EXPECT_EQ(window->windowTitle(), QString("Map Offset: ") + GetParam().shown);
    EXPECT_EQ(Offset(), GetParam().shown);
    EXPECT_EQ(Values(0), (std::vector<double>{1, 2}));
}
INSTANTIATE_TEST_SUITE_P(Masks, TQuickChartPointerTest,
                         testing::Values(TPointer{0x7F, 0x061C, "$061C"},
                                         TPointer{0xFF, 0x861C, "$861C"},
                                         TPointer{0x00, 0x001C, "$001C"}));

TEST_F(TQuickChartTest, APointerOfZeroIsAPlace) {
    PutMap(0, {100, 100}, {});
    window->SetMapPointer(0x0100, 0xFF);
    window->SetMapKind(1);
    window->show();
    EXPECT_EQ(Offset(), "$0000");
    EXPECT_EQ(Values(0), (std::vector<double>{1, 2}));
}

TEST_F(TQuickChartTest, OffsetZeroPlacesNothing) {
    window->SetMapOffset(0);
    window->show();
    EXPECT_EQ(window->windowTitle(), "Map Offset: $0000");
    EXPECT_TRUE(Series().empty());
}

TEST_F(TQuickChartTest, LongOffsetsAreShownWhole) {
    PutMap(0x12345, {100, 100}, {});
    window->SetMapKind(1);
    window->SetMapOffset(0x12345);
    window->show();
    EXPECT_EQ(window->windowTitle(), "Map Offset: $12345");
    EXPECT_EQ(Offset(), "$12345");
}

TEST_F(TQuickChartTest, EachShowReadsTheImageAgain) {
    window->SetMapKind(1);
    window->SetMapOffset(fuelIdle);
    window->show();
    window->hide();
    Image().Poke(fuelIdle + 6, 99);
    EXPECT_EQ(Values(0)[0], 1.0);
    window->show();
    EXPECT_EQ(Values(0)[0], 99.0);
}

TEST_F(TQuickChartTest, AMapThatDoesNotFitHidesTheChart) {
    PutMap(0x4000, TBytes(32, 1), {100, 0});
    window->SetMapOffset(0x4000);
    window->show();
    EXPECT_TRUE(Chart().isHidden());
    EXPECT_EQ(Offset(), "$4000");
    EXPECT_GT(FindControl<QWidget>(*window, "btnUp").parentWidget()->y(), window->height() / 2);
    window->hide();
    window->SetMapOffset(fuelPT);
    window->show();
    EXPECT_TRUE(Chart().isVisible());
}

TEST_F(TQuickChartTest, PlacesOutsideTheImageAreEmpty) {
    for (const int offset : {-1, 0x100000, 0x7FFFFFFF}) {
        window->SetMapOffset(offset);
        window->show();
        EXPECT_TRUE(std::all_of(Series().begin(), Series().end(), [](const TChartSeries &series) {
            return series.points.empty();
        })) << offset;
        window->hide();
    }
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TQuickChartTest, NothingIsWritten) {
    const TBytes before = Get(0, Image().size);
    window->SetMapOffset(fuelPT);
    window->show();
    window->close();
    EXPECT_EQ(Get(0, Image().size), before);
    EXPECT_FALSE(Image().modified);
}

TEST_F(TQuickChartTest, LeftAndRightGoOppositeToTheGraphicalPages) {
    struct {
        const char *button;
        std::array<int, 3> view;
    } const steps[] = {
        {"btnLeft", {339, 351, 56}},    {"btnRight", {340, 351, 56}},
        {"btnRight", {341, 351, 56}},   {"btnUp", {341, 350, 56}},
        {"btnDown", {341, 351, 56}},    {"btnDown", {341, 352, 56}},
        {"udZoomUp", {341, 352, 61}},   {"udZoomDown", {341, 352, 56}},
        {"udZoomDown", {341, 352, 51}},
    };
    window->show();
    for (const auto &step : steps) {
        FindControl<QToolButton>(*window, step.button).click();
        EXPECT_EQ(View(), step.view) << step.button;
    }
}

TEST_F(TQuickChartTest, NoKeyMovesTheView) {
    window->show();
    QApplication::setActiveWindow(window);
    Chart().TurnBy(7); // so that the first view would be a move as well
    const auto before = View();
    for (const char *name : {"", "edtOffset", "btnLeft", "btnUp", "chtMap"}) {
        QWidget &control = *name ? FindControl<QWidget>(*window, name) : *window;
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right,
                                  Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home}) {
            control.setFocus();
            QTest::keyClick(&control, key);
            EXPECT_EQ(View(), before) << name << " " << key;
        }
    }
}

TEST_F(TQuickChartTest, TheWheelZoomsAfterAClickOnTheChart) {
    window->show();
    QApplication::setActiveWindow(window);
    FindControl<QWidget>(*window, "edtOffset").setFocus();
    WheelOver(Chart(), 120);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
    QTest::mouseClick(&Chart(), Qt::LeftButton);
    WheelOver(Chart(), 120);
    EXPECT_EQ(View(), (std::array{340, 351, 61}));
    QTest::keyClick(window->focusWidget(), Qt::Key_Left);
    EXPECT_EQ(View(), (std::array{340, 351, 61})) << "but no key does anything";
    QTest::mouseDClick(&Chart(), Qt::LeftButton);
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}

TEST_F(TQuickChartTest, ClosingFreesIt) {
    window->show();
    ASSERT_TRUE(window);
    window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);
}

TEST_F(TQuickChartTest, EscapeFreesItToo) {
    window->show();
    QTest::keyClick(window.data(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);
    EXPECT_TRUE(dialogs.questions.empty());
}

TEST_F(TQuickChartTest, ItGoesWithItsOwner) {
    auto other = std::make_unique<QWidget>();
    const QPointer<TfrmQuickChart> second = new TfrmQuickChart(other.get());
    second->show();
    other.reset();
    EXPECT_FALSE(second);
}

TEST_F(TQuickChartTest, SeveralStandSideBySide) {
    auto *second = new TfrmQuickChart(&owner);
    window->SetMapOffset(fuelPT);
    second->SetMapKind(1);
    second->SetMapOffset(fuelWOT);
    window->show();
    second->show();
    EXPECT_EQ(window->windowTitle(), "Map Offset: $1000");
    EXPECT_EQ(second->windowTitle(), "Map Offset: $1300");
    second->btnLeftClick();
    EXPECT_EQ(View(), (std::array{340, 351, 56}));
}
} // namespace
