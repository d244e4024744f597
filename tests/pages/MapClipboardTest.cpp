// The clipboard in the grids of the map pages, by its keys: what is copied, what is entered, what
// stops a paste, and who else keeps these keys. What a table is and which text is a number are
// tested with the texts themselves.
#include "maps/MapClipboard.h"

#include "forms/Commands.h"
#include "maps/FuelMapsGraphical.h"
#include "maps/RevLimiterBox.h"
#include "pages/MapCellsFixture.h"

#include <random>

namespace {
using TMapClipboardTest = TFuelCellsTest;

TEST_F(TMapClipboardTest, CtrlCCopiesTheSelectedRectangle) {
    Grid().SetCurrent(2, 1);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "4\t7\n5\t8");
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(Grid().Selection(), (TGridRect{2, 1, 3, 2}));
}

TEST_F(TMapClipboardTest, CtrlCCopiesOneCellWithoutALineEnd) {
    Grid().SetCurrent(4, 3);
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "12");
}

TEST_F(TMapClipboardTest, CtrlShiftCCopiesTheHeadersToo) {
    Grid().SetSelection({2, 2, 3, 3});
    Press(Qt::Key_C, ctrlShift);
    EXPECT_EQ(Clipboard().text(), "\t4800\t7200\n60%\t5\t8\n100%\t6\t9");
}

TEST_F(TMapClipboardTest, CopiesWhatIsShown) {
    Find<QCheckBox>("chkInterpret").click();
    GoTo("grdPTMap");
    Grid().SetCurrent(4, 3);
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "0.09");
}

TEST_F(TMapClipboardTest, CopiesUnlockedHeadersAsCells) {
    Choose("UnlockAxis1");
    Grid().SetSelection({0, 0, 1, 1});
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "\t2400\n20%\t1");
    Press(Qt::Key_C, ctrlShift);
    EXPECT_EQ(Clipboard().text(), "\t2400\n20%\t1") << "but not twice";
}

TEST_F(TMapClipboardTest, CtrlVEntersTheTableAsOneStep) {
    Clipboard().setText("70\t71\r\n72\t73\r\n");
    Grid().SetCurrent(2, 2);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Texts(),
              (QStringList{"1", "4", "7", "10", "2", "70", "71", "11", "3", "72", "73", "12"}));
    EXPECT_EQ(Edited(), (QStringList{"2,2", "3,2", "2,3", "3,3"}));
    EXPECT_TRUE(page->PTChanged);
    EXPECT_EQ(dialogs.messages, QStringList());
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(Steps().count(), 1);
    EXPECT_EQ(Steps().undoText(), "Paste");
    page->history.Undo();
    EXPECT_EQ(Texts().join(' '), "1 4 7 10 2 5 8 11 3 6 9 12");
    EXPECT_EQ(Edited(), QStringList());
}

TEST_F(TMapClipboardTest, ThePastedNumbersAreWhatCommitStores) {
    Clipboard().setText("70\n71");
    Grid().SetCurrent(3, 1);
    Press(Qt::Key_V, ctrl);
    Click("btnSavePT");
    const int body = Map().data->offset;
    EXPECT_EQ(Get(body + 6, 3), (TBytes{70, 71, 9}));
}

TEST_F(TMapClipboardTest, TheChartShowsThePastedNumbers) {
    Clipboard().setText("70");
    Grid().SetCurrent(1, 1);
    Press(Qt::Key_V, ctrl);
    const auto series = page->Panel(TMapKind::PT).chart->property("series").toList();
    bool found = false;
    for (const QVariant &one : series)
        for (const QVariant &point : one.toMap()["points"].toList())
            found = found || point.toMap()["value"].toDouble() == 70;
    EXPECT_TRUE(found);
}

TEST_F(TMapClipboardTest, ASelectionIsPastedOverFromItsUpperLeftCell) {
    Clipboard().setText("70\t71");
    Grid().SetCurrent(2, 2);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Edited(), (QStringList{"2,2", "3,2"}));
}

