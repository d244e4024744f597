// Finding one's way in the contents view with keys: to an offset, from mark to mark; what the
// bottom line says of a cell, and what is copied.
#include "pages/FileWalkFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QScrollBar>
#include <QToolButton>

namespace {
constexpr int mebibyte = 0x100000;

std::string Copied() {
    return QGuiApplication::clipboard()->text().toStdString();
}

// ---- to an offset ------------------------------------------------------------------------------

struct TOffsetCase {
    int size;
    const char *typed;
    int offset;
};

void PrintTo(const TOffsetCase &item, std::ostream *out) {
    *out << item.typed << " of " << item.size;
}

class TGoToTest : public TFileWalkTest, public testing::WithParamInterface<TOffsetCase> {};

TEST_P(TGoToTest, MakesTheCellTheCurrentOneAsAClickDoes) {
    for (const bool hexadecimal : {false, true}) {
        Enter(GetParam().size);
        if (hexadecimal)
            ShowHexadecimal();
        dialogs.inputs = {GetParam().typed};
        Press(Qt::Key_G, Qt::ControlModifier);
        EXPECT_EQ(Offset(), GetParam().offset);
        EXPECT_EQ(page->session.Recorded(), static_cast<std::size_t>(GetParam().offset));
        const TGridCell cell{Grid().Col(), Grid().Row()};
        EXPECT_EQ(Grid().Selection(), (TGridRect{cell.column, cell.row, cell.column, cell.row}));
        EXPECT_TRUE(Seen());
        EXPECT_TRUE(Said().starts_with("Offset $")) << Said();
    }
    EXPECT_EQ(dialogs.inputBoxes.value(0),
              "Go to Offset|Offset, decimal or hexadecimal behind a $|");
}

INSTANTIATE_TEST_SUITE_P(Offsets, TGoToTest,
                         testing::Values(TOffsetCase{1, "0", 0}, TOffsetCase{0x21, "32", 32},
                                         TOffsetCase{0x10000, "$1A5C", 0x1A5C},
                                         TOffsetCase{0x10000, "6748", 6748},
                                         TOffsetCase{0x10000, " $ffff", 0xFFFF},
                                         TOffsetCase{0x10000, "+16", 16},
                                         TOffsetCase{mebibyte, "$FFFFF", 0xFFFFF},
                                         TOffsetCase{mebibyte, "524288", 0x80000}));

TEST_F(TFileWalkTest, WhatIsNoOffsetIsSaidAndMovesNothing) {
    Enter(0x21);
    const std::string noOffset = " is no offset: type a decimal number, or $ and a hexadecimal one";
    const std::string outside = " is outside the image: offsets are $0000 to $0020 (32)";
    for (const auto &[typed, said] :
         {std::pair<std::string, std::string>{"abc", "'abc'" + noOffset},
          {"1A5C", "'1A5C'" + noOffset},
          {"0x10", "'0x10'" + noOffset},
          {"99999999999", "'99999999999'" + noOffset},
          {" ", "' '" + noOffset},
          {"33", "33" + outside},
          {"$21", "$21" + outside},
          {"-1", "-1" + outside},
          {"$FFFFFFFF", "$FFFFFFFF" + outside}}) {
        dialogs.inputs = {QString::fromStdString(typed)};
        Press(Qt::Key_G, Qt::ControlModifier);
        EXPECT_EQ(Said(), said);
        EXPECT_EQ(Offset(), 0);
        EXPECT_EQ(page->session.Recorded(), std::nullopt);
    }
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(TFileWalkTest, CancelAndAnEmptyAnswerDoNothing) {
    Enter(0x100);
    page->Say("still there");
    dialogs.inputs = {QString(), ""};
    Press(Qt::Key_G, Qt::ControlModifier);
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(dialogs.inputBoxes.size(), 2);
    EXPECT_EQ(Said(), "still there");
    EXPECT_EQ(page->session.Recorded(), std::nullopt);
}

TEST_F(TFileWalkTest, AnOffsetThatIsSeenStaysWhereItIs) {
    Enter(0x10000);
    QScrollBar &bar = *Grid().verticalScrollBar();
    bar.setValue(100);
    dialogs.inputs = {"$665", "$8000", "$8010"};
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(bar.value(), 100);
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_NEAR(bar.value() + Grid().VisibleRowCount() / 2, 0x800, 1) << "in the middle";
    const int middle = bar.value();
    Press(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(bar.value(), middle);
}

TEST_F(TFileWalkTest, TheCurrentCellIsShownAgainWhenItWasScrolledAway) {
    Enter(0x10000);
    for (int time = 0; time < 2; ++time) {
        dialogs.inputs = {"$8000"};
        Press(Qt::Key_G, Qt::ControlModifier);
        EXPECT_TRUE(Seen());
        Grid().verticalScrollBar()->setValue(0);
    }
}

TEST_F(TFileWalkTest, AMapIsHighlightedFromAnOffset) {
    Enter(0x10000, {{0x4321, TwoD(fuelValue)}});
    Trigger("Fuel6"); // takes the selection away
    dialogs.inputs = {"$4321"};
    Press(Qt::Key_G, Qt::ControlModifier);
    Trigger("Fuel3");
    EXPECT_EQ(Grid().CellColor(2, 0x432 + 1), 0x008002u);
}

TEST_F(TFileWalkTest, WithoutAnImageKeysDoNothing) {
    Enter(0);
    for (const auto &[key, modifiers] :
         {std::pair<Qt::Key, Qt::KeyboardModifiers>{Qt::Key_G, Qt::ControlModifier},
          {Qt::Key_F3, Qt::NoModifier},
          {Qt::Key_F3, Qt::ShiftModifier}})
        Press(key, modifiers);
    EXPECT_EQ(dialogs.inputBoxes, QStringList());
    EXPECT_EQ(Said(), "");
}

// ---- from mark to mark -------------------------------------------------------------------------

class TMarkWalkTest : public TFileWalkTest {
protected:
    /// The offsets that a key goes to, one after the other.
    std::vector<int> Walk(int times, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        std::vector<int> offsets;
        for (int time = 0; time < times; ++time) {
            Press(Qt::Key_F3, modifiers);
            offsets.push_back(Offset());
            EXPECT_TRUE(Seen());
            EXPECT_EQ(page->session.Recorded(), static_cast<std::size_t>(Offset()));
        }
        return offsets;
    }
    void Mark(const char *value) {
        dialogs.inputs = {value};
        Trigger("HighlightAValue1");
    }
};

TEST_F(TMarkWalkTest, GoesOverRunsOfOneKindAndRound) {
    Enter(0x8000,
          {{0x20, {100, 101, 102}}, {0x2C, {100, 100}}, {0x7000, {100, 100}}, {0x100, {7}}});
    Trigger("FindConsecutivePossFuelVals");
    Mark("7");
    EXPECT_EQ(Walk(4), (std::vector{0x20, 0x2C, 0x7000, 0x20}));
    EXPECT_EQ(Said(),
              "From the beginning again: Offset $0020 (32), value $64 (100): Possible Fuel Val");
    EXPECT_EQ(Walk(3, Qt::ShiftModifier), (std::vector{0x7000, 0x2C, 0x20}));
    EXPECT_EQ(Said(), "Offset $0020 (32), value $64 (100): Possible Fuel Val");
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Said(),
              "From the end again: Offset $7000 (28672), value $64 (100): Possible Fuel Val");
}

TEST_F(TMarkWalkTest, FromAnUnmarkedCellGoesToAnyKind) {
    Enter(0x8000, {{0x20, {100, 101}}, {0x100, {7}}});
    Trigger("FindConsecutivePossFuelVals");
    Mark("7");
    Select(1, 0x10);
    EXPECT_EQ(Walk(2), (std::vector{0x100, 0x100})) << "then of its kind alone";
    Select(1, 0x10);
    EXPECT_EQ(Walk(1, Qt::ShiftModifier), std::vector{0x20});
}

TEST_F(TMarkWalkTest, AMapsDataAreOneMark) {
    for (const bool hexadecimal : {false, true}) {
        Enter(0x8000, {{0x1000, TwoD(fuelValue)}, {0x2000, TwoD(fuelValue)}});
        if (hexadecimal)
            ShowHexadecimal();
        Trigger("Fuel5");
        Select(9, 0x101); // the first data byte
        EXPECT_EQ(Walk(2), (std::vector{0x2008, 0x1008}));
        EXPECT_EQ(Said(),
                  "From the beginning again: Offset $1008 (4104), value $64 (100): Map Data, fuel");
    }
}

TEST_F(TMarkWalkTest, SaysThatNothingIsMarked) {
    Enter(0x100);
    Press(Qt::Key_F3);
    EXPECT_EQ(Said(), "No cell is marked");
    Mark("255");
    Trigger("ClearAllMarkers1");
    Press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(Said(), "No cell is marked");
    EXPECT_EQ(Offset(), 0);
    EXPECT_EQ(page->session.Recorded(), std::nullopt);
}

TEST_F(TMarkWalkTest, ReachesTheLastByteOfTheLargestImage) {
    Enter(mebibyte, {{mebibyte - 1, {7}}, {5, {7}}});
    Mark("7");
    EXPECT_EQ(Walk(3), (std::vector{5, mebibyte - 1, 5}));
}

TEST_F(TMarkWalkTest, ReachesTheEndOfARowThatIsCut) {
    Enter(0x22, {{0x21, {7}}});
    Mark("7");
    EXPECT_EQ(Walk(1, Qt::ShiftModifier), std::vector{0x21});
}

// ---- the bottom line ---------------------------------------------------------------------------

TEST_F(TFileWalkTest, TheBottomLineTellsOfTheCellThatOneGoesTo) {
    for (const bool hexadecimal : {false, true}) {
        Enter(0x22, {{0x00, {10, 100, 100}}});
        if (hexadecimal)
            ShowHexadecimal();
        Trigger("FindConsecutivePossFuelVals");
        Select(1, 1);
        EXPECT_EQ(Said(), "Offset $0000 (0), value $0A (10)");
        Press(Qt::Key_Right);
        EXPECT_EQ(Said(), "Offset $0001 (1), value $64 (100): Possible Fuel Val");
        Press(Qt::Key_Down, Qt::ShiftModifier);
        EXPECT_EQ(Said(), "Offset $0011 (17), value $FF (255)");
        Press(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(Said(), "Offset $002F (47): behind the end of the image");
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {},
                          Grid().visualRect(Grid().model()->index(0, 2)).center());
        EXPECT_EQ(Said(), "Offset $0002 (2), value $64 (100): Possible Fuel Val");
    }
}

// ---- copying -----------------------------------------------------------------------------------

TEST_F(TFileWalkTest, CopiesTheSelectedRectangle) {
    Enter(0x22, {{0x01, {1, 2, 3}}, {0x11, {10, 20, 30}}});
    Select(2, 1);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Down, Qt::ShiftModifier);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "1\t2\n10\t20\n");
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Copied(), "\t1\t2\n000x\t1\t2\n001x\t10\t20\n");
    ShowHexadecimal();
    Grid().SetSelection({2, 1, 3, 2});
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "$01\t$02\n$0A\t$14\n");
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Copied(), "\t1\t2\n000x\t$01\t$02\n001x\t$0A\t$14\n");
}

