// F6 on its round from the pages to the tool windows and back.
#include "forms/OtherWindows.h"
#include "forms/TabOrder.h"

#include <array>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {
/// A tool window with two edits.
struct TTool : QWidget {
    explicit TTool(QWidget *owner) : QWidget(owner, Qt::Tool) { second.move(0, 50); }
    QLineEdit first{this};
    QLineEdit second{this};
};

class OtherWindows : public testing::Test {
protected:
    OtherWindows() {
        edit.move(0, 50);
        GoRoundOnF6(window, pages);
        for (TTool *tool : {&one, &two})
            StopOnF6(*tool);
        window.resize(300, 200);
        Show(window);
        edit.setFocus();
    }
    static void Show(QWidget &shown) {
        shown.show();
        shown.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
    }
    /// F6 where the focus is; then `wanted` has it.
    static void ExpectF6To(const QWidget &wanted) {
        ASSERT_TRUE(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        EXPECT_TRUE(QTest::qWaitFor([&] { return wanted.hasFocus(); }));
    }

    QWidget window;
    QWidget pages{&window};
    QLineEdit unused{&pages};
    QLineEdit edit{&pages};
    TTool one{&window};
    TTool two{&window};
};
} // namespace

TEST_F(OtherWindows, WithoutAStopNothingHappens) {
    ExpectF6To(edit);
}

TEST_F(OtherWindows, GoesToTheFirstControlAndBackToWhereItWas) {
    Show(one);
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ExpectF6To(one.first);
    one.second.setFocus();
    ExpectF6To(edit);
    ExpectF6To(one.second);
}

TEST_F(OtherWindows, GoesFromStopToStopAndSkipsHiddenOnes) {
    Show(one);
    Show(two);
    two.first.setFocus();
    ExpectF6To(edit);
    ExpectF6To(one.first);
    ExpectF6To(two.first);
    one.hide();
    ExpectF6To(edit);
    ExpectF6To(two.first);
}

TEST_F(OtherWindows, AToolInTheWindowItselfIsAStopToo) {
    QWidget docked(&window);
    docked.setGeometry(0, 100, 200, 50);
    QLineEdit amount(&docked);
    StopOnF6(docked);
    docked.show();
    ExpectF6To(amount);
    ExpectF6To(edit);
}

TEST_F(OtherWindows, AToolMayHaveAUsualControl) {
    StopOnF6(two, &two.second);
    two.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    ExpectF6To(two.second);
}

TEST_F(OtherWindows, AControlThatHasGoneGivesWayToTheFirst) {
    edit.hide();
    Show(one);
    one.first.setFocus();
    ExpectF6To(unused);
}

TEST(FirstInTabOrder, IsTheFirstThatTabMayVisit) {
    QWidget pane;
    EXPECT_EQ(FirstInTabOrder(pane), nullptr);
    std::array<QLineEdit, 5> edits;
    for (QLineEdit &edit : edits)
        edit.setParent(&pane);
    edits[0].hide();
    edits[1].setEnabled(false);
    edits[2].setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(FirstInTabOrder(pane), nullptr) << "nothing is on the screen";
    pane.show();
    EXPECT_EQ(FirstInTabOrder(pane), &edits[3]);
    SetTabSequence({&edits[4], &edits[3]});
    EXPECT_EQ(FirstInTabOrder(pane), &edits[4]);
    pane.setFocusPolicy(Qt::StrongFocus);
    EXPECT_EQ(FirstInTabOrder(pane), &pane);
}

TEST(FirstInTabOrder, StaysInsideItsPane) {
    QWidget window;
    QLineEdit before(&window);
    QWidget pane(&window);
    QLineEdit behind(&window);
    window.show();
    EXPECT_EQ(FirstInTabOrder(pane), nullptr);
}
