#include "forms/AligridColors.h"
#include "forms/ShownGrid.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QToolTip>

namespace {
struct TFitCase {
    const char *name;
    int columns;
    int rows;
    int maxRows;
    int maxColumns;
    int shownColumns;
    int shownRows;
    bool vertical;
    bool horizontal;
};

void PrintTo(const TFitCase &test, std::ostream *out) {
    *out << test.name;
}

// Limits of part throttle, idle and full throttle grids.
const TFitCase fitCases[] = {
    {"all fits", 13, 13, 12, 12, 12, 12, false, false},
    {"smaller than the limits", 5, 3, 12, 12, 4, 2, false, false},
    {"one column more", 14, 13, 12, 12, 12, 12, false, true},
    {"one row more", 13, 14, 12, 12, 12, 12, true, false},
    {"more of both", 18, 20, 12, 12, 12, 12, true, true},
    {"one row of ten", 17, 2, 1, 10, 10, 1, false, true},
    {"one row of twenty", 21, 2, 1, 20, 20, 1, false, false},
};

class TFitTest : public testing::TestWithParam<TFitCase> {
protected:
    TStringAlignGrid grid;
};

TEST_P(TFitTest, SizeFollowsRowsAndColumns) {
    const TFitCase &test = GetParam();
    grid.SetShape(test.columns, test.rows);
    grid.SetColWidth(0, 61);
    grid.SetColWidth(1, 47);
    grid.FitTo(test.maxRows, test.maxColumns);
    const int wide = 61 + 4 + 48 + (test.shownColumns - 1) * (grid.DefaultColWidth() + 1);
    const int high = grid.DefaultRowHeight() + 4 + test.shownRows * (grid.DefaultRowHeight() + 1);
    const int besides = grid.width() - wide;
    const int below = grid.height() - high;
    EXPECT_EQ(besides, test.vertical ? grid.verticalScrollBar()->sizeHint().width() : 0);
    EXPECT_EQ(below, test.horizontal ? grid.horizontalScrollBar()->sizeHint().height() : 0);
    EXPECT_GE(besides, test.vertical ? 20 : 0);
    EXPECT_GE(below, test.horizontal ? 20 : 0);
}

TEST_P(TFitTest, ExactlyTheLimitsAreVisible) {
    const TFitCase &test = GetParam();
    grid.SetShape(test.columns, test.rows);
    grid.FitTo(test.maxRows, test.maxColumns);
    grid.show();
    EXPECT_EQ(grid.verticalScrollBar()->isVisible(), test.vertical);
    EXPECT_EQ(grid.horizontalScrollBar()->isVisible(), test.horizontal);
    EXPECT_EQ(grid.VisibleRowCount(), test.shownRows);
    const QRect last =
        grid.visualRect(grid.model()->index(test.shownRows - 1, test.shownColumns - 1));
    EXPECT_EQ(last.bottomRight(), grid.viewport()->rect().bottomRight())
        << "neither cut off nor a strip left";
    if (!test.vertical) {
        EXPECT_EQ(grid.verticalScrollBar()->maximum(), 0);
    }
    if (!test.horizontal) {
        EXPECT_EQ(grid.horizontalScrollBar()->maximum(), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, TFitTest, testing::ValuesIn(fitCases));

TEST(AligridLayout, UnlockedGridFitsToo) {
    TStringAlignGrid grid;
    grid.SetShape(4, 3);
    grid.SetFixedRows(0);
    grid.SetFixedCols(0);
    grid.FitTo(12, 12);
    grid.show();
    EXPECT_EQ(grid.visualRect(grid.model()->index(2, 3)).bottomRight(),
              grid.viewport()->rect().bottomRight());
}

TEST(AligridLayout, DefaultWidthHoldsTheUsualTextsWithRoom) {
    for (const int points : {6, 9, 14, 24}) {
        TStringAlignGrid grid;
        QFont font = grid.font();
        font.setPointSize(points);
        grid.setFont(font);
        grid.SetShape(3, 3);
        for (const char *text : {"10240", "100%", "1.02", "-12.7", "255"})
            EXPECT_GE(grid.ColWidth(1) - grid.fontMetrics().horizontalAdvance(text), 10) << text;
        EXPECT_GE(grid.DefaultRowHeight(), grid.fontMetrics().height() + 4);
        EXPECT_EQ(grid.columnWidth(0), grid.ColWidth(1) + 1) << "follows the font";
    }
}

TEST_F(TShownGrid, ColumnWidthsAreKeptThroughNewShapes) {
    int heard = 0;
    grid.OnColWidthsChanged = [&] { ++heard; };
    grid.SetColWidth(0, 70);
    grid.SetColWidth(2, 90);
    grid.SetColWidth(2, 90);
    grid.SetColWidth(9, 90);
    EXPECT_EQ(heard, 2);
    grid.SetShape(4, 8);
    EXPECT_EQ(grid.ColWidth(0), 70);
    EXPECT_EQ(grid.ColWidth(2), 90);
    EXPECT_EQ(grid.verticalHeader()->width(), 72);
    EXPECT_EQ(grid.columnWidth(1), 91);
    grid.SetFixedCols(0);
    EXPECT_EQ(grid.columnWidth(0), 71);
    EXPECT_EQ(grid.columnWidth(2), 91);
    grid.SetDefaultColWidth(38);
    EXPECT_EQ(heard, 3);
    EXPECT_EQ(grid.ColWidth(2), 38);
    EXPECT_EQ(grid.columnWidth(2), 39);
}

TEST_F(TShownGrid, RowHeightAndGridLineSizeTheRows) {
    int heard = 0;
    grid.OnRowHeightsChanged = [&] { ++heard; };
    grid.SetDefaultRowHeight(31);
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(grid.rowHeight(0), 32);
    grid.SetGridLineWidth(3);
    EXPECT_EQ(grid.GridLineWidth(), 3);
    EXPECT_EQ(grid.rowHeight(0), 34);
    grid.SetGridLineWidth(-1);
    EXPECT_EQ(grid.rowHeight(0), 31);
}

TEST_F(TShownGrid, VisibleRowsAreCountedFromTheScrollPosition) {
    grid.SetShape(3, 1000);
    const int fitting = grid.viewport()->height() / grid.rowHeight(0);
    EXPECT_EQ(grid.VisibleRowCount(), fitting);
    grid.SetShape(3, 4);
    EXPECT_EQ(grid.VisibleRowCount(), 3);
}

TEST_F(TShownGrid, RowsNeverResizeThemselves) {
    EXPECT_EQ(grid.verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    EXPECT_EQ(grid.horizontalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
    EXPECT_FALSE(grid.Wordwrap);
}

TEST_F(TShownGrid, LastColumnTakesTheRoomLeftWhenAsked) {
    const int before = grid.columnWidth(2);
    EXPECT_FALSE(grid.AutoAdjustLastCol());
    grid.SetAutoAdjustLastCol(true);
    EXPECT_TRUE(grid.AutoAdjustLastCol());
    EXPECT_GT(grid.columnWidth(2), before);
    grid.SetAutoAdjustLastCol(false);
    EXPECT_EQ(grid.columnWidth(2), before);
}

TEST_F(TShownGrid, ScrollingCanWaitForTheHandle) {
    EXPECT_TRUE(grid.RedrawWhileScroll());
    grid.SetRedrawWhileScroll(false);
    EXPECT_FALSE(grid.RedrawWhileScroll());
    EXPECT_FALSE(grid.verticalScrollBar()->hasTracking());
    grid.SetRedrawWhileScroll(true);
    EXPECT_TRUE(grid.verticalScrollBar()->hasTracking());
}

// ---- painting --------------------------------------------------------------------------------

class TPaintedGrid : public TShownGrid {
protected:
    /// The colour of the cell's background, off its text and its frame.
    QColor Painted(int column, int row) {
        const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
        return grid.viewport()->grab().toImage().pixelColor(cell.left() + 3, cell.top() + 3);
    }
    /// How many pixels of the cell have exactly this colour.
    int Pixels(int column, int row, const QColor &color) {
        const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
        const QImage image = grid.viewport()->grab(cell).toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                count += image.pixelColor(x, y) == color ? 1 : 0;
        return count;
    }
    QColor Base() const { return grid.palette().color(QPalette::Base); }
};

TEST_F(TPaintedGrid, BackgroundsArePainted) {
    grid.SetCellColor(2, 2, 0x0100FFFF);
    EXPECT_EQ(Painted(2, 2), QColor(255, 255, 0));
    EXPECT_EQ(Painted(3, 3), Base());
}

TEST_F(TPaintedGrid, FontColoursArePaintedOnTheSelectionToo) {
    grid.SetCell(2, 2, QString(QChar(0x2588)) + QChar(0x2588));
    grid.SetFontColor(2, 2, clBlue);
    EXPECT_GT(Pixels(2, 2, Qt::blue), 20);
    grid.SetSelection({1, 1, 3, 3});
    EXPECT_GT(Pixels(2, 2, Qt::blue), 20);
}

TEST_F(TPaintedGrid, SelectionIsTintedWhenDrawn) {
    grid.SelectedCellColor = 0x00AA00;
    grid.SetCellColor(2, 2, 0x0000FF);
    grid.SetSelection({1, 1, 2, 2});
    EXPECT_EQ(Painted(1, 1), QColor(0, 0xAA, 0));
    EXPECT_EQ(Painted(2, 2), QColor(128, 85, 0)) << "the mark shows through";
    grid.DrawSelection = false;
    EXPECT_EQ(Painted(1, 1), Base());
    EXPECT_EQ(Painted(2, 2), QColor(255, 0, 0));
}

TEST_F(TPaintedGrid, SelectedFontColourIsForCellsWithoutTheirOwn) {
    grid.SetCell(1, 2, QString(QChar(0x2588)) + QChar(0x2588));
    grid.SelectedFontColor = clBlue;
    EXPECT_EQ(Pixels(1, 2, Qt::blue), 0);
    grid.SetSelection({1, 2, 2, 2});
    EXPECT_GT(Pixels(1, 2, Qt::blue), 20);
}

TEST_F(TPaintedGrid, CurrentCellIsFramed) {
    const QColor highlight = grid.palette().color(QPalette::Active, QPalette::Highlight);
    grid.SetCurrent(2, 2);
    const QColor frame = Legible(highlight, Painted(2, 2), leastLineContrast);
    EXPECT_GT(Pixels(2, 2, frame), 20);
    EXPECT_EQ(Pixels(3, 3, frame), 0);
}

TEST_F(TPaintedGrid, LongTextsWrapWhenAsked) {
    grid.SetDefaultRowHeight(80);
    grid.SetCurrent(3, 3);
    const QString block = QString(QChar(0x2588)) + QChar(0x2588) + QChar(0x2588);
    grid.SetCell(1, 1, block + ' ' + block + ' ' + block);
    const int oneLine = Pixels(1, 1, Qt::black);
    grid.Wordwrap = true;
    EXPECT_GT(Pixels(1, 1, Qt::black), oneLine);
}

// ---- hints -----------------------------------------------------------------------------------

class THintTest : public TShownGrid {
protected:
    bool Help(int column, int row) {
        const QPoint at = PointIn(column, row);
        QHelpEvent event(QEvent::ToolTip, at, grid.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(grid.viewport(), &event);
        return event.isAccepted();
    }
    ~THintTest() override { QToolTip::hideText(); }
};

TEST_F(THintTest, NothingUnlessAskedFor) {
    grid.SetCell(1, 1, QString(50, 'x'));
    int asked = 0;
    grid.OnShowHintCell = [&](int, int, QString &) { ++asked; };
    EXPECT_FALSE(Help(1, 1));
    EXPECT_EQ(asked, 0);
}

TEST_F(THintTest, HintOfTheWholeGridIsShownOverCells) {
    grid.setToolTip("Right-click for more options");
    EXPECT_TRUE(Help(1, 1));
    EXPECT_EQ(QToolTip::text(), "Right-click for more options");
}

TEST_F(THintTest, LongTextIsShownAndCanBeChanged) {
    grid.ShowCellHints = true;
    grid.SetCell(1, 1, QString(50, 'x'));
    EXPECT_FALSE(Help(2, 2)) << "its text fits";
    EXPECT_TRUE(Help(1, 1));
    EXPECT_EQ(QToolTip::text(), QString(50, 'x'));
    grid.OnShowHintCell = [](int column, int row, QString &hint) {
        hint = QString("hint of %1 %2").arg(column).arg(row);
    };
    EXPECT_TRUE(Help(2, 2));
    EXPECT_EQ(QToolTip::text(), "hint of 2 2");
}
} // namespace
