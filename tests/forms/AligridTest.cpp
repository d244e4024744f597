#include "forms/ShownGrid.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>

namespace {
/// Counts all that a grid's model tells its views.
struct TSignals {
    explicit TSignals(const QAbstractItemModel *model)
        : resets(model, &QAbstractItemModel::modelReset),
          changes(model, &QAbstractItemModel::dataChanged),
          headers(model, &QAbstractItemModel::headerDataChanged) {}
    QSignalSpy resets;
    QSignalSpy changes;
    QSignalSpy headers;
    qsizetype All() const { return resets.size() + changes.size() + headers.size(); }
};

TColor ColorRole(const TStringAlignGrid &grid, int column, int row, int role) {
    return grid.model()->index(row - 1, column - 1).data(role).toUInt();
}

// ---- cells and colours -----------------------------------------------------------------------

TEST_F(TShownGrid, CellsAreReadAndWrittenByColumnAndRow) {
    EXPECT_EQ(grid.ColCount(), 4);
    EXPECT_EQ(grid.RowCount(), 5);
    EXPECT_EQ(grid.Cell(3, 1), "31");
    grid.SetCell(9, 9, "x");
    EXPECT_EQ(grid.Cell(9, 9), QString());
    EXPECT_EQ(grid.CellColor(9, 9), clWindow);
    EXPECT_EQ(grid.FontColor(-1, 0), clWindowText);
}

TEST_F(TShownGrid, CellsWithoutATextOfTheirOwnShowTheSources) {
    grid.SetCell(2, 2, "");
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    grid.SetTextSource(
        [](int column, int row) { return QString("at %1 %2").arg(column).arg(row); });
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.changes.size(), 1);
    EXPECT_EQ(heard.headers.size(), 2);
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_EQ(grid.model()->index(1, 1).data().toString(), "") << "emptied";
    grid.SetRowCount(6);
    EXPECT_EQ(grid.model()->headerData(4, Qt::Vertical).toString(), "at 0 5");
    EXPECT_EQ(grid.RectangleText({1, 4, 2, 5}, ','), "14,24\nat 1 5,at 2 5\n");
}

TEST_F(TShownGrid, ColoursAreLentRowByRow) {
    grid.DefaultColor = clGreen;
    grid.SetCellColor(1, 2, clRed);
    grid.SetPropRow(3, {clBlue, {}, {}});
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    const std::span<TColor> colors = grid.LendCellColors();
    ASSERT_EQ(colors.size(), 20U);
    EXPECT_EQ(colors[0], clGreen);
    EXPECT_EQ(colors[2 * 4 + 1], clRed);
    EXPECT_EQ(colors[3 * 4 + 2], clBlue);
    colors[4 * 4 + 3] = 0x0100FFFF;
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.changes.size(), 1);
    EXPECT_EQ(ColorRole(grid, 3, 4, Qt::UserRole + 1), 0x0100FFFF);
    EXPECT_EQ(grid.PropCell(1, 1).color, clGreen) << "a colour of its own";
    EXPECT_EQ(grid.LendCellColors().data(), colors.data()) << "what is kept, no copy";
}

TEST_F(TShownGrid, ReadingColoursAnnouncesNothing) {
    EXPECT_TRUE(grid.OwnCellColors().empty());
    grid.LendCellColors()[5] = clRed;
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    ASSERT_EQ(grid.OwnCellColors().size(), 20U);
    EXPECT_EQ(grid.OwnCellColors()[5], clRed);
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.All(), 0);
}

TEST_F(TShownGrid, ColoursReadBackExactly) {
    EXPECT_EQ(grid.CellColor(1, 1), 0x80000005);
    EXPECT_EQ(grid.FontColor(1, 1), 0x80000008);
    for (const TColor color : {0x0100FFFFu, 0x01FEFFFFu, 0x00FFFFFFu, 0x8000000Fu, 0u}) {
        grid.SetCellColor(1, 1, color);
        grid.SetFontColor(2, 2, color);
        EXPECT_EQ(grid.CellColor(1, 1), color);
        EXPECT_EQ(grid.FontColor(2, 2), color);
        EXPECT_EQ(ColorRole(grid, 1, 1, Qt::UserRole + 1), color);
        EXPECT_EQ(ColorRole(grid, 2, 2, Qt::UserRole + 2), color);
    }
}

