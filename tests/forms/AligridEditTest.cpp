#include "forms/ShownGrid.h"

#include <QPlainTextEdit>

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

class TEditTest : public TShownGrid {};

// ---- opening ---------------------------------------------------------------------------------

TEST_F(TEditTest, TypingReplacesTheText) {
    Type("4");
    ASSERT_TRUE(grid.IsEditing());
    EXPECT_EQ(Editor()->text(), "4");
    Type("2");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "42");
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(grid.hasFocus());
}

TEST_F(TEditTest, F2EnterAndDoubleClickOpenWithTheText) {
    const std::function<void()> ways[] = {
        [&] { Press(Qt::Key_F2); }, [&] { Press(Qt::Key_Return); },
        [&] { Press(Qt::Key_Enter, Qt::KeypadModifier); }, [&] { DoubleClick(1, 1); }};
    for (const auto &way : ways) {
        way();
        ASSERT_TRUE(grid.IsEditing());
        EXPECT_EQ(Editor()->text(), "11");
        EXPECT_TRUE(Editor()->hasFocus());
        Press(Qt::Key_Escape);
    }
}

TEST_F(TEditTest, CommandKeysOpenNothing) {
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Escape);
    Press(Qt::Key_Shift);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(TEditTest, ErrorBeforeTheEditIsShownAndTheEditorOpens) {
    grid.OnBeforeEdit = [](int, int) { throw std::runtime_error("not a number"); };
    Press(Qt::Key_F2);
    EXPECT_EQ(dialogs.messages, QStringList("not a number"));
    ASSERT_TRUE(grid.IsEditing());
    EXPECT_EQ(Editor()->text(), "11");
}

TEST_F(TEditTest, EditorIsAlignedLikeItsCell) {
    grid.Alignment = TAlign::Right;
    Press(Qt::Key_F2);
    EXPECT_TRUE(Editor()->alignment().testFlag(Qt::AlignRight));
}

// ---- accepting and cancelling ----------------------------------------------------------------

TEST_F(TEditTest, EqualTextCountsAsEdited) {
    Press(Qt::Key_F2);
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
}

TEST_F(TEditTest, EscapeCancels) {
    Type("9");
    Press(Qt::Key_Escape);
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_THAT(log, ElementsAre("before 1 1", "cancel 1 1"));
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    EXPECT_TRUE(grid.hasFocus());
}

TEST_F(TEditTest, TextIsInTheCellWhenAfterEditRuns) {
    QString seen;
    bool editing = true;
    grid.OnAfterEdit = [&](int column, int row) {
        seen = grid.Cell(column, row);
        editing = grid.IsEditing();
    };
    Type("abc");
    Press(Qt::Key_Return);
    EXPECT_EQ(seen, "abc");
    EXPECT_FALSE(editing);
}

TEST_F(TEditTest, ErrorAfterTheEditLeavesTheTextAndTheCursor) {
    grid.OnAfterEdit = [this](int column, int row) {
        Record("after", column, row);
        throw std::runtime_error("'abc' is not a valid floating point value");
    };
    Type("abc");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "abc");
    EXPECT_EQ(dialogs.messages, QStringList("'abc' is not a valid floating point value"));
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    EXPECT_EQ(grid.FontColor(1, 1), clWindowText);
    QTest::qWait(0);
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(TEditTest, ErrorAfterTheEditKeepsTheCursorWhateverTheKey) {
    grid.OnAfterEdit = [](int, int) { throw std::runtime_error("no number"); };
    grid.AutoEditNextCell = true;
    for (const Qt::Key key :
         {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Up, Qt::Key_Down}) {
        grid.SetCurrent(2, 2);
        Type("x");
        Press(key);
        EXPECT_EQ(Current(), (TGridCell{2, 2})) << key;
        EXPECT_FALSE(grid.IsEditing());
    }
    EXPECT_EQ(dialogs.messages.size(), 5);
}