TEST_F(TFileWalkTest, CopiesOneCellAndTheEmptyEndOfARow) {
    Enter(0x22, {{0x20, {7, 8}}});
    Grid().SetSelection({1, 3, 4, 3});
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "7\t8\t\t\n");
    Select(2, 3);
    Press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "8\n");
}

TEST_F(TFileWalkTest, CopiesAWholeLargeImage) {
    Enter(mebibyte);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QString text = QGuiApplication::clipboard()->text();
    EXPECT_EQ(text.count('\n'), mebibyte / 16 + 1);
    EXPECT_TRUE(text.startsWith("\t0\t1\t2"));
    EXPECT_TRUE(text.endsWith("\n"
                              "FFFFx" +
                              QString("\t255").repeated(16) + "\n"));
}

TEST_F(TFileWalkTest, WithoutAnImageNothingIsCopied) {
    Enter(0);
    QGuiApplication::clipboard()->setText("mine");
    Press(Qt::Key_C, Qt::ControlModifier);
    Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Copied(), "mine");
}

TEST_F(TFileWalkTest, TheItemsOfTheMenuCopyAsBefore) {
    Enter(0x20, {{0, {1, 2, 3}}});
    Grid().SetSelection({1, 1, 3, 1});
    Trigger("CopySelected1");
    EXPECT_EQ(Copied(), "1,2,3\n");
    Trigger("Copy1");
    EXPECT_TRUE(Copied().starts_with("\t0\t1"));
}

