// The main window: its tabs and pages, the first show with the splash, the ticks that make it
// normal again, and closing at awkward moments.
#include "forms/PageControl.h"
#include "forms/RecordingPage.h"
#include "maps/FuelMaps.h"
#include "maps/FuelMapsGraphical.h"
#include "maps/TimingMaps.h"
#include "maps/TimingMapsGraphical.h"
#include "pages/OffsetDialog.h"
#include "pages/PageFixture.h"
#include "spec/main.h"
#include "start/WaitFor.h"

#include <set>

namespace {
TfrmSplash *Splash() {
    for (QWidget *window : QApplication::topLevelWidgets())
        if (auto *splash = qobject_cast<TfrmSplash *>(window))
            return splash;
    return nullptr;
}

class TMainWindowTest : public TPageTest {
protected:
    TThreadedTimer &Timer() { return FindControl<TThreadedTimer>(*window, "tmrSplash"); }
    bool Minimised() { return window->windowState() & Qt::WindowMinimized; }
    TfrmFuelMaps &FuelPage() { return dynamic_cast<TfrmFuelMaps &>(*window->Page(1)); }
    TfrmTimingMaps &TimingPage() { return dynamic_cast<TfrmTimingMaps &>(*window->Page(2)); }
    QList<QPushButton *> Buttons() {
        return {window->btnPrint, window->btnClose, window->btnSave, window->btnCancel};
    }

    std::unique_ptr<TfrmNotebook> window = std::make_unique<TfrmNotebook>();
};

TEST_F(TMainWindowTest, SixTabsInOrder) {
    struct {
        const char *tab;
        const char *caption;
        const char *page;
    } const tabs[] = {
        {"tabROMInfo", "ROM Information", "frmROMInformation"},
        {"tabFuelMaps", "Fuel Maps", "frmFuelMaps"},
        {"tabTimingMaps", "Timing Maps", "frmTimingMaps"},
        {"tabFuelMapGraphical", "Graphical Fuel Maps", "frmFuelMapsGraphical"},
        {"tabGraphicalTimingMaps", "Graphical Timing Maps", "frmTimingMapsGraphical"},
        {"TabSheet1", "File Contents", "frmFileContents"},
    };
    ASSERT_EQ(window->PageControl1->count(), 6);
    ASSERT_EQ(window->PageCount(), 6);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(window->PageControl1->widget(i)->objectName(), tabs[i].tab);
        EXPECT_EQ(window->PageControl1->tabText(i), tabs[i].caption);
        EXPECT_EQ(window->Page(i)->objectName(), tabs[i].page);
        EXPECT_TRUE(window->PageControl1->widget(i)->isAncestorOf(window->Page(i)));
    }
    EXPECT_THROW(window->Page(6), EFormNotfound);
    EXPECT_THROW(window->Page(-1), EFormNotfound);
}

TEST_F(TMainWindowTest, ThePagesWorkOnTheWindowsMapSets) {
    EXPECT_EQ(FuelPage().MapSet, &window->workspace.fuelMapSet);
    EXPECT_EQ(TimingPage().MapSet, &window->workspace.timingMapSet);
    EXPECT_EQ(dynamic_cast<TfrmFuelMapsGraphical &>(*window->Page(3)).MapSet,
              &window->workspace.fuelMapSet);
    EXPECT_EQ(dynamic_cast<TfrmTimingMapsGraphical &>(*window->Page(4)).MapSet,
              &window->workspace.timingMapSet);
}

TEST_F(TMainWindowTest, BeforeTheFirstShowNothingRuns) {
    EXPECT_EQ(window->objectName(), "frmNotebook");
    EXPECT_EQ(window->size(), QSize(956, 538));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->windowState(), Qt::WindowNoState);
    EXPECT_EQ(Timer().Interval(), 2500);
    EXPECT_EQ(Timer().Priority(), QThread::NormalPriority);
    EXPECT_FALSE(Timer().Enabled());
    EXPECT_FALSE(Timer().Running());
    EXPECT_FALSE(Splash());
    for (int i = 0; i < window->PageCount(); ++i)
        EXPECT_FALSE(window->Page(i)->PageVisible()) << i;
}

TEST_F(TMainWindowTest, TheFirstShowMinimisesAndStartsTheSplash) {
    window->show();
    EXPECT_TRUE(Minimised());
    EXPECT_EQ(window->size(), QSize(800, 600));
    EXPECT_TRUE(Timer().Running());
    EXPECT_EQ(window->PageControl1->currentIndex(), 0);
    EXPECT_TRUE(window->Page(0)->PageVisible());
    EXPECT_TRUE(WaitFor([] { return Splash() != nullptr; }));
}

