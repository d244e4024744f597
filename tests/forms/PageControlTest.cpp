#include "forms/PageControl.h"

#include "support/FakeDialogs.h"

#include <memory>
#include <stdexcept>

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

namespace {
class PageControl : public testing::Test {
protected:
    PageControl() {
        for (const char *name : {"one", "two", "three"}) {
            auto *tab = new QWidget;
            auto *edit = new QLineEdit(tab);
            edit->setObjectName(QString(name) + "Edit");
            pages.addTab(tab, name);
        }
        pages.OnChanging = [this] {
            asked << pages.currentIndex();
            if (duringQuestion)
                duringQuestion();
            return answer;
        };
        pages.OnChange = [this] { entered << pages.currentIndex(); };
        pages.OnMouseChoice = [this] { pointed << pages.currentIndex(); };
        pages.resize(400, 200);
        pages.show();
        pages.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&pages));
    }

    QPoint CentreOfTab(int index) { return pages.tabBar()->tabRect(index).center(); }

    void Press(int index, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(pages.tabBar(), button, {}, CentreOfTab(index));
    }

    void Wheel(QPoint turned) {
        const QPointF at = CentreOfTab(0);
        QWheelEvent event(at, pages.tabBar()->mapToGlobal(at), {}, turned, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(pages.tabBar(), &event);
    }

    void Accessibility(int index) {
        QAccessibleInterface *bar = QAccessible::queryAccessibleInterface(pages.tabBar());
        QAccessibleInterface *tab = bar->child(index);
        ASSERT_NE(tab, nullptr);
        tab->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }

    QLineEdit &Edit(const char *name) { return *pages.findChild<QLineEdit *>(name); }

    void ExpectCalls(const QList<int> &asking, const QList<int> &entering) {
        EXPECT_EQ(asked, asking);
        EXPECT_EQ(entered, entering);
    }

    TFakeDialogs dialogs;
    TPageControl pages;
    bool answer = true;
    std::function<void()> duringQuestion;
    QList<int> asked;
    QList<int> entered;
    QList<int> pointed; ///< by OnMouseChoice
};

using TRoute = std::function<void(TPageControl &)>;

struct TRouteCase {
    const char *name;
    int from;
    int to;
    TRoute route;
    bool mouse = false;
};

TRoute KeyOnBar(Qt::Key key) {
    return [key](TPageControl &pages) { QTest::keyClick(pages.tabBar(), key); };
}

TRoute KeyInPage(Qt::Key key, Qt::KeyboardModifiers held) {
    return [=](TPageControl &pages) {
        auto *edit = pages.currentWidget()->findChild<QLineEdit *>();
        edit->setFocus();
        QTest::keyClick(edit, key, held);
    };
}

/// A key event that no shortcut has taken, as it comes from a window that is not active.
TRoute PlainKey(Qt::Key key, Qt::KeyboardModifiers held) {
    return [=](TPageControl &pages) {
        QKeyEvent event(QEvent::KeyPress, key, held);
        QApplication::sendEvent(&pages, &event);
        EXPECT_TRUE(event.isAccepted());
    };
}

TRoute WheelBy(int turned) {
    return [turned](TPageControl &pages) {
        const QPointF at(5, 5);
        QWheelEvent event(at, pages.tabBar()->mapToGlobal(at), {}, {0, turned}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(pages.tabBar(), &event);
    };
}

TRoute PressOn(int index) {
    return [index](TPageControl &pages) {
        QTest::mousePress(pages.tabBar(), Qt::LeftButton, {},
                          pages.tabBar()->tabRect(index).center());
    };
}

TRoute AccessibilityOn(int index) {
    return [index](TPageControl &pages) {
        QAccessible::queryAccessibleInterface(pages.tabBar())
            ->child(index)
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
    };
}

const auto ctrl = Qt::ControlModifier;
const auto ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;

const TRouteCase routes[] = {
    {"mouse", 0, 2, PressOn(2), true},
    {"wheel_down", 0, 1, WheelBy(-120), true},
    {"wheel_up", 2, 1, WheelBy(120), true},
    {"right", 0, 1, KeyOnBar(Qt::Key_Right)},
    {"left", 2, 1, KeyOnBar(Qt::Key_Left)},
    {"home", 2, 0, KeyOnBar(Qt::Key_Home)},
    {"end", 0, 2, KeyOnBar(Qt::Key_End)},
    {"ctrl_tab", 0, 1, KeyInPage(Qt::Key_Tab, ctrl)},
    {"ctrl_tab_wraps", 2, 0, KeyInPage(Qt::Key_Tab, ctrl)},
    {"ctrl_shift_tab", 1, 0, KeyInPage(Qt::Key_Backtab, ctrlShift)},
    {"ctrl_shift_tab_wraps", 0, 2, KeyInPage(Qt::Key_Backtab, ctrlShift)},
    {"ctrl_page_down", 0, 1, KeyInPage(Qt::Key_PageDown, ctrl)},
    {"ctrl_page_up", 2, 1, KeyInPage(Qt::Key_PageUp, ctrl)},
    {"plain_ctrl_tab", 0, 1, PlainKey(Qt::Key_Tab, ctrl)},
    {"plain_ctrl_shift_tab", 1, 0, PlainKey(Qt::Key_Backtab, ctrlShift)},
    {"plain_ctrl_page_down", 1, 2, PlainKey(Qt::Key_PageDown, ctrl)},
    {"plain_ctrl_page_up", 1, 0, PlainKey(Qt::Key_PageUp, ctrl)},
    {"accessibility", 0, 2, AccessibilityOn(2)},
};

class PageControlRoute : public PageControl, public testing::WithParamInterface<TRouteCase> {
protected:
    PageControlRoute() { pages.SelectByProgram(GetParam().from); }
};
} // namespace

