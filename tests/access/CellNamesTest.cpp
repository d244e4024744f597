// What screen readers are told of cells: where they are, what stands in them, and what their
// colours mean, which nobody should have to see.
#include "access/Scenes.h"
#include "filedisplay/FileDisplay.h"
#include "maps/FuelMaps.h"
#include "maps/ToolWindow.h"

#include <QAccessible>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QToolTip>

namespace {
class TCellNamesTest : public TSceneTest {
protected:
    void Enter(TScene scene, const QString &gridName) {
        Open(scene);
        grid = &OnPage<TStringAlignGrid>(gridName);
    }
    /// A cell as tools see it; header cells too.
    QAccessibleInterface &Cell(int column, int row) {
        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(grid);
        // The toolkit tells its table of another shape only while a screen reader runs.
        QAccessibleTableModelChangeEvent reset(grid, QAccessibleTableModelChangeEvent::ModelReset);
        table->tableInterface()->modelChange(&reset);
        // Headers are children too, hidden ones included.
        const int width = grid->ColCount() - grid->FixedCols() + 1;
        QAccessibleInterface *cell =
            table->child((row + 1 - grid->FixedRows()) * width + column + 1 - grid->FixedCols());
        if (!cell)
            throw std::runtime_error("no such cell");
        return *cell;
    }
    QString Name(int column, int row) { return Cell(column, row).text(QAccessible::Name); }
    QString Meaning(int column, int row) {
        return Cell(column, row).text(QAccessible::Description);
    }
    void Type(int column, int row, const QString &text) {
        grid->setFocus();
        grid->SetCurrent(column, row);
        Press(Qt::Key_F2);
        Editor().setText(text);
        QTest::keyClick(&Editor(), Qt::Key_Enter);
        QTest::qWait(0);
    }
    QLineEdit &Editor() {
        auto *editor = grid->viewport()->findChild<QLineEdit *>();
        if (!editor)
            throw std::runtime_error("no editor");
        return *editor;
    }