TEST_F(TEditTest, LosingTheFocusAccepts) {
    Type("5");
    button.setFocus();
    EXPECT_EQ(grid.Cell(1, 1), "5");
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(TEditTest, HidingTheGridAccepts) {
    Type("5");
    grid.hide();
    EXPECT_EQ(grid.Cell(1, 1), "5");
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
}

TEST_F(TEditTest, ClickOnAnotherCellAccepts) {
    Type("5");
    Click(3, 3);
    EXPECT_EQ(grid.Cell(1, 1), "5");
    EXPECT_EQ(Current(), (TGridCell{3, 3}));
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
}

TEST_F(TEditTest, MovingTheCurrentCellByProgramAccepts) {
    Type("5");
    grid.SetCurrent(2, 2);
    EXPECT_EQ(grid.Cell(1, 1), "5");
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(TEditTest, MenuOfTheEditorDoesNotEndTheEdit) {
    Type("5");
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(Editor(), &menu);
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_THAT(log, ElementsAre("before 1 1"));
}

TEST_F(TEditTest, CloseEditorAccepts) {
    EXPECT_FALSE(grid.CloseEditor());
    Type("5");
    EXPECT_TRUE(grid.CloseEditor());
    EXPECT_EQ(grid.Cell(1, 1), "5");
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    EXPECT_FALSE(grid.CloseEditor());
    QTest::qWait(0);
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1"));
}

TEST_F(TEditTest, CellsKeptUpToDateDoNotOverwriteTheEditor) {
    Type("5");
    grid.SetCell(1, 1, "other");
    QCoreApplication::processEvents();
    EXPECT_EQ(Editor()->text(), "5");
}

TEST_F(TEditTest, NewShapeCancels) {
    Type("5");
    grid.SetRowCount(3);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_THAT(log, ElementsAre("before 1 1", "cancel 1 1"));
    Type("6");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "6");
}

TEST(Aligrid, MayGoWithItsEditorOpen) {
    TFakeDialogs dialogs;
    int ended = 0;
    {
        TStringAlignGrid grid;
        grid.Editable = true;
        grid.OnAfterEdit = [&](int, int) { ++ended; };
        grid.show();
        grid.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&grid));
        QTest::keyClick(&grid, Qt::Key_F2);
        ASSERT_TRUE(grid.IsEditing());
    }
    EXPECT_EQ(ended, 0);
}

TEST_F(TEditTest, ValidationMayChangeTheText) {
    grid.OnValidateEdit = [](int column, int row, QString &text, bool &) {
        text += QString(" at %1 %2").arg(column).arg(row);
    };
    Type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "5 at 1 1");
}

TEST_F(TEditTest, ValidationMayRefuse) {
    grid.OnValidateEdit = [](int, int, QString &, bool &accept) { accept = false; };
    Type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    EXPECT_THAT(log, ElementsAre("before 1 1", "cancel 1 1"));
}

TEST_F(TEditTest, FailedValidationRefuses) {
    grid.OnValidateEdit = [](int, int, QString &, bool &) { throw std::runtime_error("refused"); };
    Type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_EQ(dialogs.messages, QStringList("refused"));
    EXPECT_THAT(log, ElementsAre("before 1 1", "cancel 1 1"));
}

// ---- where the cursor goes -------------------------------------------------------------------

struct TGoCase {
    const char *name;
    TGridCell from;
    Qt::Key key;
    TGridCell to;
};

void PrintTo(const TGoCase &test, std::ostream *out) {
    *out << test.name;
}

class TGoTest : public TShownGrid, public testing::WithParamInterface<TGoCase> {};

TEST_P(TGoTest, AcceptsOnceAndMoves) {
    const TGoCase &test = GetParam();
    grid.NextCellEdit = nc_downleft;
    grid.NextCellTab = nc_rightdown;
    grid.SetCurrent(test.from.column, test.from.row);
    Type("5");
    Press(test.key);
    QTest::qWait(0);
    EXPECT_EQ(grid.Cell(test.from.column, test.from.row), "5");
    EXPECT_EQ(Current(), test.to);
    EXPECT_EQ(log.size(), 2u);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(grid.hasFocus());
}