TEST_F(TShownGrid, RolesShowTextBrushesAndAlignment) {
    grid.SetCellColor(1, 1, 0x0100FFFF);
    grid.SetFontColor(1, 1, clBlue);
    grid.SetAlignCell(1, 1, TAlign::Right);
    const QModelIndex index = grid.model()->index(0, 0);
    EXPECT_EQ(index.data(Qt::DisplayRole).toString(), "11");
    EXPECT_EQ(index.data(Qt::EditRole).toString(), "11");
    EXPECT_EQ(index.data(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 255, 0));
    EXPECT_EQ(index.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(0, 0, 255));
    EXPECT_EQ(index.data(Qt::TextAlignmentRole).toInt(),
              static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
}

TEST_F(TShownGrid, DefaultsOfTheGridComeLast) {
    grid.DefaultColor = clGreen;
    grid.DefaultFontColor = clRed;
    grid.Alignment = TAlign::Centre;
    EXPECT_EQ(grid.CellColor(1, 1), clGreen);
    EXPECT_EQ(grid.FontColor(1, 1), clRed);
    EXPECT_EQ(grid.AlignCell(1, 1), TAlign::Centre);
    grid.SetPropRow(1, {clBlack, clBlack, {}});
    EXPECT_EQ(grid.AlignRow(1), std::nullopt);
    grid.SetAlignRow(1, TAlign::Left);
    EXPECT_EQ(grid.AlignRow(1), TAlign::Left);
    EXPECT_EQ(grid.CellColor(1, 1), clBlack);
    EXPECT_EQ(grid.AlignCell(1, 1), TAlign::Left);
    EXPECT_EQ(grid.PropRow(1), (TCellProperties{clBlack, clBlack, TAlign::Left}));
    grid.SetPropCol(1, {clWhite, {}, {}});
    EXPECT_EQ(grid.AlignCol(1), std::nullopt);
    grid.SetAlignCol(1, TAlign::Right);
    EXPECT_EQ(grid.AlignCol(1), TAlign::Right);
    EXPECT_EQ(grid.CellColor(1, 1), clWhite);
    EXPECT_EQ(grid.FontColor(1, 1), clBlack);
    EXPECT_EQ(grid.AlignCell(1, 1), TAlign::Right);
    EXPECT_EQ(grid.PropCol(1), (TCellProperties{clWhite, {}, TAlign::Right}));
    grid.SetPropCell(1, 1, {clBlue, {}, {}});
    grid.SetAlignCell(1, 1, TAlign::Centre);
    EXPECT_EQ(grid.CellColor(1, 1), clBlue);
    EXPECT_EQ(grid.PropCell(1, 1), (TCellProperties{clBlue, {}, TAlign::Centre}));
    EXPECT_EQ(grid.AlignCell(1, 1), TAlign::Centre);
}

// ---- announcements ---------------------------------------------------------------------------

TEST_F(TShownGrid, ChangesAreAnnouncedTogetherLater) {
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    for (int row = 1; row < 5; ++row) {
        grid.SetCell(2, row, "new");
        grid.SetCellColor(3, row, clRed);
        grid.SetFontColor(3, row, clRed);
    }
    EXPECT_EQ(heard.All(), 0);
    QCoreApplication::processEvents();
    ASSERT_EQ(heard.All(), 1);
    ASSERT_EQ(heard.changes.size(), 1);
    EXPECT_EQ(heard.changes[0][0].toModelIndex(), grid.model()->index(0, 1));
    EXPECT_EQ(heard.changes[0][1].toModelIndex(), grid.model()->index(3, 2));
}

TEST_F(TShownGrid, HeaderCellsAreAnnouncedAsHeaders) {
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    grid.SetCell(2, 0, "head");
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.headers.size(), 1);
    EXPECT_EQ(heard.changes.size(), 0);
    grid.SetCell(0, 3, "side");
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.headers.size(), 2);
    EXPECT_EQ(heard.headers[1][0].value<Qt::Orientation>(), Qt::Vertical);
}