    TStringAlignGrid *grid = nullptr;
};

TEST_F(TCellNamesTest, AMapsCellsNameTheirPointsAndTheirValue) {
    Enter(TScene::Fuel, "grdPTMap");
    EXPECT_EQ(Name(1, 1), "2400 RPM, 20%: 1");
    EXPECT_EQ(Name(4, 3), "9600 RPM, 100%: 12");
    EXPECT_EQ(Name(2, 0), "RPM point 2: 4800");
    EXPECT_EQ(Name(0, 3), "Load point 3: 100%");
    EXPECT_EQ(Cell(1, 1).role(), QAccessible::Cell);
    EXPECT_EQ(Cell(2, 0).role(), QAccessible::ColumnHeader);
    EXPECT_EQ(Cell(0, 3).role(), QAccessible::RowHeader);
    OnPage<QCheckBox>("chkInterpret").click();
    EXPECT_EQ(Name(4, 3), "9600 RPM, 100%: 0.09");
}

TEST_F(TCellNamesTest, UnlockedAxesAreNamedLikeThoseInTheHeaders) {
    Enter(TScene::Fuel, "grdPTMap");
    OnPage<QAction>("UnlockAxis1").trigger();
    EXPECT_EQ(Name(0, 0), "Corner: empty");
    EXPECT_EQ(Name(2, 0), "RPM point 2: 4800");
    EXPECT_EQ(Name(0, 3), "Load point 3: 100%");
    EXPECT_EQ(Name(4, 3), "9600 RPM, 100%: 12");
    EXPECT_EQ(Cell(2, 0).role(), QAccessible::Cell);
}

TEST_F(TCellNamesTest, TheMarksOfAMapAreTold) {
    Enter(TScene::Fuel, "grdPTMap");
    EXPECT_EQ(Meaning(2, 1), "");
    Type(2, 1, "77");
    EXPECT_EQ(Name(2, 1), "4800 RPM, 20%: 77");
    EXPECT_EQ(Meaning(2, 1), "edited, waiting for Commit");
    grid->SetCell(3, 1, "x");
    auto &tools = *dynamic_cast<TfrmMaps &>(Page()).ToolWindow;
    tools.btnExecClick();
    EXPECT_EQ(Meaning(3, 1), "no number, left out by the bulk tool");
    grid->SetFontColor(1, 2, clGreen);
    EXPECT_EQ(Meaning(1, 2), "written into the map");
    OnPage<QPushButton>("btnResetPT").click();
    EXPECT_EQ(Meaning(2, 1), "");
}

TEST_F(TCellNamesTest, TheMarkOfTheRevLimiterIsTold) {
    Enter(TScene::Fuel, "grdPTMap");
    auto &limiter = OnPage<QSpinBox>("spnRevLimiter");
    for (const char *end : {"btnSaverev", "btnResetRev"}) {
        EXPECT_EQ(limiter.accessibleDescription(), "");
        limiter.stepUp();
        EXPECT_EQ(limiter.accessibleDescription(), "edited, waiting for Commit");
        OnPage<QPushButton>(end).click();
    }
    EXPECT_EQ(limiter.accessibleDescription(), "");
    limiter.stepUp();
    dialogs.answers = {TAnswer::Yes};
    Page().QueryClose();
    EXPECT_EQ(limiter.accessibleDescription(), "");
}

TEST_F(TCellNamesTest, AnOpenEditorSaysWhichCellItIs) {
    Enter(TScene::Timing, "grdIdMap");
    grid->setFocus();
    grid->SetCurrent(3, 1);
    Press(Qt::Key_F2);
    QAccessibleInterface *told = QAccessible::queryAccessibleInterface(&Editor());
    EXPECT_EQ(told->text(QAccessible::Name), "7200 RPM, 0%");
    EXPECT_EQ(told->text(QAccessible::Value), "3");
}

TEST_F(TCellNamesTest, TheContentsNameTheAddressOfEachByte) {
    Enter(TScene::Contents, "grdFile");
    EXPECT_EQ(Name(1, 1), "$0000: 0");
    EXPECT_EQ(Name(13, 0x401), "$400C: 0");
    EXPECT_EQ(Name(9, 0x401), "$4008: 100");
    EXPECT_EQ(Name(13, 0), "Column: C");
    EXPECT_EQ(Name(0, 0x401), "Row: 400x");
    OnPage<QCheckBox>("chkDisplayHex").click();
    EXPECT_EQ(Name(9, 0x401), "$4008: $64");
    FindControl<QCheckBox>(Page(), "chkDisplayHex").click();
}

TEST_F(TCellNamesTest, CellsWithoutAByteAreEmpty) {
    Enter(TScene::Contents, "grdFile");
    grid->SetCell(16, 2, "");
    EXPECT_EQ(Name(16, 2), "$001F: empty");
}

TEST_F(TCellNamesTest, TheFindingsOfASearchAreTold) {
    Enter(TScene::Contents, "grdFile");
    EXPECT_EQ(Meaning(1, 0x401), "");
    OnPage<QAction>("Fuel5").trigger();
    const char *const expected[] = {"Start of a 2-D fuel map",
                                    "Axis Count",
                                    "Axis Values",
                                    "Axis Values",
                                    "Searched Val, or a map's header",
                                    "Axis Count",
                                    "Axis Values",
                                    "Axis Values",
                                    "Map Data, fuel",
                                    "Map Data, fuel",
                                    "Map Data, fuel",
                                    "Map Data, fuel",
                                    ""};
    for (int i = 0; i < 13; ++i)
        EXPECT_EQ(Meaning(1 + i, 0x401), expected[i]) << i;
}

TEST_F(TCellNamesTest, AMarksMeaningIsAlsoItsToolTip) {
    Enter(TScene::Contents, "grdFile");
    OnPage<QAction>("Fuel5").trigger();
    grid->SetCurrent(2, 0x401);
    const QRect cell = grid->visualRect(grid->currentIndex());
    QHelpEvent asked(QEvent::ToolTip, cell.center(), grid->viewport()->mapToGlobal(cell.center()));
    QCoreApplication::sendEvent(grid->viewport(), &asked);
    EXPECT_EQ(QToolTip::text(), "Axis Count");
    QToolTip::hideText();
}
} // namespace