TEST_P(PageControlRoute, AsksThePageThenChanges) {
    GetParam().route(pages);
    EXPECT_EQ(pages.currentIndex(), GetParam().to);
    ExpectCalls({GetParam().from}, {GetParam().to});
}

TEST_P(PageControlRoute, TellsWhenTheMouseHasChosenButOnlyThen) {
    pages.OnChange = [this] { EXPECT_TRUE(pointed.empty()) << "the page is entered first"; };
    GetParam().route(pages);
    EXPECT_EQ(pointed, GetParam().mouse ? QList<int>{GetParam().to} : QList<int>{});
}

TEST_P(PageControlRoute, StaysWhenThePageRefuses) {
    answer = false;
    GetParam().route(pages);
    EXPECT_EQ(pages.currentIndex(), GetParam().from);
    ExpectCalls({GetParam().from}, {});
    EXPECT_TRUE(pointed.empty());
}

TEST_P(PageControlRoute, StaysAndShowsTheErrorWhenAskingFails) {
    duringQuestion = [] { throw std::runtime_error("no answer"); };
    GetParam().route(pages);
    EXPECT_EQ(pages.currentIndex(), GetParam().from);
    ExpectCalls({GetParam().from}, {});
    EXPECT_EQ(dialogs.messages, QStringList({"no answer"}));
}

TEST_P(PageControlRoute, IsDeafWhileAQuestionIsOpen) {
    duringQuestion = [this] {
        duringQuestion = nullptr;
        GetParam().route(pages);
        pages.SelectByUser(2 - GetParam().from);
    };
    answer = false;
    GetParam().route(pages);
    EXPECT_EQ(pages.currentIndex(), GetParam().from);
    ExpectCalls({GetParam().from}, {});
    EXPECT_TRUE(pointed.empty());
}

