// Undo and redo on the map pages: each kind of action as one step, and random sittings that are
// undone and redone to the last byte.
#include "forms/Guard.h"
#include "maps/RevLimiterBox.h"
#include "pages/MapPageFixture.h"

#include <random>

namespace {
/// Everything that a step may change.
struct TEverything {
    std::vector<QString> texts;
    std::vector<TColor> marks;
    std::vector<int> fixed;
    std::vector<double> values;
    std::vector<bool> flags;
    std::vector<std::uint8_t> bytes;
    int limiter = 0;
    bool operator==(const TEverything &) const = default;
};

class TMapHistoryTest : public TFuelPageTest {
protected:
    TMap &Map(TMapKind kind) { return Set().Map(kind); }
    TRevLimiterBox &Rev() { return Find<TRevLimiterBox>("spnRevLimiter"); }
    const QUndoStack &Steps() { return page->history.Stack(); }
    void Undo() { Choose("actUndo"); }
    void Redo() { Choose("actRedo"); }

    TEverything Everything() {
        TEverything all;
        for (const TMapKind kind : allMapKinds) {
            const TStringAlignGrid &grid = *page->Panel(kind).grid;
            all.fixed.insert(all.fixed.end(), {grid.FixedCols(), grid.FixedRows()});
            for (int row = 0; row < grid.RowCount(); ++row)
                for (int column = 0; column < grid.ColCount(); ++column) {
                    all.texts.push_back(grid.Cell(column, row));
                    all.marks.push_back(grid.FontColor(column, row));
                }
            Note(all, *Map(kind).data);
            Note(all, *Map(kind).axes->rpmAxis);
            Note(all, *Map(kind).axes->throttleAxis);
            all.flags.push_back(page->Changed(kind));
        }
        all.flags.insert(all.flags.end(),
                         {page->RevChanged, page->DataChanged, Image().modified,
                          Set().showConverted, Find<QCheckBox>("chkInterpret").isChecked(),
                          Set().revLimiter.modified});
        all.texts.push_back(Rev().text());
        all.marks.push_back(Rev().TextColor());
        all.limiter = Set().revLimiter.raw;
        all.bytes.assign(Image().data.begin(), Image().data.begin() + Image().size);
        return all;
    }

    static void Note(TEverything &all, const TBlockData &block) {
        all.flags.insert(all.flags.end(), {block.showConverted, block.modified});
        for (int r = 0; r < block.values->Rows(); ++r)
            for (int c = 0; c < block.values->Columns(); ++c) {
                const TVal &value = *block.values->GetItem(r, c);
                all.values.insert(all.values.end(), {double(value.raw), value.GetValue()});
                all.flags.push_back(value.modified);
            }
    }

