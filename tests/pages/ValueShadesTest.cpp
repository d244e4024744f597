// Cells coloured by their values: what is painted, what is remembered.
#include "maps/ValueShades.h"

#include "forms/AligridColors.h"
#include "maps/ValueColors.h"
#include "pages/MapPageFixture.h"

namespace {
class TValueShadesTest : public TFuelPageTest {
protected:
    ~TValueShadesTest() override { TValueShades::Choose(false); }

    void SetUp() override {
        TFuelPageTest::SetUp();
        page->show();
    }

    std::optional<TColor> Shade(int column, int row) {
        std::optional<TColor> shade;
        Grid("grdPTMap").OnShadeCell(column, row, shade);
        return shade;
    }
    /// What is painted at a place of a body cell, counted from its top left corner.
    QColor Painted(int column, int row, QPoint at) {
        TStringAlignGrid &grid = Grid("grdPTMap");
        const QImage picture = grid.viewport()->grab().toImage();
        const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
        return picture.pixelColor(cell.topLeft() + at);
    }
    static QColor Color(TColor color) { return PaintedColor(color, QPalette()); }
};

TEST_F(TValueShadesTest, AreOffUntilChosen) {
    EXPECT_EQ(Shade(1, 1), std::nullopt);
    Choose("actShades");
    EXPECT_EQ(Shade(1, 1), ValueColor(0));
    EXPECT_EQ(Shade(4, 3), ValueColor(1));
    Choose("actShades");
    EXPECT_EQ(Shade(1, 1), std::nullopt);
}

TEST_F(TValueShadesTest, LeaveHeadersAndWhatIsNoNumber) {
    Choose("actShades");
    Choose("UnlockAxis1");
    EXPECT_EQ(Shade(0, 1), std::nullopt);
    EXPECT_EQ(Shade(1, 0), std::nullopt);
    Grid("grdPTMap").SetCell(2, 1, "abc");
    EXPECT_EQ(Shade(2, 1), std::nullopt);
}

TEST_F(TValueShadesTest, FollowTheLargestValue) {
    Choose("actShades");
    ASSERT_EQ(Shade(4, 3), ValueColor(1));
    Type("grdPTMap", 1, 1, "200");
    EXPECT_EQ(Shade(1, 1), ValueColor(1));
    EXPECT_EQ(Shade(2, 1), ValueColor(2.0 / 198)) << "4, between 2 and 200";
}

TEST_F(TValueShadesTest, AreInTheMiddleWhereAllValuesAreEqual) {
    Choose("actShades");
    std::vector<TCellText> same;
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 4; ++column)
            same.push_back({column, row, "7"});
    page->EnterTexts(TMapKind::PT, same, "same");
    QTest::qWait(0);
    EXPECT_EQ(Shade(3, 2), ValueColor(0.5));
}

TEST_F(TValueShadesTest, ArePaintedAndKeepAnEditInSight) {
    Choose("actShades");
    Grid("grdPTMap").SetCurrent(1, 3);
    EXPECT_EQ(Painted(1, 1, {4, 4}), Color(ValueColor(0)));
    Type("grdPTMap", 2, 2, "99");
    Grid("grdPTMap").SetCurrent(1, 3);
    EXPECT_EQ(Painted(2, 2, {1, 1}), Color(ValueColor(1))) << "around it";
    EXPECT_EQ(Painted(2, 2, {4, 4}), Color(clWindow)) << "behind the text";
}

TEST_F(TValueShadesTest, AreRememberedForEveryPage) {
    Choose("actShades");
    TfrmTimingMaps other(nullptr, workspace, workspace.timingMapSet);
    other.ShowPage();
    std::optional<TColor> shade;
    other.Panel(TMapKind::PT).grid->OnShadeCell(1, 1, shade);
    EXPECT_EQ(shade, ValueColor(0));
}

TEST(ValueShades, LetTextsBeReadOnEachColour) {
    for (int step = 0; step <= 255; ++step) {
        const QColor background = PaintedColor(ValueColor(step / 255.0), QPalette());
        EXPECT_GE(Contrast(ReadableOn(background), background), leastTextContrast) << step;
    }
}
} // namespace