INSTANTIATE_TEST_SUITE_P(Routes, PageControlRoute, testing::ValuesIn(routes),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(PageControl, IsCalledPageControl1) {
    EXPECT_EQ(pages.objectName(), "PageControl1");
}

TEST_F(PageControl, AddingTabsAsksNobody) {
    EXPECT_EQ(pages.currentIndex(), 0);
    ExpectCalls({}, {});
}

TEST_F(PageControl, SelectingByProgramAsksNobody) {
    pages.SelectByProgram(2);
    EXPECT_EQ(pages.currentIndex(), 2);
    pages.SelectByProgram(3);
    pages.SelectByProgram(-1);
    EXPECT_EQ(pages.currentIndex(), 2);
    ExpectCalls({}, {});
}

TEST_F(PageControl, TheCurrentTabAsksNobody) {
    Press(0);
    pages.SelectByUser(0);
    Accessibility(0);
    ExpectCalls({}, {});
}

TEST_F(PageControl, APressOnTheCurrentTabTellsOfTheMouseToo) {
    Press(0);
    EXPECT_EQ(pointed, QList<int>{0});
    pages.SelectByUser(0);
    Accessibility(0);
    EXPECT_EQ(pointed, QList<int>{0});
}

TEST_F(PageControl, AMouseThatChoosesNothingTellsNothing) {
    pages.setTabEnabled(2, false);
    Press(2);
    Press(1, Qt::RightButton);
    Wheel({0, 120});
    QTest::mouseClick(pages.tabBar(), Qt::LeftButton, {}, {pages.width() - 2, 2});
    EXPECT_TRUE(pointed.empty());
}

TEST_F(PageControl, APressOnTheCurrentTabDuringAQuestionTellsNothing) {
    duringQuestion = [this] { Press(0); };
    answer = false;
    Press(1);
    EXPECT_TRUE(pointed.empty());
}

TEST_F(PageControl, AnErrorAfterTheMousesChoiceIsShown) {
    pages.OnMouseChoice = [] { throw std::runtime_error("no page"); };
    Press(1);
    EXPECT_EQ(pages.currentIndex(), 1);
    EXPECT_EQ(dialogs.messages, QStringList({"no page"}));
}

TEST_F(PageControl, AnIndexOutOfRangeAsksNobody) {
    pages.SelectByUser(-1);
    pages.SelectByUser(3);
    QTest::mouseClick(pages.tabBar(), Qt::LeftButton, {}, {pages.width() - 2, 2});
    ExpectCalls({}, {});
}

TEST_F(PageControl, ADisabledTabIsNotSelectedAndIsSteppedOver) {
    pages.setTabEnabled(1, false);
    Press(1);
    ExpectCalls({}, {});
    QTest::keyClick(pages.tabBar(), Qt::Key_Right);
    ExpectCalls({0}, {2});
}

TEST_F(PageControl, OnlyTheLeftButtonSelects) {
    Press(1, Qt::RightButton);
    Press(1, Qt::MiddleButton);
    ExpectCalls({}, {});
}

TEST_F(PageControl, TheEndsStopArrowsAndWheel) {
    QTest::keyClick(pages.tabBar(), Qt::Key_Left);
    Wheel({0, 120});
    pages.SelectByProgram(2);
    QTest::keyClick(pages.tabBar(), Qt::Key_Right);
    Wheel({0, -120});
    ExpectCalls({}, {});
}

TEST_F(PageControl, SmallTurnsOfTheWheelAddUp) {
    Wheel({0, -60});
    ExpectCalls({}, {});
    Wheel({0, -60});
    ExpectCalls({0}, {1});
}

TEST_F(PageControl, ASidewaysWheelCountsToo) {
    Wheel({-120, 0});
    ExpectCalls({0}, {1});
}

TEST_F(PageControl, RightToLeftTurnsTheArrowKeysRound) {
    pages.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(pages.tabBar(), Qt::Key_Left);
    ExpectCalls({0}, {1});
}

TEST_F(PageControl, OtherKeysGoOn) {
    for (const Qt::KeyboardModifiers held :
         {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(ctrl)}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_A, held);
        QApplication::sendEvent(pages.tabBar(), &event);
        EXPECT_FALSE(event.isAccepted());
    }
    QKeyEvent event(QEvent::KeyPress, Qt::Key_PageDown, ctrlShift);
    QApplication::sendEvent(&pages, &event);
    EXPECT_FALSE(event.isAccepted());
    ExpectCalls({}, {});
}

TEST_F(PageControl, WithoutHandlersItJustChanges) {
    pages.OnChanging = nullptr;
    pages.OnChange = nullptr;
    Press(2);
    EXPECT_EQ(pages.currentIndex(), 2);
}

TEST_F(PageControl, AnErrorAfterTheChangeIsShownAndTheTabStays) {
    pages.OnChange = [] { throw std::runtime_error("not loaded"); };
    Press(1);
    EXPECT_EQ(pages.currentIndex(), 1);
    EXPECT_EQ(dialogs.messages, QStringList({"not loaded"}));
}

TEST_F(PageControl, AnOpenEditIsLeftBeforeThePageIsAsked) {
    for (const TRouteCase &route : {routes[0], routes[1], routes[7], routes[17]}) {
        pages.SelectByProgram(0);
        Edit("oneEdit").setFocus();
        bool editing = true;
        duringQuestion = [&] { editing = Edit("oneEdit").hasFocus(); };
        route.route(pages);
        EXPECT_FALSE(editing) << route.name;
    }
}

TEST_F(PageControl, AClickTakesTheFocusEvenOnTheCurrentTab) {
    Edit("oneEdit").setFocus();
    Press(0);
    EXPECT_TRUE(pages.tabBar()->hasFocus());
}

TEST_F(PageControl, AGridInThePageDoesNotKeepTheKeysOfTheTabs) {
    QTableView grid(pages.widget(0));
    grid.show();
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_PageDown, ctrl);
    ExpectCalls({0}, {1});
}