TEST(MainWindow, ComesUpMaximisedOnASmallScreen) {
    EXPECT_EQ(StateAtFirstShow(480), Qt::WindowMaximized);
    EXPECT_EQ(StateAtFirstShow(600), Qt::WindowMaximized);
    EXPECT_EQ(StateAtFirstShow(601), Qt::WindowMinimized);
    EXPECT_EQ(StateAtFirstShow(2160), Qt::WindowMinimized);
}

struct TSizeCase {
    const char *name;
    int screenHeight;
    QSize available;
    QSize size;
};
class TNormalSizeTest : public testing::TestWithParam<TSizeCase> {};

TEST_P(TNormalSizeTest, FitsTheScreenWithItsFrame) {
    EXPECT_EQ(NormalSize(GetParam().screenHeight, GetParam().available), GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(Screens, TNormalSizeTest,
                         testing::Values(TSizeCase{"Usual", 1024, {1280, 1024}, {800, 600}},
                                         TSizeCase{"Tall", 1280, {800, 1280}, {800, 600}},
                                         TSizeCase{"JustEnough", 640, {1280, 640}, {800, 600}},
                                         TSizeCase{"APanelInTheWay", 640, {1280, 639}, {800, 599}},
                                         TSizeCase{"JustLarger", 601, {1280, 601}, {800, 561}},
                                         TSizeCase{"Small", 600, {1024, 600}, {956, 538}},
                                         TSizeCase{"SmallWithPanel", 600, {1024, 560}, {956, 520}},
                                         TSizeCase{"Narrow", 600, {800, 600}, {784, 538}},
                                         TSizeCase{"Scaled1280", 512, {640, 512}, {624, 472}},
                                         TSizeCase{"Scaled1920", 540, {960, 540}, {944, 500}}),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(TMainWindowTest, ATickEndsTheSplashAndLaterTicksAreHarmless) {
    window->show();
    ASSERT_TRUE(WaitFor([] { return Splash() != nullptr; }));
    window->tmrSplashTimer();
    EXPECT_FALSE(Minimised());
    EXPECT_EQ(window->size(), QSize(800, 600));
    EXPECT_TRUE(WaitFor([] { return Splash() == nullptr; }));
    for (int i = 0; i < 3; ++i)
        window->tmrSplashTimer();
    EXPECT_EQ(window->windowState() & ~Qt::WindowActive, Qt::WindowNoState);
    EXPECT_FALSE(Splash());
    EXPECT_TRUE(Timer().Running()) << "it is never switched off";
}

TEST_F(TMainWindowTest, TheTimerItselfMakesTheWindowNormal) {
    window->show();
    ASSERT_TRUE(Minimised());
    Timer().SetInterval(1);
    EXPECT_TRUE(WaitFor([this] { return !Minimised(); }));
    window->setWindowState(Qt::WindowMaximized);
    EXPECT_TRUE(WaitFor([this] { return !window->isMaximized(); })) << "undone, again and again";
    window->setWindowState(Qt::WindowMinimized);
    EXPECT_TRUE(WaitFor([this] { return !Minimised(); }));
}

/// What a tick must not do, as the toolkit tells of it.
class TDisturbances : public QObject {
public:
    explicit TDisturbances(QWidget &window) { window.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override {
        static const std::set<QEvent::Type> disturbing{QEvent::ZOrderChange, QEvent::Resize,
                                                       QEvent::Move, QEvent::WindowActivate,
                                                       QEvent::WindowDeactivate};
        if (disturbing.contains(event->type()))
            seen.insert(event->type());
        return false;
    }
    std::set<QEvent::Type> seen;
};

TEST_F(TMainWindowTest, ATickNeitherRaisesNorActivatesNorResizes) {
    window->show();
    ASSERT_TRUE(WaitFor([] { return Splash() != nullptr; }));
    window->tmrSplashTimer();
    ASSERT_TRUE(WaitFor([] { return Splash() == nullptr; }));
    window->setGeometry(40, 50, 700, 500); // by hand
    QWidget other;
    other.show();
    TDisturbances disturbances(*window);
    for (const Qt::WindowState state : {Qt::WindowNoState, Qt::WindowMinimized}) {
        window->setWindowState(state);
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(&other);
        QCoreApplication::processEvents();
        ASSERT_TRUE(other.isActiveWindow());
        const QRect place = window->geometry();
        disturbances.seen.clear();
        for (int tick = 0; tick < 3; ++tick) {
            window->tmrSplashTimer();
            QCoreApplication::processEvents();
        }
        EXPECT_TRUE(disturbances.seen.empty()) << state << ": " << *disturbances.seen.begin();
        EXPECT_TRUE(other.isActiveWindow()) << state;
        EXPECT_EQ(window->geometry(), place) << state;
        window->setWindowState(Qt::WindowNoState);
    }
    EXPECT_EQ(window->geometry(), QRect(40, 50, 700, 500));
}

TEST_F(TMainWindowTest, ATickLeavesTheSizeThatTheUserGaveTheWindow) {
    window->show();
    window->tmrSplashTimer();
    window->setGeometry(40, 50, 700, 500);
    window->setWindowState(Qt::WindowMaximized);
    window->tmrSplashTimer();
    EXPECT_TRUE(WaitFor([&] { return window->geometry() == QRect(40, 50, 700, 500); }));
}

TEST_F(TMainWindowTest, AFullScreenWindowIsLeftAlone) {
    window->show();
    window->tmrSplashTimer();
    window->setWindowState(Qt::WindowFullScreen | Qt::WindowMaximized);
    window->tmrSplashTimer();
    EXPECT_EQ(window->windowState() & ~Qt::WindowActive, Qt::WindowFullScreen);
}

TEST_F(TMainWindowTest, TheWorkOfTheFirstShowIsDoneOnce) {
    window->show();
    window->tmrSplashTimer();
    ASSERT_TRUE(WaitFor([] { return Splash() == nullptr; }));
    window->resize(700, 500);
    window->PageControl1->SelectByUser(1);
    window->hide();
    window->show();
    EXPECT_FALSE(Minimised());
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_EQ(window->PageControl1->currentIndex(), 1);
    EXPECT_TRUE(FuelPage().PageVisible()) << "hiding the window is not leaving the page";
}

TEST_F(TMainWindowTest, TheROMInformationTabHidesTheNotebooksButtons) {
    for (const QPushButton *button : Buttons())
        EXPECT_TRUE(button->isHidden()) << button->objectName().toStdString();
    window->show();
    for (QPushButton *button : Buttons())
        button->show();
    window->PageControl1->SelectByUser(1);
    for (const QPushButton *button : Buttons())
        EXPECT_FALSE(button->isHidden());
    window->PageControl1->SelectByUser(0);
    for (const QPushButton *button : Buttons())
        EXPECT_TRUE(button->isHidden());
}

TEST_F(TMainWindowTest, ThePageControlFillsTheWindowDownToTheStatusBar) {
    window->show();
    window->tmrSplashTimer();
    QCoreApplication::processEvents();
    const QWidget *client = window->centralWidget();
    EXPECT_EQ(window->PageControl1->height(), client->height());
    EXPECT_EQ(window->PageControl1->width(), window->width());
}

TEST_F(TMainWindowTest, ThePagesGetTheirControlsAfterTheFirstShow) {
    EXPECT_FALSE(FuelPage().findChild<QWidget *>("grdPTMap"));
    window->show();
    EXPECT_FALSE(FuelPage().findChild<QWidget *>("grdPTMap"));
    QCoreApplication::processEvents();
    EXPECT_TRUE(FuelPage().findChild<QWidget *>("grdPTMap"));
    EXPECT_TRUE(TimingPage().findChild<QWidget *>("grdPTMap"));
}

TEST_F(TMainWindowTest, ClosingBeforeThePagesHaveControlsAsksNothing) {
    window->show();
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(dialogs.questions.empty());
}

TEST_F(TMainWindowTest, ClosingAsksThePagesInTabOrder) {
    PlantMaps();
    PlaceMaps(window->workspace);
    window->show();
    QCoreApplication::processEvents(); // gives the pages their controls
    FuelPage().PTChanged = true;
    TimingPage().PTChanged = true;
    dialogs.answers = {TAnswer::Yes, TAnswer::No};
    EXPECT_TRUE(window->close());
    EXPECT_EQ(dialogs.questions, (QStringList{"Commit Changes?", "Commit Changes?"}));
    EXPECT_EQ(dialogs.insisting, dialogs.questions);
    EXPECT_TRUE(Image().modified);
    EXPECT_FALSE(window->isVisible());
    EXPECT_THROW(window->Page(0), EFormNotfound);
}

TEST_F(TMainWindowTest, APageThatRefusesKeepsTheWindowAndIsSelected) {
    QStringList calls;
    auto page = std::make_unique<TRecordingPage>("last", calls);
    TRecordingPage &last = *page;
    window->AddPage(std::move(page), "tabLast", "Last");
    window->show();
    last.agrees = false;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->PageControl1->currentIndex(), 6);
    EXPECT_EQ(window->PageCount(), 7);
    last.agrees = true;
    EXPECT_TRUE(window->close());
    EXPECT_FALSE(window->isVisible());
    window.reset(); // the page writes into `calls` when it goes
}

TEST_F(TMainWindowTest, AMapPageMayBeClosedForGood) {
    window->show();
    window->PageControl1->SelectByUser(1);
    FindControl<QPushButton>(FuelPage(), "btnClose").click();
    EXPECT_EQ(window->PageCount(), 5);
    EXPECT_EQ(window->Page(1)->objectName(), "frmTimingMaps");
    EXPECT_TRUE(window->Page(window->PageControl1->currentIndex())->PageVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window->findChild<TfrmFuelMaps *>());
    EXPECT_TRUE(window->close());
}

TEST_F(TMainWindowTest, ClosingATabWithEditsAsksFirst) {
    PlantMaps();
    PlaceMaps(window->workspace);
    window->show();
    window->PageControl1->SelectByUser(1);
    FuelPage().PTChanged = true;
    dialogs.answers = {TAnswer::No};
    EXPECT_TRUE(window->CloseTab(1));
    EXPECT_EQ(dialogs.questions, QStringList{"Commit Changes?"});
    EXPECT_FALSE(Image().modified);
}

// Ends at awkward moments; the sanitizers watch.

TEST(MainWindowEnd, WithoutEverBeingShown) {
    const TFakeDialogs dialogs;
    for (int round = 0; round < 5; ++round)
        TfrmNotebook();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_TRUE(dialogs.questions.empty());
}

TEST(MainWindowEnd, RightAfterTheShow) {
    const TFakeDialogs dialogs;
    for (int round = 0; round < 20; ++round) {
        TfrmNotebook window;
        window.show();
        Dawdle(round);
        EXPECT_TRUE(window.close());
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(Splash());
}

TEST(MainWindowEnd, WithTheSplashUp) {
    const TFakeDialogs dialogs;
    for (int round = 0; round < 10; ++round) {
        TfrmNotebook window;
        window.show();
        ASSERT_TRUE(WaitFor([] { return Splash() != nullptr; }));
        if (round % 2) {
            EXPECT_TRUE(window.close());
        }
    }
    EXPECT_FALSE(Splash());
}

TEST(MainWindowEnd, WhileTheTimerTicksAsFastAsItCan) {
    const TFakeDialogs dialogs;
    for (int round = 0; round < 20; ++round) {
        TfrmNotebook window;
        window.show();
        FindControl<TThreadedTimer>(window, "tmrSplash").SetInterval(1);
        for (int i = 0; i < round; ++i)
            QCoreApplication::processEvents();
        Dawdle(round);
        window.close();
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(Splash());
}

TEST_F(TMainWindowTest, ClosedInsideAModalDialog) {
    TfrmBaseForm::ProgRegKey = "key";
    for (int round = 0; round < 5; ++round) {
        window.reset(); // hint handlers are put back in the order of a stack
        window = std::make_unique<TfrmNotebook>();
        window->show();
        FindControl<TThreadedTimer>(*window, "tmrSplash").SetInterval(1);
        const TInOffsetDialog dialog([this](TfrmOffsetEntry &form) {
            QCoreApplication::processEvents();
            EXPECT_TRUE(window->close());
            if (form.isVisible())
                TInOffsetDialog::Cancel(form);
        });
        FindControl<QPushButton>(*window, "btnOffsetEntry").setEnabled(true);
        FindControl<QPushButton>(*window, "btnOffsetEntry").click();
    }
    TfrmBaseForm::ProgRegKey.clear();
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(TMainWindowTest, DestroyedWithAnEditUnderWay) {
    PlantMaps();
    PlaceMaps(window->workspace);
    window->show();
    window->tmrSplashTimer();
    QApplication::setActiveWindow(window.get());
    window->PageControl1->SelectByUser(1);
    auto &offset = FindControl<QLineEdit>(FuelPage(), "edtPTOffset");
    QTest::mouseDClick(&offset, Qt::LeftButton);
    offset.setFocus();
    ASSERT_TRUE(offset.hasFocus());
    offset.setText("junk");
    window.reset();
    EXPECT_TRUE(dialogs.messages.empty());
}
} // namespace
