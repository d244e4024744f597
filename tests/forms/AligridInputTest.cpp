#include "forms/ShownGrid.h"

#include <QHeaderView>

namespace {
// ---- selecting -------------------------------------------------------------------------------

TEST_F(TShownGrid, LeftClickSelectsOneCell) {
    Click(3, 2);
    EXPECT_EQ(Current(), (TGridCell{3, 2}));
    EXPECT_EQ(grid.Selection(), (TGridRect{3, 2, 3, 2}));
}

TEST_F(TShownGrid, OtherButtonsLeaveCurrentCellAndSelection) {
    grid.SetSelection({1, 1, 2, 2});
    for (const Qt::MouseButton mouse : {Qt::RightButton, Qt::MiddleButton}) {
        for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
            Click(3, 4, mouse, modifier);
            QTest::mouseDClick(grid.viewport(), mouse, modifier, PointIn(3, 4));
            EXPECT_EQ(Current(), (TGridCell{2, 2}));
            EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 2, 2}));
        }
    }
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(TShownGrid, ShiftExtendsTheRectangle) {
    Click(3, 3);
    Click(1, 1, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 3, 3}));
    Click(2, 2);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), (TGridRect{2, 2, 3, 3}));
    EXPECT_EQ(Current(), (TGridCell{3, 3}));
    Press(Qt::Key_Left);
    EXPECT_EQ(grid.Selection(), (TGridRect{2, 3, 2, 3}));
}

TEST_F(TShownGrid, ShiftExtendsFromTheStartOfASetSelection) {
    grid.SetSelection({1, 2, 2, 3});
    EXPECT_EQ(Current(), (TGridCell{2, 3}));
    Click(3, 4, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 2, 3, 4}));
}

TEST_F(TShownGrid, DraggingExtendsTheRectangle) {
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, PointIn(1, 1));
    const QPoint to = PointIn(3, 2);
    QMouseEvent move(QEvent::MouseMove, to, grid.viewport()->mapToGlobal(to), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid.viewport(), &move);
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, to);
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 3, 2}));
}

TEST_F(TShownGrid, SelectionIsCutToTheCellsBehindTheHeaders) {
    grid.SetSelection({0, 0, 99, 2});
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 3, 2}));
    grid.SetSelection({0, 0, 0, 0});
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 3, 2}));
}

TEST_F(TShownGrid, KeysMoveTheCurrentCell) {
    Press(Qt::Key_Down);
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), (TGridCell{2, 2}));
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Current(), (TGridCell{3, 4}));
}

TEST_F(TShownGrid, ArrowsAtTheEdgeDoNotReachThePage) {
    QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
    QCoreApplication::sendEvent(&grid, &up);
    EXPECT_TRUE(up.isAccepted());
}

TEST_F(TShownGrid, TabLeavesTheGrid) {
    Press(Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(TShownGrid, TypingInAReadOnlyGridSearchesNothing) {
    grid.Editable = false;
    Type("3");
    Press(Qt::Key_Return);
    Press(Qt::Key_F2);
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    EXPECT_FALSE(grid.IsEditing());
    DoubleClick(1, 1);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_THAT(log, testing::IsEmpty());
}

// ---- OnSelectCell ----------------------------------------------------------------------------

class TSelectTest : public TShownGrid {
protected:
    TSelectTest() {
        grid.OnSelectCell = [this](int column, int row, bool &maySelect) {
            Record("select", column, row);
            maySelect = column != 2;
        };
    }
};

TEST_F(TSelectTest, IsAskedByMouseKeysAndProgram) {
    Click(3, 1);
    Press(Qt::Key_Down);
    grid.SetCurrent(1, 4);
    EXPECT_THAT(log, testing::ElementsAre("select 3 1", "select 3 2", "select 1 4"));
}

TEST_F(TSelectTest, PressOnTheCurrentCellCounts) {
    Click(1, 1);
    EXPECT_THAT(log, testing::ElementsAre("select 1 1"));
}

TEST_F(TSelectTest, MayRefuse) {
    Click(2, 3);
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    Press(Qt::Key_Right);
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    grid.SetCurrent(2, 2);
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    Click(2, 2, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 1, 1}));
}

