// Undo and redo by their keys in the real window, and by the menu of commands.
#include "access/Scenes.h"
#include "forms/CommandMenu.h"
#include "maps/Maps.h"
#include "maps/RevLimiterBox.h"

#include <QLineEdit>
#include <QMenu>

namespace {
class TUndoKeysTest : public TSceneTest {
protected:
    TStringAlignGrid &Grid() { return OnPage<TStringAlignGrid>("grdPTMap"); }
    void Type(int column, int row, const QString &text) {
        Grid().setFocus();
        Grid().SetCurrent(column, row);
        QTest::keyClicks(&Grid(), text.left(1));
        QTest::keyClicks(QApplication::focusWidget(), text.mid(1));
        Press(Qt::Key_Return);
    }
    QMenu &Menu() { return *FindControl<TCommandMenu>(window, "btnMenu").menu; }
    /// Texts of the open menu's entries and whether they are greyed, separators left out.
    QStringList Entries() {
        QStringList entries;
        for (const QAction *action : Menu().actions())
            if (!action->isSeparator())
                entries << action->text() + (action->isEnabled() ? "" : " (grey)");
        return entries;
    }
};

TEST_F(TUndoKeysTest, CtrlZTakesBackAndCtrlYAndCtrlShiftZGiveAgain) {
    Open(TScene::Fuel);
    const QString before = Grid().Cell(2, 1);
    Type(2, 1, "77");
    ASSERT_EQ(Grid().Cell(2, 1), "77");
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_Y, Qt::KeyboardModifiers(Qt::ControlModifier)),
          std::pair(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier)}) {
        Press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(Grid().Cell(2, 1), before);
        EXPECT_EQ(Grid().FontColor(2, 1), clWindowText);
        Press(key, modifiers);
        EXPECT_EQ(Grid().Cell(2, 1), "77");
        EXPECT_EQ(Grid().FontColor(2, 1), clBlue);
    }
}

TEST_F(TUndoKeysTest, WhileACellIsTypedTheKeysAreItsOwn) {
    Open(TScene::Fuel);
    Type(2, 1, "77");
    Grid().SetCurrent(3, 1);
    Press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), "5");
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(Grid().IsEditing());
    EXPECT_EQ(Grid().Cell(2, 1), "77");
}

TEST_F(TUndoKeysTest, InTheRevLimiterTheyAreThePages) {
    Open(TScene::Fuel);
    auto &rev = OnPage<TRevLimiterBox>("spnRevLimiter");
    rev.setFocus();
    const int before = rev.value();
    Press(Qt::Key_Up);
    ASSERT_EQ(rev.value(), before + 40);
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(rev.value(), before);
    EXPECT_EQ(rev.TextColor(), clWindowText);
}

TEST_F(TUndoKeysTest, APageHasNothingToDoWithAnother) {
    Open(TScene::Fuel);
    Type(2, 1, "77");
    dialogs.answers.push_back(TAnswer::No);
    SelectTab(2);
    Grid().setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(window.workspace.timingMapSet.IsModified());
    EXPECT_EQ(Grid().FontColor(2, 1), clWindowText);
}

TEST_F(TUndoKeysTest, TheMenuNamesTheStepAndGreysWhatCannotBeDone) {
    Open(TScene::Fuel);
    Press(Qt::Key_F10);
    EXPECT_TRUE(Entries().contains("&Undo (grey)"));
    EXPECT_TRUE(Entries().contains("&Redo (grey)"));
    Menu().close();
    Type(2, 1, "77");
    Press(Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(Entries().contains("&Undo typing 77"));
    EXPECT_TRUE(Entries().contains("&Redo (grey)"));
    QTest::keyClick(&Menu(), Qt::Key_U);
    EXPECT_EQ(Grid().FontColor(2, 1), clWindowText);
    Press(Qt::Key_F10);
    EXPECT_TRUE(Entries().contains("&Redo typing 77"));
    Menu().close();
    Press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(Grid().Cell(2, 1), "77") << "a key works although the menu has greyed it before";
}
} // namespace