TEST_F(TShownGrid, UpdateWithoutANewShapeGivesOneChange) {
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    {
        const TGridUpdate update(grid);
        grid.SetCell(1, 1, "a");
        {
            const TGridUpdate inner(grid);
            grid.SetCellColor(3, 4, clRed);
        }
        QCoreApplication::processEvents();
        EXPECT_EQ(heard.All(), 0);
    }
    EXPECT_EQ(heard.changes.size(), 1);
    EXPECT_EQ(heard.All(), 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.All(), 1);
}

TEST_F(TShownGrid, LargestImageIsFilledWithOneReset) {
    constexpr int rows = 65537;
    QCoreApplication::processEvents();
    TSignals heard(grid.model());
    QSignalSpy aboutTo(grid.model(), &QAbstractItemModel::modelAboutToBeReset);
    const QString text = "255";
    {
        const TGridUpdate update(grid);
        grid.SetShape(17, 1);
        grid.SetRowCount(rows);
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < 17; ++column)
                grid.SetCell(column, row, text);
        EXPECT_EQ(heard.All(), 0);
        EXPECT_EQ(aboutTo.size(), 1);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(aboutTo.size(), 1);
    EXPECT_EQ(heard.resets.size(), 1);
    EXPECT_EQ(heard.All(), 1);
    for (int row = 1; row < rows; ++row)
        for (int column = 1; column < 17; ++column)
            grid.SetCellColor(column, row, 0x0100FFFF);
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.changes.size(), 1);
    EXPECT_EQ(heard.All(), 2);
    EXPECT_EQ(grid.Cell(16, rows - 1), "255");
    EXPECT_EQ(grid.CellColor(16, rows - 1), 0x0100FFFF);
    EXPECT_EQ(grid.model()->rowCount(), rows - 1);
}

/// What listeners see of a grid when a change of its shape is announced, and when it is over.
class TShapeLog {
public:
    explicit TShapeLog(const QAbstractItemModel &model) {
        QObject::connect(&model, &QAbstractItemModel::modelAboutToBeReset, &context_,
                         [this, &model] { Record("before", model); });
        QObject::connect(&model, &QAbstractItemModel::modelReset, &context_,
                         [this, &model] { Record("after", model); });
    }
    /// The log so far, which begins anew.
    std::string Taken() { return std::exchange(log_, {}); }

private:
    void Record(const char *when, const QAbstractItemModel &model) {
        const QString last = model.index(model.rowCount() - 1, 0).data().toString();
        log_ += QString("%1: %2 x %3 to %4; ")
                    .arg(when)
                    .arg(model.columnCount())
                    .arg(model.rowCount())
                    .arg(last)
                    .toStdString();
    }
    QObject context_;
    std::string log_;
};

TEST_F(TShownGrid, AResetIsAnnouncedBeforeTheShapeChanges) {
    TShapeLog seen(*grid.model());
    grid.InsertRow(4);
    EXPECT_EQ(seen.Taken(), "before: 3 x 4 to 14; after: 3 x 5 to ; ");
    grid.RemoveRow(5);
    EXPECT_EQ(seen.Taken(), "before: 3 x 5 to ; after: 3 x 4 to 14; ");
    grid.SetFixedCols(0);
    EXPECT_EQ(seen.Taken(), "before: 3 x 4 to 14; after: 4 x 4 to 04; ");
    grid.SetFixedRows(0);
    EXPECT_EQ(seen.Taken(), "before: 4 x 4 to 04; after: 4 x 5 to 04; ");
    grid.OnCompareRow = [](int first, int second, int &order) { order = second - first; };
    grid.SortRows();
    EXPECT_EQ(seen.Taken(), "before: 4 x 5 to 04; after: 4 x 5 to 00; ");
    grid.SetRowCount(3);
    EXPECT_EQ(seen.Taken(), "before: 4 x 5 to 00; after: 4 x 3 to 02; ");
    grid.SetShape(2, 2);
    EXPECT_EQ(seen.Taken(), "before: 4 x 3 to 02; after: 2 x 2 to ; ");
}