INSTANTIATE_TEST_SUITE_P(
    Keys, TGoTest,
    testing::Values(TGoCase{"Enter follows NextCellEdit", {2, 2}, Qt::Key_Return, {2, 3}},
                    TGoCase{"Enter at the bottom", {2, 4}, Qt::Key_Enter, {1, 1}},
                    TGoCase{"Enter at the last cell stays", {1, 4}, Qt::Key_Return, {1, 4}},
                    TGoCase{"Tab follows NextCellTab", {2, 2}, Qt::Key_Tab, {3, 2}},
                    TGoCase{"Tab at the right", {3, 2}, Qt::Key_Tab, {1, 3}},
                    TGoCase{"Tab at the last cell stays", {3, 4}, Qt::Key_Tab, {3, 4}},
                    TGoCase{"Back tab goes left", {2, 2}, Qt::Key_Backtab, {1, 2}},
                    TGoCase{"Up", {2, 2}, Qt::Key_Up, {2, 1}},
                    TGoCase{"Up at the top", {2, 1}, Qt::Key_Up, {2, 1}},
                    TGoCase{"Down", {2, 2}, Qt::Key_Down, {2, 3}},
                    TGoCase{"Down at the bottom", {2, 4}, Qt::Key_Down, {2, 4}}));

TEST_F(TEditTest, AfterTheLastCellTheFirstFollowsWhenAsked) {
    grid.AfterLastCellEdit = lc_first;
    grid.AfterLastCellTab = lc_first;
    grid.NextCellTab = nc_downleft;
    grid.SetCurrent(3, 4);
    Type("5");
    Press(Qt::Key_Return);
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
    grid.SetCurrent(1, 4);
    Type("5");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Current(), (TGridCell{3, 1}));
}

TEST_F(TEditTest, AfterTheLastCellTheGridIsLeftWhenAsked) {
    grid.AfterLastCellTab = lc_exit;
    grid.SetCurrent(3, 4);
    Type("5");
    Press(Qt::Key_Tab);
    EXPECT_TRUE(button.hasFocus());
    EXPECT_EQ(Current(), (TGridCell{3, 4}));
}

TEST_F(TEditTest, NextCellIsEditedAtOnceWhenAsked) {
    grid.AutoEditNextCell = true;
    Type("5");
    Press(Qt::Key_Return);
    ASSERT_TRUE(grid.IsEditing());
    EXPECT_EQ(Current(), (TGridCell{2, 1}));
    Type("6");
    Press(Qt::Key_Escape);
    EXPECT_THAT(log, ElementsAre("before 1 1", "after 1 1", "before 2 1", "cancel 2 1"));
    EXPECT_EQ(grid.Cell(2, 1), "21");
}

TEST_F(TEditTest, ArrowsInsideTheTextStayInTheEditor) {
    Press(Qt::Key_F2);
    Press(Qt::Key_End);
    Press(Qt::Key_Left);
    Type("x");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "1x1");
}

TEST_F(TEditTest, EditorOfSeveralLinesTakesThem) {
    grid.EditMultiline = true;
    Press(Qt::Key_F2);
    ASSERT_TRUE(qobject_cast<QPlainTextEdit *>(grid.indexWidget(grid.currentIndex())));
    Type("a");
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Type("b");
    Press(Qt::Key_Up);
    ASSERT_TRUE(grid.IsEditing());
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(1, 1), "a\nb");
    EXPECT_EQ(Current(), (TGridCell{2, 1}));
}

TEST_F(TEditTest, EditorScrollsIntoView) {
    grid.SetShape(4, 500);
    grid.SetCurrent(1, 400);
    grid.scrollToTop();
    Type("5");
    EXPECT_TRUE(grid.viewport()->rect().contains(Editor()->geometry()));
}
} // namespace