    /// Runs an action and expects one step of that name, there and back.
    void ExpectStep(const QString &name, const std::function<void()> &action) {
        const TEverything before = Everything();
        const int steps = Steps().index();
        action();
        ASSERT_EQ(Steps().index(), steps + 1);
        EXPECT_EQ(Steps().undoText(), name);
        const TEverything after = Everything();
        EXPECT_NE(before, after);
        Undo();
        EXPECT_EQ(Everything(), before);
        EXPECT_EQ(Steps().redoText(), name);
        Redo();
        EXPECT_EQ(Everything(), after);
    }
};

TEST_F(TMapHistoryTest, NothingCanBeUndoneAtFirst) {
    EXPECT_FALSE(Steps().canUndo());
    EXPECT_FALSE(Steps().canRedo());
    const TEverything before = Everything();
    Undo();
    Redo();
    EXPECT_EQ(Everything(), before);
}

TEST_F(TMapHistoryTest, EachActionIsOneStep) {
    ExpectStep("typing 77", [&] { Type("grdPTMap", 2, 1, "77"); });
    ExpectStep("typing 5", [&] { Type("grdIdMap", 1, 1, "5"); });
    ExpectStep("Commit", [&] { Click("btnSavePT"); });
    ExpectStep("typing 9", [&] { Type("grdPTMap", 1, 3, "9"); });
    ExpectStep("Reset", [&] { Click("btnResetPT"); });
    ExpectStep("Unlock Axis", [&] { Choose("UnlockAxis1"); });
    ExpectStep("typing 4880", [&] { Type("grdPTMap", 2, 0, "4880"); });
    ExpectStep("typing 24%", [&] { Type("grdPTMap", 0, 1, "24%"); });
    ExpectStep("Commit", [&] { Click("btnSavePT"); });
    ExpectStep("Interpret Byte Values", [&] { Find<QCheckBox>("chkInterpret").click(); });
    ExpectStep("Max RPM", [&] { Rev().setValue(7200); });
    ExpectStep("Commit", [&] { Click("btnSaverev"); });
}

TEST_F(TMapHistoryTest, APastedMapIsOneStepAndItsCommitAnother) {
    Choose("Copy1");
    Type("grdPTMap", 2, 1, "77");
    Click("btnSavePT");
    ExpectStep("Paste Map", [&] { Choose("Paste1"); });
    ExpectStep("Commit", [&] { Click("btnSavePT"); });
}

TEST_F(TMapHistoryTest, AnAdjustmentIsOneStep) {
    page->ToolWindow->Amount = 3;
    ExpectStep("adjustment", [&] { page->ToolWindow->btnExecClick(); });
}

TEST_F(TMapHistoryTest, ABlockOfTextsIsOneStep) {
    ExpectStep("block", [&] {
        page->EnterTexts(TMapKind::PT, {{1, 1, "5"}, {2, 1, "6"}, {1, 2, "7"}}, "block");
    });
    EXPECT_EQ(Grid("grdPTMap").FontColor(1, 2), clBlue);
    EXPECT_TRUE(page->PTChanged);
}

TEST_F(TMapHistoryTest, TheDigitsOfTheRevLimiterAreOneStep) {
    const TEverything before = Everything();
    Rev().setFocus();
    Rev().selectAll();
    QTest::keyClicks(&Rev(), "7240");
    EXPECT_EQ(Steps().count(), 1);
    Undo();
    EXPECT_EQ(Everything(), before);
}

TEST_F(TMapHistoryTest, ATextThatIsNoNumberCanBeUndone) {
    ExpectStep("typing abc", [&] { Type("grdPTMap", 2, 1, "abc"); });
    EXPECT_EQ(dialogs.messages.size(), 1);
}

TEST_F(TMapHistoryTest, AnOpenEditIsTheLastStep) {
    Type("grdPTMap", 2, 1, "77");
    const TEverything before = Everything();
    BeginType("grdPTMap", 3, 1, "88");
    Undo();
    EXPECT_EQ(Everything(), before);
    EXPECT_EQ(Steps().redoText(), "typing 88");
    Redo();
    EXPECT_EQ(Grid("grdPTMap").Cell(3, 1), "88");
}

TEST_F(TMapHistoryTest, UndoGoesToTheCellThatChanges) {
    Type("grdPTMap", 2, 1, "77");
    Grid("grdPTMap").SetCurrent(4, 3);
    Undo();
    EXPECT_EQ(Grid("grdPTMap").Col(), 2);
    EXPECT_EQ(Grid("grdPTMap").Row(), 1);
}

TEST_F(TMapHistoryTest, AMapReadAnewEndsTheHistory) {
    Type("grdPTMap", 2, 1, "77");
    Click("btnResetPT");
    ASSERT_TRUE(Steps().canUndo());
    page->LoadIdleMap();
    EXPECT_FALSE(Steps().canUndo());
    Type("grdPTMap", 2, 1, "77");
    page->ShowPage();
    EXPECT_FALSE(Steps().canUndo());
}

/// One sitting of random actions.
class TSittings : public TMapHistoryTest {
protected:
    int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
    TMapKind AnyKind() { return allMapKinds[static_cast<std::size_t>(Pick(3))]; }
    QString AnyText() {
        const QStringList texts{"0", "1", "2.5", "255", "300", "-1", "0.99", "abc", "9600"};
        return texts[Pick(static_cast<int>(texts.size()))];
    }
    TCellText AnyCell(const TStringAlignGrid &grid) {
        const int column = grid.FixedCols() + Pick(grid.ColCount() - grid.FixedCols());
        const int row = grid.FixedRows() + Pick(grid.RowCount() - grid.FixedRows());
        return {column, row, AnyText()};
    }