TEST_F(TShownGrid, AnUpdateAnnouncesItsResetOnceBeforeTheFirstChangeOfShape) {
    TShapeLog seen(*grid.model());
    {
        const TGridUpdate update(grid);
        EXPECT_EQ(seen.Taken(), "");
        grid.SetRowCount(2);
        EXPECT_EQ(seen.Taken(), "before: 3 x 4 to 14; ");
        grid.SetShape(3, 3);
        grid.SetCell(1, 2, "new");
        EXPECT_EQ(seen.Taken(), "");
    }
    EXPECT_EQ(seen.Taken(), "after: 2 x 2 to new; ");
}

TEST_F(TShownGrid, AnEditIsCancelledBeforeTheShapeChanges) {
    QString edited;
    grid.OnCancelEdit = [&](int column, int row) {
        edited = grid.Cell(column, row);
        grid.SetRowCount(grid.RowCount() - 1); // a change of its own, inside the other
    };
    TShapeLog seen(*grid.model());
    grid.SetCurrent(1, 4);
    Type("7");
    ASSERT_TRUE(grid.IsEditing());
    grid.SetFixedCols(0);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(edited, "14");
    EXPECT_EQ(seen.Taken(), "before: 3 x 4 to 14; after: 4 x 3 to 03; ");
}

// ---- shape -----------------------------------------------------------------------------------

TEST_F(TShownGrid, InsertedRowsPushColoursDown) {
    grid.SetCellColor(1, 2, clRed);
    grid.SetFontColor(1, 3, clBlue);
    grid.InsertRow(1);
    EXPECT_EQ(grid.RowCount(), 6);
    EXPECT_EQ(grid.Cell(1, 2), QString());
    EXPECT_EQ(grid.CellColor(1, 2), clWindow);
    EXPECT_EQ(grid.Cell(1, 3), "12");
    EXPECT_EQ(grid.CellColor(1, 3), clRed);
    EXPECT_EQ(grid.FontColor(1, 4), clBlue);
    grid.InsertRow(5);
    EXPECT_EQ(grid.RowCount(), 7);
    EXPECT_EQ(grid.Cell(1, 5), "14");
    grid.InsertRow(-1);
    EXPECT_EQ(grid.Cell(1, 1), "10");
    grid.InsertRow(8);
    grid.InsertRow(-2);
    EXPECT_EQ(grid.RowCount(), 8);
}

TEST_F(TShownGrid, RemovedRowsPullColoursUp) {
    grid.SetCellColor(1, 3, clRed);
    grid.RemoveRow(2);
    EXPECT_EQ(grid.RowCount(), 4);
    EXPECT_EQ(grid.Cell(1, 2), "13");
    EXPECT_EQ(grid.CellColor(1, 2), clRed);
    grid.RemoveRow(4);
    grid.RemoveRow(-1);
    EXPECT_EQ(grid.RowCount(), 4);
}

TEST_F(TShownGrid, ShapeKeepsTheCurrentCellAsFarAsItExists) {
    grid.SetSelection({2, 2, 3, 3});
    int asked = 0;
    grid.OnSelectCell = [&](int, int, bool &) { ++asked; };
    grid.SetRowCount(9);
    EXPECT_EQ(Current(), (TGridCell{3, 3}));
    EXPECT_EQ(grid.Selection(), (TGridRect{2, 2, 3, 3}));
    grid.SetRowCount(3);
    EXPECT_EQ(Current(), (TGridCell{3, 2}));
    EXPECT_EQ(grid.Selection(), (TGridRect{2, 2, 3, 2}));
    grid.SetShape(1, 1);
    EXPECT_EQ(grid.Cell(0, 0), QString());
    EXPECT_EQ(Current(), (TGridCell{1, 1})) << "where the first cell would be";
    EXPECT_EQ(asked, 0);
}