TEST_F(PageControl, AMnemonicIsAskedForToo) {
    pages.setTabText(1, "&Two");
    answer = false;
    QTest::keyClick(&pages, Qt::Key_T, Qt::AltModifier);
    EXPECT_EQ(pages.currentIndex(), 0);
    ExpectCalls({0}, {});
}

TEST_F(PageControl, RemovingTheCurrentTabAsksNobody) {
    const std::unique_ptr<QWidget> removed(pages.widget(0));
    pages.removeTab(0);
    EXPECT_EQ(pages.tabText(pages.currentIndex()), "two");
    ExpectCalls({}, {});
    Press(1);
    ExpectCalls({0}, {1});
}

TEST_F(PageControl, RemovingAnotherTabLeavesTheCurrentOne) {
    pages.SelectByProgram(2);
    const std::unique_ptr<QWidget> removed(pages.widget(0));
    pages.removeTab(0);
    EXPECT_EQ(pages.tabText(pages.currentIndex()), "three");
    ExpectCalls({}, {});
}

namespace {
/// A second one, to compare with.
class TOtherPages : public PageControl {
public:
    using PageControl::asked;
    using PageControl::entered;
    using PageControl::pages;
    int Current() { return pages.currentIndex(); }
    void TestBody() override {}
};

void AddTabs(TPageControl &pages, int count) {
    for (int i = 0; i < count; ++i)
        pages.setTabText(pages.addTab(new QWidget, "map"), QString("a longer caption, %1").arg(i));
}
} // namespace

TEST_F(PageControl, TabsInOneGoStandWhereTheyDoOneByOne) {
    TOtherPages other;
    for (const int current : {2, 0})
        for (const int more : {1, 2, 40}) {
            for (TPageControl *control : {&pages, &other.pages})
                control->SelectByProgram(current);
            AddTabs(pages, more);
            other.pages.AddInOneGo([&] { AddTabs(other.pages, more); });
            ASSERT_EQ(other.pages.count(), pages.count());
            EXPECT_EQ(other.Current(), current);
            for (int i = 0; i < pages.count(); ++i) {
                EXPECT_TRUE(other.pages.isTabVisible(i)) << i;
                EXPECT_EQ(other.pages.tabBar()->tabRect(i), pages.tabBar()->tabRect(i)) << i;
            }
            EXPECT_EQ(other.pages.currentWidget()->geometry(), pages.currentWidget()->geometry());
        }
    EXPECT_TRUE(other.asked.isEmpty());
    EXPECT_TRUE(other.entered.isEmpty());
}

TEST_F(PageControl, TabsInOneGoAreNotLaidOutOnTheirWay) {
    pages.AddInOneGo([this] {
        AddTabs(pages, 5);
        for (int i = 3; i < 8; ++i)
            EXPECT_FALSE(pages.isTabVisible(i)) << i;
        EXPECT_FALSE(pages.isVisible()) << "each tab would be given its place";
    });
    EXPECT_TRUE(pages.isVisible());
    EXPECT_TRUE(pages.tabBar()->isVisible());
}

TEST_F(PageControl, TabsInOneGoLeaveTheFocus) {
    QMainWindow window;
    window.setCentralWidget(&pages);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto *edit = pages.findChild<QLineEdit *>("oneEdit");
    edit->setFocus();
    pages.AddInOneGo([this] { AddTabs(pages, 3); });
    EXPECT_TRUE(edit->hasFocus());
    pages.tabBar()->setFocus();
    pages.AddInOneGo([this] { AddTabs(pages, 3); });
    EXPECT_TRUE(pages.tabBar()->hasFocus());
    window.takeCentralWidget();
}

TEST_F(PageControl, TabsThatCameBeforeAnErrorStay) {
    EXPECT_THROW(pages.AddInOneGo([this] {
        AddTabs(pages, 2);
        throw std::runtime_error("no more");
    }),
                 std::runtime_error);
    EXPECT_TRUE(pages.isVisible());
    EXPECT_TRUE(pages.isTabVisible(3) && pages.isTabVisible(4));
    AddTabs(pages, 1);
    EXPECT_TRUE(pages.isTabVisible(5));
}

TEST_F(PageControl, ATabThatGoesWhileThePageIsAskedIsNotSelected) {
    duringQuestion = [this] { delete pages.widget(2); };
    Press(2);
    EXPECT_EQ(pages.currentIndex(), 0);
    // The page had agreed to be left, so it is entered anew.
    ExpectCalls({0}, {0});
}