TEST_F(TSelectTest, ErrorIsShownAndSelects) {
    grid.OnSelectCell = [](int, int, bool &) { throw std::runtime_error("select failed"); };
    Click(3, 3);
    EXPECT_EQ(dialogs.messages, QStringList("select failed"));
    EXPECT_EQ(Current(), (TGridCell{3, 3}));
}

// ---- mouse events ----------------------------------------------------------------------------

class TMouseTest : public TShownGrid {
protected:
    TMouseTest() {
        const auto record = [this](const char *event) {
            return [this, event](Qt::MouseButton mouse, Qt::KeyboardModifiers modifiers,
                                 QPoint position) {
                log.push_back(QString("%1 %2%3")
                                  .arg(event)
                                  .arg(static_cast<int>(mouse))
                                  .arg(modifiers & Qt::ShiftModifier ? " shift" : "")
                                  .toStdString());
                last = position;
            };
        };
        grid.OnMouseDown = record("down");
        grid.OnMouseUp = record("up");
        grid.OnDblClick = [this] { Record("double", grid.Col(), grid.Row()); };
        grid.OnFixedColClick = [this](int column, int row) { Record("side", column, row); };
        grid.OnFixedRowClick = [this](int column, int row) { Record("head", column, row); };
        grid.Editable = false;
    }
    QPoint last;
};

TEST_F(TMouseTest, DownAndUpTellButtonShiftAndPosition) {
    Click(1, 1);
    EXPECT_EQ(last, grid.viewport()->mapTo(&grid, PointIn(1, 1)));
    Click(2, 2, Qt::LeftButton, Qt::ShiftModifier);
    Click(2, 2, Qt::RightButton);
    EXPECT_THAT(log, testing::ElementsAre("down 1", "up 1", "down 1 shift", "up 1 shift", "down 2",
                                          "up 2"));
}

TEST_F(TMouseTest, DoubleClickComesAfterTheSelection) {
    DoubleClick(3, 2);
    EXPECT_THAT(log, testing::Contains("double 3 2"));
}

TEST_F(TMouseTest, FixedCellsAreClickedButNotSelected) {
    QWidget *head = grid.horizontalHeader()->viewport();
    const QPoint inHead(grid.horizontalHeader()->sectionViewportPosition(1) + 5, 5);
    QTest::mouseClick(head, Qt::LeftButton, {}, inHead);
    EXPECT_THAT(log, testing::ElementsAre("down 1", "up 1", "head 2 0"));
    EXPECT_EQ(last, head->mapTo(&grid, inHead));
    log.clear();
    QTest::mouseClick(grid.verticalHeader()->viewport(), Qt::LeftButton, {},
                      {5, grid.verticalHeader()->sectionViewportPosition(2) + 5});
    EXPECT_THAT(log, testing::ElementsAre("down 1", "up 1", "side 0 3"));
    log.clear();
    QTest::mouseClick(head, Qt::RightButton, {}, inHead);
    EXPECT_THAT(log, testing::ElementsAre("down 2", "up 2"));
    log.clear();
    QTest::mouseDClick(head, Qt::LeftButton, {}, inHead);
    EXPECT_THAT(log, testing::Contains("double 1 1"));
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 1, 1}));
}

TEST_F(TMouseTest, PressBesideTheCellsSelectsNothing) {
    grid.SetSelection({1, 1, 2, 2});
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                      grid.viewport()->rect().bottomRight() - QPoint(2, 2));
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 1, 2, 2}));
    EXPECT_THAT(log, testing::ElementsAre("down 1", "up 1"));
}

TEST_F(TMouseTest, ErrorsAreShown) {
    grid.OnMouseDown = [](auto...) { throw std::runtime_error("down failed"); };
    grid.OnDblClick = [] { throw std::runtime_error("double failed"); };
    DoubleClick(1, 1);
    EXPECT_TRUE(dialogs.messages.contains("down failed"));
    EXPECT_TRUE(dialogs.messages.contains("double failed"));
}
} // namespace
