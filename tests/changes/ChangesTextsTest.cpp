// What the pages say of differences.
#include "changes/ChangesTexts.h"

#include "support/ModelFixture.h"

namespace {
class TChangesTextsTest : public TModelTest {
protected:
    static constexpr TByteDifference byte{0, 0, 100, 200};
    static TMapChanges Changes(TMatch match, std::size_t cells, std::size_t axes) {
        return {{TMapSetKind::Fuel, TMapKind::PT},
                match,
                std::vector<TCellChange>(cells, {0, 0, byte}),
                std::vector<TByteDifference>(axes, byte)};
    }
    std::string Text(TMatch match, std::size_t cells, std::size_t axes) {
        return MapText(Changes(match, cells, axes), here, there);
    }
    TFuelMap here{2};
    TFuelMap there{2};
};

TEST_F(TChangesTextsTest, CountCellsAndAxes) {
    EXPECT_EQ(Text(TMatch::Same, 0, 0), "");
    EXPECT_EQ(Text(TMatch::Same, 1, 0), "1 cell");
    EXPECT_EQ(Text(TMatch::Same, 12, 0), "12 cells");
    EXPECT_EQ(Text(TMatch::Same, 12, 1), "12 cells, 1 byte of the axes");
    EXPECT_EQ(Text(TMatch::Same, 0, 2), "2 bytes of the axes");
    EXPECT_EQ(Text(TMatch::OtherAxes, 3, 2), "3 cells, other axes");
    EXPECT_EQ(Text(TMatch::None, 0, 0), "");
}

TEST_F(TChangesTextsTest, SayWhyMapsAreNotCompared) {
    PutMap(0x100, {60, 60, 60, 16}, {100, 100, 0});
    PutMap(0x200, {60, 60, 16}, {100, 0});
    here.SetOffset(0x100);
    there.SetOffset(0x200);
    EXPECT_EQ(Text(TMatch::OtherShape, 0, 0), "other shape: 4 x 3 here, 3 x 2 there");
    EXPECT_EQ(Text(TMatch::OnlyAfter, 0, 0), "only here");
    EXPECT_EQ(Text(TMatch::OnlyBefore, 0, 0), "only there");
}

TEST_F(TChangesTextsTest, NameTheRevLimiterInRpm) {
    EXPECT_EQ(RevLimiterText({0x40, 0x40, 170, 163}), "6520 here, 6800 there");
}

TEST_F(TChangesTextsTest, CountWhatLiesElsewhere) {
    EXPECT_EQ(ElsewhereText({{5, 1}}), "1 byte in 1 place");
    EXPECT_EQ(ElsewhereText({{5, 4}, {20, 10}}), "14 bytes in 2 places");
}

TEST_F(TChangesTextsTest, SayHowFarChangesGo) {
    TImageChanges changes;
    changes.runs = {{1, 12}};
    EXPECT_EQ(ExtentText(changes), "12 bytes");
    changes.maps = {Changes(TMatch::Same, 2, 0), Changes(TMatch::Same, 0, 0)};
    EXPECT_EQ(ExtentText(changes), "12 bytes in 1 map");
    changes.maps.push_back(Changes(TMatch::OtherAxes, 0, 2));
    EXPECT_EQ(ExtentText(changes), "12 bytes in 2 maps");
}

TEST_F(TChangesTextsTest, SumUp) {
    TImageChanges changes;
    changes.sizeBefore = changes.sizeAfter = 100;
    EXPECT_EQ(TotalText(changes, "A.BIN"), "No byte differs from A.BIN");
    changes.runs = {{1, 1}};
    EXPECT_EQ(TotalText(changes, "A.BIN"), "1 byte differs from A.BIN");
    changes.runs = {{1, 1}, {8, 2}};
    changes.sizeBefore = 1;
    EXPECT_EQ(TotalText(changes, "A.BIN"), "3 bytes differ from A.BIN; 100 bytes are here and 1 "
                                           "byte there: the longer end is left out");
}

TEST_F(TChangesTextsTest, TellACellInUnitsAndCounts) {
    EXPECT_EQ(CellText({125 / 128., 125}, {134 / 128., 134}, "###0.00"),
              "0.98 (125) here, 1.05 (134) there: -0.07");
    EXPECT_EQ(CellText({134, 134}, {125, 125}, "##0"), "134 (134) here, 125 (125) there: +9");
}

TEST_F(TChangesTextsTest, CutLongBytes) {
    const TBytes bytes{0, 0x1F, 0xAB};
    EXPECT_EQ(HexText(bytes, 3), "00 1F AB");
    EXPECT_EQ(HexText(bytes, 2), "00 1F ...");
    EXPECT_EQ(HexText({}, 2), "");
}
} // namespace