    /// As the widget does it when an edit ends.
    void TypeAnything() {
        const TMapKind kind = AnyKind();
        TStringAlignGrid &grid = *page->Panel(kind).grid;
        const TCellText cell = AnyCell(grid);
        grid.SetCell(cell.column, cell.row, cell.text);
        Guarded([&] { grid.OnAfterEdit(cell.column, cell.row); });
    }
    void EnterAnything() {
        const TMapKind kind = AnyKind();
        std::vector<TCellText> cells;
        for (int i = Pick(5); i >= 0; --i)
            cells.push_back(AnyCell(*page->Panel(kind).grid));
        for (TCellText &cell : cells)
            cell.text = QString::number(Pick(256));
        page->EnterTexts(kind, cells, "block");
    }
    void Adjust() {
        TfrmToolWindow &tool = *page->ToolWindow;
        tool.DataSet = Pick(3);
        tool.Range = tool.DataSet == 0 ? Pick(3) : 1;
        tool.Amount = Pick(41) - 20;
        tool.Scale = Pick(2);
        tool.btnExecClick();
    }
    /// A command of the menu "Selection", or one of the clipboard.
    void ChangeSelected() {
        TStringAlignGrid &grid = Grid("grdPTMap");
        const int right = 1 + Pick(grid.ColCount() - 1);
        const int bottom = 1 + Pick(grid.RowCount() - 1);
        grid.SetSelection({1 + Pick(right), 1 + Pick(bottom), right, bottom});
        const QStringList commands{
            "actUp",   "actDownTen", "actInterpolateRows", "actInterpolateBoth", "actSmooth",
            "actCopy", "actPaste"};
        Choose(commands[Pick(int(commands.size()))]);
    }
    void ClickAny(const QStringList &buttons) { Click(buttons[Pick(int(buttons.size()))]); }

    void Act() {
        const std::function<void()> actions[] = {
            [&] { TypeAnything(); },
            [&] { TypeAnything(); },
            [&] { EnterAnything(); },
            [&] { Adjust(); },
            [&] { ChangeSelected(); },
            [&] { ChangeSelected(); },
            [&] {
                ClickAny({"btnSavePT", "btnSaveIdle", "btnSaveFT", "btnSaverev"});
            },
            [&] {
                ClickAny({"btnResetPT", "btnResetIdle", "btnResetFT", "btnResetRev"});
            },
            [&] {
                Choose(QStringList{"Copy1", "Copy2", "Copy3"}[Pick(3)]);
            },
            [&] {
                Choose(QStringList{"Paste1", "Paste2", "Paste3"}[Pick(3)]);
            },
            [&] {
                Choose(QStringList{"UnlockAxis1", "UnlockAxis2", "UnlockAxis3"}[Pick(3)]);
            },
            [&] { Find<QCheckBox>("chkInterpret").click(); },
            [&] { Rev().setValue(Pick(10000)); },
        };
        actions[Pick(int(std::size(actions)))]();
    }

    std::mt19937 random_{12};
};

TEST_F(TSittings, UndoneAndRedoneGiveBackEverything) {
    constexpr int sittings = 2000;
    for (int sitting = 0; sitting < sittings; ++sitting) {
        page->ShowPage();
        std::vector<TEverything> states{Everything()};
        for (int action = Pick(6); action >= 0; --action) {
            const int steps = Steps().index();
            Act();
            if (Steps().index() == steps && Steps().canUndo())
                states.back() = Everything(); // merged, or nothing changed
            else if (Steps().index() > steps)
                states.push_back(Everything());
        }
        ASSERT_EQ(Steps().index() + 1, int(states.size())) << "sitting " << sitting;
        for (auto state = states.rbegin() + 1; state != states.rend(); ++state) {
            Undo();
            ASSERT_EQ(Everything(), *state) << "undo in sitting " << sitting;
        }
        for (auto state = states.begin() + 1; state != states.end(); ++state) {
            Redo();
            ASSERT_EQ(Everything(), *state) << "redo in sitting " << sitting;
        }
    }
}
} // namespace