TEST_F(TFileWalkTest, NothingIsPastedOrDeleted) {
    Enter(0x20, {{0, {1, 2, 3}}});
    QGuiApplication::clipboard()->setText("9\t9\n");
    Select(1, 1);
    for (const auto &[key, modifiers] :
         {std::pair<Qt::Key, Qt::KeyboardModifiers>{Qt::Key_Delete, Qt::NoModifier},
          {Qt::Key_V, Qt::ControlModifier},
          {Qt::Key_Insert, Qt::ShiftModifier}}) {
        page->Say("before");
        Press(key, modifiers);
        EXPECT_EQ(Said(), "Nothing can be pasted or deleted here: this page only shows the image");
        EXPECT_EQ(Grid().Cell(1, 1), "1");
        EXPECT_EQ(Image().Peek(0), 1);
        EXPECT_EQ(Offset(), 0);
    }
    EXPECT_EQ(Copied(), "9\t9\n");
    EXPECT_EQ(dialogs.messages, QStringList());
}

// ---- the notebook's menu -----------------------------------------------------------------------

TEST_F(TFileWalkTest, TheMenuHasItsCommandsWithTheirKeys) {
    Enter(0x20);
    FindControl<QToolButton>(window, "btnMenu").click();
    auto &menu = FindControl<QMenu>(window, "mnuCommands");
    ASSERT_TRUE(menu.isVisible());
    QStringList items;
    for (const QAction *action : menu.actions().mid(0, 6))
        items << (action->isSeparator()
                      ? "-"
                      : QString(action->text()).remove('&') + " " + action->shortcut().toString());
    EXPECT_EQ(items,
              (QStringList{"Go to Offset... Ctrl+G", "Next Mark F3", "Previous Mark Shift+F3", "-",
                           "Copy Cells Ctrl+C", "Copy Cells with Headers Ctrl+Shift+C"}));
    menu.close();
}

TEST_F(TFileWalkTest, TheMenuGreysThemWithoutAnImage) {
    Enter(0);
    FindControl<QToolButton>(window, "btnMenu").click();
    for (const char *name : {"actGoToOffset", "actNextMark", "actPreviousMark", "actCopyCells",
                             "actCopyCellsWithHeaders"})
        EXPECT_FALSE(FindControl<QAction>(*page, name).isEnabled()) << name;
    FindControl<QMenu>(window, "mnuCommands").close();
}
} // namespace
