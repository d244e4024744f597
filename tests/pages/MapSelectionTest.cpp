// The menu "Selection" of the map pages, by its keys: the selected cells alone change, in one step
// that is named like the command. The arithmetic is tested with its numbers.
#include "maps/RevLimiterBox.h"
#include "pages/MapCellsFixture.h"

#include <map>

#include <QShortcut>

namespace {
using TMapSelectionTest = TFuelCellsTest;
using TTimingSelectionTest = TTimingCellsTest;

/// A command on the cells (2,1) to (4,3) of the part throttle map, of which the middle one is 80.
struct TCommandCase {
    const char *action;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char *answer; ///< to its question; nullptr for none
    const char *step;
    const char *texts; ///< of the nine, row by row
};
void PrintTo(const TCommandCase &tested, std::ostream *stream) {
    *stream << tested.action;
}

class TCommandTest : public TFuelCellsTest, public testing::WithParamInterface<TCommandCase> {
protected:
    void SetUp() override {
        Grid().SetCurrent(3, 2);
        Type("80");
        Grid().SetSelection({2, 1, 4, 3});
    }
    QString Selected() {
        QStringList texts;
        for (int row = 1; row <= 3; ++row)
            for (int column = 2; column <= 4; ++column)
                texts << Grid().Cell(column, row);
        return texts.join(' ');
    }
};

TEST_P(TCommandTest, ChangesTheSelectedCellsAsOneStep) {
    if (GetParam().answer)
        dialogs.inputs.push_back(GetParam().answer);
    ASSERT_EQ(Selected(), "4 7 10 5 80 11 6 9 12");
    Press(GetParam().key, GetParam().modifiers);
    EXPECT_FALSE(Grid().IsEditing());
    EXPECT_EQ(Selected(), GetParam().texts);
    EXPECT_EQ(Texts().mid(0, 1) + Texts().mid(4, 1) + Texts().mid(8, 1),
              (QStringList{"1", "2", "3"}));
    EXPECT_EQ(Steps().undoText(), GetParam().step);
    EXPECT_EQ(Steps().count(), 2);
    EXPECT_EQ(Grid().Selection(), (TGridRect{2, 1, 4, 3}));
    page->history.Undo();
    EXPECT_EQ(Selected(), "4 7 10 5 80 11 6 9 12");
}

TEST_P(TCommandTest, HasThatKeyInTheMenu) {
    const auto &action = Find<QAction>(GetParam().action);
    EXPECT_EQ(QString(action.text()).remove('&'), GetParam().step);
    EXPECT_EQ(action.shortcut(),
              QKeySequence(QKeyCombination(GetParam().modifiers, GetParam().key)));
    EXPECT_TRUE(Find<QMenu>("mnuSelection").actions().contains(&action));
}

constexpr Qt::KeyboardModifiers ctrlKey = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers bothKeys = Qt::ControlModifier | Qt::ShiftModifier;
INSTANTIATE_TEST_SUITE_P(
    Commands, TCommandTest,
    testing::Values(TCommandCase{"actUp", Qt::Key_Up, ctrlKey, nullptr, "Up by One Unit",
                                 "5 8 11 6 81 12 7 10 13"},
                    TCommandCase{"actDown", Qt::Key_Down, ctrlKey, nullptr, "Down by One Unit",
                                 "3 6 9 4 79 10 5 8 11"},
                    TCommandCase{"actUpTen", Qt::Key_Up, bothKeys, nullptr, "Up by Ten Units",
                                 "14 17 20 15 90 21 16 19 22"},
                    TCommandCase{"actDownTen", Qt::Key_Down, bothKeys, nullptr, "Down by Ten Units",
                                 "-6 -3 0 -5 70 1 -4 -1 2"},
                    TCommandCase{"actSetTo", Qt::Key_E, ctrlKey, "77", "Set to",
                                 "77 77 77 77 77 77 77 77 77"},
                    TCommandCase{"actAdd", Qt::Key_D, ctrlKey, "-2", "Add", "2 5 8 3 78 9 4 7 10"},
                    TCommandCase{"actMultiply", Qt::Key_M, ctrlKey, "150", "Multiply by Percent",
                                 "6 11 15 8 120 17 9 14 18"},
                    TCommandCase{"actInterpolateRows", Qt::Key_R, bothKeys, nullptr,
                                 "Interpolate along Rows", "4 7 10 5 8 11 6 9 12"},
                    TCommandCase{"actInterpolateColumns", Qt::Key_L, bothKeys, nullptr,
                                 "Interpolate along Columns", "4 7 10 5 8 11 6 9 12"},
                    TCommandCase{"actInterpolateBoth", Qt::Key_B, bothKeys, nullptr,
                                 "Interpolate along Both", "4 7 10 5 8 11 6 9 12"},
                    TCommandCase{"actSmooth", Qt::Key_S, bothKeys, nullptr, "Smooth",
                                 "4 7 10 5 16 11 6 9 12"}));

TEST_F(TMapSelectionTest, OneUnitIsTheLastDigitThatIsShown) {
    Find<QCheckBox>("chkInterpret").click();
    GoTo("grdPTMap");
    Grid().SetCurrent(4, 3);
    ASSERT_EQ(Grid().Cell(4, 3), "0.09");
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(Grid().Cell(4, 3), "0.10");
    Press(Qt::Key_Up, ctrlShift);
    EXPECT_EQ(Grid().Cell(4, 3), "0.20");
}

TEST_F(TTimingSelectionTest, OneUnitOfDegreesIsATenth) {
    Find<QCheckBox>("chkInterpret").click();
    GoTo("grdPTMap");
    Grid().SetCurrent(4, 3);
    ASSERT_EQ(Grid().Cell(4, 3), "-0.5");
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(Grid().Cell(4, 3), "-0.4");
    Press(Qt::Key_Down, ctrlShift);
    EXPECT_EQ(Grid().Cell(4, 3), "-1.4");
}

TEST_F(TMapSelectionTest, WhatIsNotChangedIsNotMarked) {
    Grid().SetSelection({1, 2, 4, 2});
    Grid().SetCell(2, 2, "99");
    Press(Qt::Key_R, ctrlShift);
    EXPECT_EQ(Texts().mid(4, 4).join(' '), "2 5 8 11");
    EXPECT_EQ(Edited(), QStringList("2,2"));
    Press(Qt::Key_R, ctrlShift);
    EXPECT_EQ(Said(), "No selected cell changes");
    EXPECT_EQ(Steps().count(), 1);
}

TEST_F(TMapSelectionTest, InterpolatingGoesByTheAxesValues) {
    Image().Poke(fuelPT + 2, 100); // 4000 rpm between the first two engine speeds
    page->LoadPTMap();
    ASSERT_EQ(Grid().Cell(1, 0), "800");
    Grid().SetCurrent(1, 1);
    Type("0");
    Grid().SetCurrent(3, 1);
    Type("64");
    Grid().SetSelection({1, 1, 3, 1});
    Press(Qt::Key_R, ctrlShift);
    EXPECT_EQ(Grid().Cell(2, 1), "40");
}

TEST_F(TMapSelectionTest, LoadsCountAsStoredNotAsShown) {
    Image().Poke(fuelPT + 8, 101); // the first load is 19.6 %, shown as 20 %
    page->LoadPTMap();
    ASSERT_EQ(Grid().Cell(0, 1), "20%");
    Grid().SetCurrent(1, 1);
    Type("0");
    Grid().SetCurrent(1, 3);
    Type("201");
    Grid().SetSelection({1, 1, 1, 3});
    Press(Qt::Key_L, ctrlShift);
    EXPECT_EQ(Grid().Cell(1, 2), "101") << "101 of 201 steps; by 20 % it were 100.5";
}

TEST_F(TMapSelectionTest, PointsThatRepeatAreSaid) {
    Image().Poke(fuelPT + 2, 0); // the first two engine speeds are the same
    page->LoadPTMap();
    const QStringList before = Texts();
    Grid().SetSelection({1, 1, 4, 1});
    Press(Qt::Key_R, ctrlShift);
    EXPECT_EQ(Said(), "Nothing is changed: the engine speeds of the selection do not rise from "
                      "cell to cell");
    EXPECT_EQ(Texts(), before);
    EXPECT_FALSE(Steps().canUndo());
}

TEST_F(TMapSelectionTest, ACellThatIsNoNumberIsNamed) {
    Grid().SetCell(3, 2, "abc");
    const QStringList before = Texts();
    Grid().SetSelection({2, 1, 4, 3});
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(Said(), "Nothing is changed: 'abc' is no number, at 7200 RPM, 60%");
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(Edited(), QStringList());
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TMapSelectionTest, UnlockedHeadersAreRefused) {
    Choose("UnlockAxis1");
    Grid().SetSelection({0, 0, 4, 3});
    const QStringList before = Texts();
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(Said(), "Nothing is changed: headers are selected too");
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(Grid().Cell(1, 0), "2400");
    Grid().SetSelection({1, 1, 1, 1});
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(Grid().Cell(1, 1), "2");
}

TEST_F(TMapSelectionTest, QuestionsThatAreNotAnsweredChangeNothing) {
    const QStringList before = Texts();
    for (const Qt::Key key : {Qt::Key_E, Qt::Key_D, Qt::Key_M}) {
        dialogs.inputs.push_back(QString()); // Cancel
        Press(key, ctrl);
    }
    EXPECT_EQ(dialogs.inputBoxes,
              (QStringList{"Set to|Number for the selected cells|",
                           "Add|Number to add to the selected cells|",
                           "Multiply by Percent|Percent of each selected cell, such as 105|"}));
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(Edited(), QStringList());
}

TEST_F(TMapSelectionTest, AnAnswerThatIsNoNumberIsAnError) {
    const QStringList before = Texts();
    dialogs.inputs.push_back("1O5");
    Press(Qt::Key_M, ctrl);
    EXPECT_EQ(dialogs.messages, QStringList("'1O5' is not a valid floating point value"));
    EXPECT_EQ(Texts(), before);
}

TEST_F(TMapSelectionTest, ANumberThatNothingCouldStoreIsAnErrorBeforeAnyIsEntered) {
    const QStringList before = Texts();
    Grid().SetSelection({1, 1, 2, 1});
    dialogs.inputs.push_back("1e308");
    Press(Qt::Key_M, ctrl);
    EXPECT_EQ(dialogs.messages, QStringList("The number is outside the range of a stored value"));
    EXPECT_EQ(Texts(), before);
    EXPECT_FALSE(page->PTChanged);
}

TEST_F(TMapSelectionTest, WhatIsBeingTypedIsAcceptedFirst) {
    Grid().SetCurrent(2, 1);
    QTest::keyClicks(&Grid(), "9");
    ASSERT_TRUE(Grid().IsEditing());
    Choose("actUp"); // by the menu: its key belongs to the editor
    EXPECT_EQ(Grid().Cell(2, 1), "10");
    EXPECT_EQ(Steps().count(), 2);
}

TEST_F(TMapSelectionTest, AMinusStillBeginsANumber) {
    Grid().SetCurrent(2, 1);
    QTest::keyClicks(&Grid(), "-");
    EXPECT_TRUE(Grid().IsEditing());
    EXPECT_EQ(Grid().viewport()->findChild<QLineEdit *>()->text(), "-");
    Press(Qt::Key_Escape);
}

TEST_F(TMapSelectionTest, AnEditorTheBoxesAndTheChartsKeepTheseKeys) {
    const QStringList before = Texts();
    auto &limiter = Find<TRevLimiterBox>("spnRevLimiter");
    limiter.setFocus();
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(limiter.value(), 7200) << "ten steps";
    for (const char *name : {"edtPTOffset", "chtPTMap", "chkInterpret", "btnRecalculate"}) {
        GoTo(name);
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_E, Qt::Key_D, Qt::Key_M})
            Press(key, ctrl);
        for (const Qt::Key key :
             {Qt::Key_Up, Qt::Key_Down, Qt::Key_R, Qt::Key_L, Qt::Key_B, Qt::Key_S})
            Press(key, ctrlShift);
    }
    GoTo("grdPTMap");
    Press(Qt::Key_F2);
    Press(Qt::Key_E, ctrl);
    Press(Qt::Key_S, ctrlShift);
    EXPECT_TRUE(Grid().IsEditing());
    Press(Qt::Key_Escape);
    EXPECT_EQ(Texts(), before);
    EXPECT_EQ(dialogs.inputBoxes, QStringList());
}