TEST_F(TMapClipboardTest, ACopyWithHeadersIsPastedWithoutThem) {
    Grid().SetSelection({2, 1, 4, 3});
    Press(Qt::Key_C, ctrlShift);
    const QStringList before = Texts();
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(Edited().size(), 9);
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TMapClipboardTest, NothingIsChangedWhenAnyFieldCannotBeEntered) {
    const QStringList before = Texts();
    Grid().SetCurrent(3, 2);
    for (const auto &[text, message] :
         {std::pair{"70\t71\n72\tx", "Row 2, column 2 of what is pasted: 'x' is no number"},
          {"70\t71\t72", "Row 1, column 3 of what is pasted: '72' lies outside the map"},
          {"70\n71\n72", "Row 3, column 1 of what is pasted: '72' lies outside the map"},
          {"", "There is no text on the clipboard"}}) {
        Clipboard().setText(text);
        dialogs.messages.clear();
        Press(Qt::Key_V, ctrl);
        EXPECT_EQ(dialogs.messages, QStringList(message));
        EXPECT_EQ(Texts(), before);
        EXPECT_EQ(Edited(), QStringList());
        EXPECT_FALSE(page->PTChanged);
        EXPECT_FALSE(Steps().canUndo());
    }
}

TEST_F(TMapClipboardTest, TheGridThatHasTheKeyboardIsMeant) {
    Clipboard().setText("70\t71");
    GoTo("grdFTMap");
    Grid("grdFTMap").SetCurrent(2, 1);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Texts("grdFTMap").join(' '), "1 70 71 4");
    EXPECT_EQ(Edited(), QStringList());
    EXPECT_TRUE(page->FTChanged);
    EXPECT_FALSE(page->PTChanged);
    Grid("grdFTMap").SetSelection({1, 1, 2, 1});
    Press(Qt::Key_C, ctrlShift);
    EXPECT_EQ(Clipboard().text(), "\t2400\t4800\n100%\t1\t70");
}

TEST_F(TMapClipboardTest, TheKeysWorkAfterCommitHasTakenTheKeyboard) {
    Grid().SetCurrent(2, 1);
    Click("btnSavePT");
    ASSERT_TRUE(page->hasFocus());
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "4");
}

TEST_F(TMapClipboardTest, AnEditorKeepsItsOwnClipboard) {
    Clipboard().setText("70\t71");
    Grid().SetCurrent(2, 1);
    Press(Qt::Key_F2);
    QLineEdit &editor = *Grid().viewport()->findChild<QLineEdit *>();
    editor.setText("123");
    editor.setSelection(0, 2);
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "12");
    Press(Qt::Key_End);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(editor.text(), "12312");
    Press(Qt::Key_Delete);
    Press(Qt::Key_A, ctrl);
    Press(Qt::Key_X, ctrl);
    EXPECT_EQ(editor.text(), "");
    EXPECT_EQ(Clipboard().text(), "12312");
    Press(Qt::Key_Escape);
    EXPECT_EQ(Edited(), QStringList());
}

TEST_F(TMapClipboardTest, SoDoTheOffsetBoxesAndTheRevLimiter) {
    Clipboard().setText("7");
    const QStringList before = Texts();
    auto &box = Find<QLineEdit>("edtPTOffset");
    box.setFocus();
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(box.text(), "$1000") << "nobody has made it writable";
    box.selectAll();
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "$1000");
    auto &limiter = Find<TRevLimiterBox>("spnRevLimiter");
    limiter.setFocus();
    limiter.selectAll();
    Press(Qt::Key_C, ctrl);
    EXPECT_EQ(Clipboard().text(), "6800");
    Clipboard().setText("7200");
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(limiter.value(), 7200);
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TMapClipboardTest, PastingByTheMenuFirstAcceptsAnOpenEditor) {
    Clipboard().setText("70");
    Grid().SetCurrent(2, 1);
    QTest::keyClicks(&Grid(), "9");
    ASSERT_TRUE(Grid().IsEditing());
    Choose("actPaste");
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(Grid().Cell(2, 1), "70");
    EXPECT_EQ(Steps().count(), 2);
}