TEST_F(TShownGrid, CurrentCellCanBeSetDuringAnUpdate) {
    {
        const TGridUpdate update(grid);
        grid.SetShape(10, 10);
        grid.SetCurrent(7, 8);
        EXPECT_EQ(Current(), (TGridCell{7, 8}));
        EXPECT_EQ(grid.Selection(), (TGridRect{7, 8, 7, 8}));
    }
    EXPECT_EQ(Current(), (TGridCell{7, 8}));
    {
        const TGridUpdate update(grid);
        grid.SetFixedRows(0);
        grid.SetSelection({1, 0, 2, 4});
    }
    EXPECT_EQ(grid.Selection(), (TGridRect{1, 0, 2, 4}));
}

TEST_F(TShownGrid, RebuildLeavesOneRowAndGrows) {
    grid.SetFixedRows(0);
    grid.SetRowCount(1);
    grid.SetFixedRows(1);
    EXPECT_EQ(grid.Cell(3, 0), "30");
    EXPECT_EQ(grid.model()->rowCount(), 0);
    EXPECT_EQ(grid.VisibleRowCount(), 0);
    grid.SetRowCount(3);
    EXPECT_EQ(grid.model()->rowCount(), 2);
    EXPECT_EQ(grid.Cell(3, 2), QString());
}

TEST_F(TShownGrid, RowsAndColumnsAreSortedBehindTheFixedOnes) {
    grid.SetCellColor(1, 1, clRed);
    grid.SortRows();
    EXPECT_EQ(grid.Cell(1, 1), "11") << "nothing to compare by";
    grid.OnCompareRow = [](int first, int second, int &order) { order = second - first; };
    grid.SortRows();
    EXPECT_EQ(grid.RectangleText({0, 0, 1, 4}, ' '), "00 10\n04 14\n03 13\n02 12\n01 11\n");
    EXPECT_EQ(grid.CellColor(1, 4), clRed);
    grid.OnCompareCol = [](int first, int second, int &order) { order = second - first; };
    grid.SortCols();
    EXPECT_EQ(grid.RectangleText({0, 0, 3, 0}, ' '), "00 30 20 10\n");
}

TEST_F(TShownGrid, FailedComparisonIsShownOnceAndSortsNothing) {
    grid.OnCompareRow = [](int, int, int &) { throw std::runtime_error("no order"); };
    grid.SortRows();
    EXPECT_EQ(grid.Cell(1, 1), "11");
    EXPECT_EQ(dialogs.messages, QStringList("no order"));
}

// ---- fixed row and column --------------------------------------------------------------------

TEST_F(TShownGrid, FixedCellsAreHeaders) {
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal).toString(), "20");
    EXPECT_EQ(grid.model()->headerData(2, Qt::Vertical).toString(), "03");
    EXPECT_TRUE(grid.horizontalHeader()->isVisible());
    EXPECT_TRUE(grid.verticalHeader()->isVisible());
    grid.SetCurrent(0, 2);
    grid.SetCurrent(2, 0);
    EXPECT_EQ(Current(), (TGridCell{1, 1}));
}