TEST_F(TMapSelectionTest, TheGridThatHasTheKeyboardIsMeant) {
    GoTo("grdIdMap");
    Grid("grdIdMap").SetSelection({2, 1, 3, 1});
    Press(Qt::Key_Up, ctrl);
    EXPECT_EQ(Texts("grdIdMap").join(' '), "1 3 4 4");
    EXPECT_EQ(Edited(), QStringList());
    EXPECT_TRUE(page->IdleChanged);
    EXPECT_FALSE(page->PTChanged);
}

TEST_F(TMapSelectionTest, NoKeyOfThePageAndItsWindowStandsForTwoThings) {
    std::map<QString, QStringList> keys;
    for (const QAction *action : window.findChildren<QAction *>())
        for (const QKeySequence &key : action->shortcuts())
            keys[key.toString()] << action->objectName();
    for (const QShortcut *shortcut : window.findChildren<QShortcut *>())
        keys[shortcut->key().toString()] << "a shortcut";
    EXPECT_GT(keys.size(), 15U);
    for (const auto &[key, names] : keys)
        EXPECT_EQ(names.size(), 1) << key.toStdString() << ": " << names.join(", ").toStdString();
}

TEST_F(TMapSelectionTest, OnAnAddedPageItsOneMapIsMeantFromTheStart) {
    TfrmFuelMaps added(nullptr, workspace, workspace.fuelMapSet);
    added.ShowOnly(TMapKind::WOT);
    EXPECT_EQ(added.CurrentKind(), TMapKind::WOT);
}
} // namespace