TEST_F(TMapClipboardTest, HeadersAreNotPastedOver) {
    Choose("UnlockAxis1");
    Clipboard().setText("70");
    Grid().SetCurrent(2, 0);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Grid().Cell(2, 0), "4800");
    EXPECT_EQ(Said(), "Nothing is changed: headers are selected too");
}

TEST_F(TMapClipboardTest, DeleteSaysThatItDoesNothing) {
    const QStringList before = Texts();
    Grid().SetSelection({1, 1, 4, 3});
    Press(Qt::Key_Delete);
    EXPECT_EQ(Said(), "Delete does nothing: a byte always has a value");
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(Edited(), QStringList());
    EXPECT_FALSE(Steps().canUndo());
}

TEST_F(TMapClipboardTest, TheUsersSeparatorCounts) {
    Find<QCheckBox>("chkInterpret").click();
    GoTo("grdPTMap");
    SetDecimalSeparator(",");
    Clipboard().setText("0,5");
    Grid().SetCurrent(1, 1);
    Press(Qt::Key_V, ctrl);
    EXPECT_EQ(Grid().Cell(1, 1), "0,5");
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TMapClipboardTest, IsGreyWhileThereAreNoCells) {
    UpdateCommands(*page);
    EXPECT_TRUE(Find<QAction>("actCopy").isEnabled());
    EXPECT_TRUE(Find<QAction>("actPaste").isEnabled());
    Image().Poke(fuelPT + 1, 32); // too many engine speeds to be shown
    page->LoadPTMap();
    UpdateCommands(*page);
    for (const char *name : {"actCopy", "actCopyWithHeaders", "actPaste"})
        EXPECT_FALSE(Find<QAction>(name).isEnabled()) << name;
    GoTo("grdIdMap");
    UpdateCommands(*page);
    EXPECT_TRUE(Find<QAction>("actPaste").isEnabled());
}

TEST_F(TMapClipboardTest, GraphicalPagesHaveNoCommandsForCells) {
    TfrmFuelMapsGraphical graphical(nullptr, workspace);
    graphical.ShowPage();
    for (const char *name : {"actCopy", "actPaste", "actUp", "actDelete"})
        EXPECT_EQ(graphical.findChild<QAction *>(name), nullptr) << name;
    EXPECT_NE(graphical.findChild<QAction *>("actUndo"), nullptr);
}

TEST_F(TMapClipboardTest, PastingAnyCopyWhereItWasTakenChangesNoText) {
    std::mt19937 random(3);
    const auto between = [&](int least, int most) {
        return least + static_cast<int>(random() % static_cast<unsigned>(most - least + 1));
    };
    for (int round = 0; round < 200; ++round) {
        for (int cell = 0; cell < 12; ++cell)
            Image().Poke(Map().data->offset + cell, static_cast<std::uint8_t>(between(0, 255)));
        Find<QCheckBox>("chkInterpret").setChecked(between(0, 1) == 1);
        page->LoadPTMap();
        const int left = between(1, 4);
        const int top = between(1, 3);
        Grid().SetSelection({left, top, between(left, 4), between(top, 3)});
        const QStringList before = Texts();
        CopyCells(*page, between(0, 1) == 1);
        PasteCells(*page);
        ASSERT_EQ(Texts(), before) << round;
        const TGridRect selected = Grid().Selection();
        ASSERT_EQ(Edited().size(),
                  (selected.right - selected.left + 1) * (selected.bottom - selected.top + 1));
        ASSERT_EQ(Said(), "");
    }
    EXPECT_EQ(dialogs.messages, QStringList());
}
} // namespace
