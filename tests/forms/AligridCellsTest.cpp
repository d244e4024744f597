#include "forms/AligridCells.h"

#include <QStringList>
#include <gmock/gmock.h>

namespace {
TAligridCells Cells(int columns, int rows) {
    TAligridCells cells;
    cells.SetShape(columns, rows);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            cells.SetText(column, row, QString("%1,%2").arg(column).arg(row));
    return cells;
}

/// One text per row, its cells joined by blanks.
std::vector<std::string> Rows(const TAligridCells &cells) {
    std::vector<std::string> rows;
    for (int row = 0; row < cells.RowCount(); ++row) {
        QStringList texts;
        for (int column = 0; column < cells.ColCount(); ++column)
            texts << cells.Text(column, row);
        rows.push_back(texts.join(' ').toStdString());
    }
    return rows;
}

TEST(AligridCells, StartEmptyAndTakeAnyShape) {
    TAligridCells cells;
    EXPECT_EQ(cells.ColCount(), 0);
    cells.SetShape(-1, -1);
    EXPECT_EQ(cells.RowCount(), 0);
    cells.SetShape(2, 3);
    EXPECT_THAT(Rows(cells), testing::ElementsAre(" ", " ", " "));
}

TEST(AligridCells, OutsideNothingIsReadOrWritten) {
    TAligridCells cells = Cells(2, 2);
    for (const auto &[column, row] : {std::pair(-1, 0), {0, -1}, {2, 0}, {0, 2}}) {
        EXPECT_FALSE(cells.SetText(column, row, "x"));
        EXPECT_FALSE(cells.SetColor(column, row, clRed));
        EXPECT_FALSE(cells.SetFontColor(column, row, clRed));
        cells.SetCellProperties(column, row, {clRed, clRed, TAlign::Right});
        EXPECT_EQ(cells.Text(column, row), QString());
        EXPECT_EQ(cells.Color(column, row), std::nullopt);
        EXPECT_EQ(cells.FontColor(column, row), std::nullopt);
        EXPECT_EQ(cells.Align(column, row), std::nullopt);
        EXPECT_EQ(cells.CellProperties(column, row), TCellProperties());
    }
    for (const int position : {-1, 2}) {
        cells.SetColumnProperties(position, {clRed, {}, {}});
        cells.SetRowProperties(position, {clRed, {}, {}});
        EXPECT_EQ(cells.ColumnProperties(position), TCellProperties());
        EXPECT_EQ(cells.RowProperties(position), TCellProperties());
    }
    EXPECT_THAT(Rows(cells), testing::ElementsAre("0,0 1,0", "0,1 1,1"));
}

TEST(AligridCells, EqualTextIsNoChange) {
    TAligridCells cells = Cells(2, 2);
    EXPECT_FALSE(cells.SetText(1, 1, "1,1"));
    EXPECT_TRUE(cells.SetText(1, 1, "other"));
}

TEST(AligridCells, CellGoesBeforeColumnBeforeRow) {
    TAligridCells cells = Cells(3, 3);
    cells.SetRowProperties(1, {clRed, clRed, TAlign::Left});
    EXPECT_EQ(cells.Color(1, 1), clRed);
    cells.SetColumnProperties(1, {clGreen, {}, TAlign::Centre});
    EXPECT_EQ(cells.Color(1, 1), clGreen);
    EXPECT_EQ(cells.Color(0, 1), clRed);
    EXPECT_EQ(cells.FontColor(1, 1), clRed) << "open in the column";
    EXPECT_EQ(cells.Align(1, 1), TAlign::Centre);
    cells.SetCellProperties(1, 1, {clBlue, {}, {}});
    EXPECT_EQ(cells.Color(1, 1), clBlue);
    EXPECT_EQ(cells.Align(1, 1), TAlign::Centre);
    EXPECT_EQ(cells.Color(1, 0), clGreen);
    EXPECT_EQ(cells.Color(0, 0), std::nullopt);
    EXPECT_EQ(cells.CellProperties(1, 1), (TCellProperties{clBlue, {}, {}}));

    cells.SetCellProperties(1, 1, {});
    cells.SetColumnProperties(1, {});
    cells.SetRowProperties(1, {});
    EXPECT_EQ(cells.Color(1, 1), std::nullopt);
}

TEST(AligridCells, AnyColourIsKeptExactly) {
    TAligridCells cells = Cells(2, 2);
    for (const TColor color : {0u, 0x0100FFFFu, 0x01FEFFFFu, 0x80000005u, 0xFFFFFFFFu}) {
        cells.SetColor(1, 1, color);
        cells.SetFontColor(1, 1, color);
        EXPECT_EQ(cells.Color(1, 1), color);
        EXPECT_EQ(cells.FontColor(1, 1), color);
    }
}

TEST(AligridCells, ColourOfTheWindowIsAColourOfItsOwn) {
    TAligridCells cells = Cells(2, 2);
    cells.SetColumnProperties(1, {clRed, {}, {}});
    cells.SetColor(1, 1, clWindow);
    EXPECT_EQ(cells.Color(1, 1), clWindow);
}

TEST(AligridCells, ShapeEmptiesEverything) {
    TAligridCells cells = Cells(2, 2);
    cells.SetColor(0, 0, clRed);
    cells.SetFontColor(0, 0, clRed);
    cells.SetColumnProperties(1, {clRed, {}, TAlign::Right});
    cells.SetRowProperties(1, {clRed, {}, TAlign::Right});
    cells.SetShape(2, 2);
    EXPECT_THAT(Rows(cells), testing::ElementsAre(" ", " "));
    EXPECT_EQ(cells.Color(0, 0), std::nullopt);
    EXPECT_EQ(cells.FontColor(0, 0), std::nullopt);
    EXPECT_EQ(cells.Color(1, 1), std::nullopt);
    EXPECT_EQ(cells.Align(1, 1), std::nullopt);
}

TEST(AligridCells, RowCountCutsAndAddsAtTheEnd) {
    TAligridCells cells = Cells(2, 3);
    cells.SetColor(1, 2, clRed);
    cells.SetRowProperties(2, {{}, clBlue, {}});
    cells.SetRowCount(2);
    cells.SetRowCount(4);
    EXPECT_THAT(Rows(cells), testing::ElementsAre("0,0 1,0", "0,1 1,1", " ", " "));
    EXPECT_EQ(cells.Color(1, 2), std::nullopt);
    EXPECT_EQ(cells.FontColor(1, 2), std::nullopt);
    cells.SetRowCount(-1);
    EXPECT_EQ(cells.RowCount(), 0);
}

TEST(AligridCells, RearrangingMovesEverything) {
    TAligridCells cells = Cells(2, 3);
    cells.SetColor(0, 2, clRed);
    cells.SetRowProperties(1, {{}, clBlue, {}});
    cells.SetColumnProperties(1, {{}, {}, TAlign::Right});
    cells.Rearrange({1, 0}, {2, -1, 1});
    EXPECT_THAT(Rows(cells), testing::ElementsAre("1,2 0,2", " ", "1,1 0,1"));
    EXPECT_EQ(cells.Color(1, 0), clRed);
    EXPECT_EQ(cells.FontColor(0, 2), clBlue);
    EXPECT_EQ(cells.FontColor(0, 1), std::nullopt);
    EXPECT_EQ(cells.Align(0, 0), TAlign::Right);
    EXPECT_EQ(cells.Align(1, 0), std::nullopt);
}

TEST(AligridCells, ASourceGivesTheTextsThatCellsDoNotHave) {
    TAligridCells cells;
    cells.SetShape(2, 2);
    cells.SetText(0, 0, "0,0");
    cells.SetText(0, 1, "0,1");
    cells.SetText(1, 1, "1,1");
    std::vector<std::pair<int, int>> asked;
    cells.SetTextSource([&asked](int column, int row) {
        asked.emplace_back(column, row);
        return QString("source");
    });
    EXPECT_EQ(cells.Text(0, 0), "0,0");
    EXPECT_EQ(cells.Text(2, 0), "");
    EXPECT_THAT(asked, testing::IsEmpty());
    EXPECT_EQ(cells.Text(1, 0), "source");
    EXPECT_THAT(asked, testing::ElementsAre(std::pair(1, 0)));
    EXPECT_FALSE(cells.SetText(1, 0, "source"));
    EXPECT_TRUE(cells.SetText(1, 0, QString()));
    EXPECT_EQ(cells.Text(1, 0), "");
    EXPECT_TRUE(cells.SetText(1, 0, "own"));
    cells.SetRowCount(3);
    EXPECT_THAT(Rows(cells), testing::ElementsAre("0,0 own", "0,1 1,1", "source source"));
    cells.Rearrange({1, 0}, {0, -1});
    EXPECT_THAT(Rows(cells), testing::ElementsAre("own 0,0", "source source"));
    cells.SetShape(1, 1);
    EXPECT_EQ(cells.Text(0, 0), "");
}

TEST(AligridCells, LentColoursAreTheCellsOwn) {
    TAligridCells cells = Cells(2, 3);
    cells.SetColor(1, 0, clRed);
    cells.SetColumnProperties(0, {clGreen, {}, {}});
    cells.SetRowProperties(2, {clBlue, {}, {}});
    EXPECT_THAT(cells.LendColors(clWhite),
                testing::ElementsAre(clGreen, clRed, clGreen, clWhite, clGreen, clBlue));
    cells.LendColors(clWhite)[0] = 0x80000005;
    EXPECT_EQ(cells.Color(0, 0), 0x80000005);
    EXPECT_EQ(cells.CellProperties(1, 2).color, clBlue);
    cells.SetRowCount(2);
    cells.SetRowCount(3);
    EXPECT_EQ(cells.CellProperties(1, 2).color, std::nullopt) << "a fresh row";
    EXPECT_EQ(cells.LendColors(clBlack)[5], clBlack);
    EXPECT_THAT(TAligridCells().LendColors(clBlack), testing::IsEmpty());
}

TEST(AligridCells, ColoursAreReadWhereEachCellHasItsOwn) {
    TAligridCells cells = Cells(2, 2);
    EXPECT_THAT(cells.OwnColors(), testing::IsEmpty());
    cells.SetColor(0, 0, clRed);
    EXPECT_THAT(cells.OwnColors(), testing::IsEmpty()) << "one of them";
    cells.SetColor(1, 1, clRed);
    EXPECT_THAT(cells.OwnColors(), testing::IsEmpty()) << "the last one too, but not all";
    const std::span<TColor> lent = cells.LendColors(clWhite);
    EXPECT_THAT(cells.OwnColors(), testing::ElementsAre(clRed, clWhite, clWhite, clRed));
    lent[1] = clBlue;
    EXPECT_EQ(cells.OwnColors()[1], clBlue);
    cells.SetRowCount(3);
    EXPECT_THAT(cells.OwnColors(), testing::IsEmpty()) << "a fresh row";
    cells.SetRowCount(1);
    EXPECT_THAT(cells.OwnColors(), testing::ElementsAre(clRed, clBlue));
    cells.SetCellProperties(0, 0, {});
    EXPECT_THAT(cells.OwnColors(), testing::IsEmpty()) << "taken back";
}

TEST(AligridCells, WhatIsSetInOneRowLeavesTheOthersOpen) {
    TAligridCells cells = Cells(2, 3);
    cells.SetCellProperties(1, 1, {clRed, clBlue, TAlign::Right});
    for (const int row : {0, 2})
        EXPECT_EQ(cells.CellProperties(1, row), TCellProperties());
    EXPECT_EQ(cells.CellProperties(0, 1), TCellProperties());
    cells.Rearrange({0, 1}, {2, 1, 0});
    EXPECT_EQ(cells.CellProperties(1, 1), (TCellProperties{clRed, clBlue, TAlign::Right}));
    cells.SetCellProperties(1, 1, {});
    EXPECT_EQ(cells.CellProperties(1, 1), TCellProperties());
}

TEST(AligridCells, TextsAreShared) {
    TAligridCells cells = Cells(2, 2);
    const QString text = "255 of many";
    cells.SetText(0, 0, text);
    cells.SetText(1, 1, text);
    EXPECT_EQ(cells.Text(0, 0).constData(), cells.Text(1, 1).constData());
}
} // namespace
