// Where the bulk adjust window stands: floating on top or docked, on the screen, under questions.
#include "pages/ToolWindowFixture.h"

#include <QDialog>
#include <QScreen>
#include <QWindow>

namespace {
TEST_F(TToolWindowTest, FloatsAndCanBeDocked) {
    EXPECT_TRUE(Tool().isFloating());
    EXPECT_TRUE(Tool().isWindow());
    EXPECT_EQ(Tool().windowType(), Qt::Tool);
    EXPECT_EQ(Tool().windowModality(), Qt::NonModal);
    EXPECT_EQ(Tool().parentWidget(), &host);
    EXPECT_EQ(Tool().allowedAreas(), Qt::AllDockWidgetAreas);
    EXPECT_TRUE(Tool().features().testFlag(QDockWidget::DockWidgetMovable));
    Tool().setFloating(false);
    EXPECT_FALSE(Tool().isWindow());
    EXPECT_EQ(host.dockWidgetArea(&Tool()), Qt::RightDockWidgetArea);
    EXPECT_TRUE(Tool().isVisible());
    Pick("rdoOperation", 1);
    EXPECT_EQ(Tool().Sign, -1);
    Tool().setFloating(true);
    EXPECT_EQ(Group("rdoOperation").ItemIndex(), 1);
    EXPECT_EQ(Tool().Sign, -1);
}

TEST_F(TToolWindowTest, StaysOnTopWheneverItFloats) {
    const auto onTop = [this] {
        return Tool().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    EXPECT_TRUE(onTop());
    for (int times = 0; times < 2; ++times) {
        Tool().setFloating(false);
        Tool().setFloating(true);
        EXPECT_TRUE(onTop()) << "after docking";
        Click("btnRecalculate");
        Click("btnRecalculate");
        EXPECT_TRUE(onTop()) << "after hiding";
    }
    Tool().setFloating(false);
    Click("btnRecalculate");
    Click("btnRecalculate");
    Tool().setFloating(true);
    EXPECT_TRUE(onTop()) << "after hiding while docked";
}

TEST_F(TToolWindowTest, ComesDownWhileAQuestionIsOpen) {
    const auto onTop = [this] {
        return Tool().windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint);
    };
    QDialog question(&host);
    question.setModal(true);
    question.show();
    EXPECT_FALSE(onTop());
    question.hide();
    EXPECT_TRUE(onTop());
    Tool().setFloating(false);
    question.show();
    question.hide();
    EXPECT_FALSE(Tool().isWindow());
    Tool().setFloating(true);
    EXPECT_TRUE(onTop());
}

TEST_F(TToolWindowTest, StandsOnTheScreenBesideAWindowThatReachesTheEdge) {
    const QRect screen = host.screen()->availableGeometry();
    host.setGeometry(screen.right() - 300, screen.bottom() - 200, 400, 300);
    page->QueryClose();
    page->ShowPage();
    page->btnRecalculateClick();
    const QRect taken(Tool().pos(), Tool().size()); // on a desktop it has no frame
    EXPECT_TRUE(screen.contains(taken)) << taken.right() << " " << taken.bottom();
}
} // namespace