TEST_F(TShownGrid, HeadersShowAlignmentAndColours) {
    const auto header = [&](int role) { return grid.model()->headerData(1, Qt::Horizontal, role); };
    EXPECT_FALSE(header(Qt::BackgroundRole).isValid());
    EXPECT_FALSE(header(Qt::ForegroundRole).isValid());
    grid.Alignment = TAlign::Right;
    grid.FixedColor = clRed;
    grid.SetFontColor(2, 0, clBlue);
    grid.SetCellColor(2, 0, 0x0100FFFF);
    EXPECT_EQ(header(Qt::TextAlignmentRole).toInt(),
              static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(header(Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 0, 0));
    EXPECT_EQ(header(Qt::ForegroundRole).value<QBrush>().color(), QColor(0, 0, 255));
    EXPECT_EQ(header(Qt::UserRole + 1).toUInt(), 0x0100FFFF);
    EXPECT_EQ(header(Qt::UserRole + 2).toUInt(), clBlue);
}

TEST_F(TShownGrid, UnlockedHeadersAreOrdinaryCellsAndComeBack) {
    grid.SetCurrent(2, 3);
    grid.SetFontColor(2, 0, clBlue);
    grid.SetCellColor(0, 1, clRed);
    grid.SetFixedRows(0);
    grid.SetFixedCols(0);
    EXPECT_EQ(Current(), (TGridCell{2, 3}));
    EXPECT_FALSE(grid.horizontalHeader()->isVisible());
    EXPECT_FALSE(grid.verticalHeader()->isVisible());
    EXPECT_FALSE(grid.model()->headerData(0, Qt::Horizontal).isValid());
    const QModelIndex head = grid.model()->index(0, 2);
    EXPECT_EQ(head.data().toString(), "20");
    EXPECT_EQ(head.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(0, 0, 255));
    EXPECT_TRUE(head.flags().testFlag(Qt::ItemIsEditable));

    grid.SetCurrent(2, 0);
    Type("7");
    Press(Qt::Key_Return);
    EXPECT_EQ(grid.Cell(2, 0), "7");
    grid.SetFixedRows(1);
    grid.SetFixedCols(1);
    EXPECT_TRUE(grid.horizontalHeader()->isVisible());
    EXPECT_EQ(grid.model()->headerData(1, Qt::Horizontal).toString(), "7");
    EXPECT_EQ(grid.FontColor(2, 0), clBlue);
    EXPECT_EQ(grid.CellColor(0, 1), clRed);
}

TEST_F(TShownGrid, FixedCountsAreZeroOrOne) {
    grid.SetFixedRows(5);
    grid.SetFixedCols(-3);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 0);
}

// ---- copying ---------------------------------------------------------------------------------

TEST_F(TShownGrid, WholeGridIsCopiedWithTabs) {
    grid.CopyRectangle({0, 0, 3, 4}, '\t');
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "00\t10\t20\t30\n01\t11\t21\t31\n02\t12\t22\t32\n03\t13\t23\t33\n04\t14\t24\t34\n");
}

TEST_F(TShownGrid, SelectionIsCopiedWithCommas) {
    grid.SetSelection({2, 1, 3, 2});
    grid.CopyRectangle(grid.Selection(), ',');
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "21,31\n22,32\n");
}

TEST_F(TShownGrid, RectangleTextKeepsToTheGrid) {
    EXPECT_EQ(grid.RectangleText({3, 4, 100, 100}, ','), "34\n");
    EXPECT_EQ(grid.RectangleText({-5, -5, 0, 0}, ','), "00\n");
    EXPECT_EQ(grid.RectangleText({4, 0, 9, 9}, ','), QString());
    EXPECT_EQ(grid.RectangleText({3, 3, 1, 1}, ','), QString());
}
TEST_F(TShownGrid, CopiedTextsAreNeitherQuotedNorChanged) {
    grid.SetCell(0, 0, "a,b");
    grid.SetCell(1, 0, "say \"x\"");
    grid.SetCell(0, 1, " 1 ");
    grid.SetCell(1, 1, "two\nlines\tand a tab");
    EXPECT_EQ(grid.RectangleText({0, 0, 1, 1}, ','), "a,b,say \"x\"\n 1 ,two\nlines\tand a tab\n");
    grid.CopyRectangle({0, 0, 1, 0}, '\t');
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "a,b\tsay \"x\"\n");
}
} // namespace
