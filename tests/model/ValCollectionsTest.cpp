#include "support/ModelFixture.h"

#include <cstdint>
#include <memory>
#include <set>

#include <gtest/gtest.h>

namespace {

struct TValCollectionsTest : TModelTest {};

template <class TCollection, class TValue>
void ExpectItemsOf() {
    TCollection values;
    values.SetSize(2, 3);
    for (std::int32_t r = 0; r < 2; ++r)
        for (std::int32_t c = 0; c < 3; ++c)
            EXPECT_NE(dynamic_cast<TValue *>(values.GetItem(r, c)), nullptr);
}

TEST_F(TValCollectionsTest, MakeValuesOfTheirClass) {
    ExpectItemsOf<TRPMValCollection, TRPMVal>();
    ExpectItemsOf<TThrValCollection, TThrVal>();
    ExpectItemsOf<TFuelValCollection, TFuelVal>();
    ExpectItemsOf<TTimingValCollection, TTimingVal>();
}

TEST_F(TValCollectionsTest, HoldOneValueForEveryPair) {
    for (const auto &[rows, columns] :
         {std::pair{1, 1}, {1, 31}, {31, 1}, {16, 8}, {8, 16}, {31, 20}}) {
        TFuelValCollection values;
        values.SetSize(rows, columns);
        std::set<TVal *> seen;
        for (std::int32_t r = 0; r < rows; ++r)
            for (std::int32_t c = 0; c < columns; ++c)
                seen.insert(values.GetItem(r, c));
        EXPECT_EQ(seen.size(), static_cast<std::size_t>(rows * columns));
        EXPECT_FALSE(seen.contains(nullptr));
    }
}

TEST_F(TValCollectionsTest, HaveNothingOutsideTheirShape) {
    TFuelValCollection values;
    EXPECT_EQ(values.GetItem(0, 0), nullptr);
    values.SetSize(2, 3);
    for (const auto &[r, c] : {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 3}, {1, 3}, {2, 2}}) {
        EXPECT_EQ(values.GetItem(r, c), nullptr) << r << " " << c;
        values.SetItem(r, c, std::make_unique<TVal>());
    }
    values.SetSize(0, 3);
    EXPECT_EQ(values.GetItem(0, 0), nullptr);
    values.SetSize(-1, 3);
    EXPECT_EQ(values.Rows(), 0);
}

TEST_F(TValCollectionsTest, ResizingDiscardsAllValues) {
    TFuelValCollection values;
    values.SetSize(2, 2);
    values.GetItem(1, 1)->SetValue(9);
    values.SetSize(2, 2);
    EXPECT_EQ(values.GetItem(1, 1)->raw, 0);
    EXPECT_FALSE(values.GetItem(1, 1)->modified);
}

TEST_F(TValCollectionsTest, AnItemTakesAnyValue) {
    TRPMValCollection values;
    values.SetSize(1, 2);
    auto plain = std::make_unique<TVal>();
    plain->raw = 100;
    values.SetItem(0, 1, std::move(plain));
    EXPECT_EQ(values.GetItem(0, 1)->GetValue(), 100.0);
    EXPECT_EQ(values.GetItem(0, 0)->raw, 0);
}

TEST_F(TValCollectionsTest, AssignTakesShapeAndCopies) {
    TFuelValCollection source;
    source.SetSize(2, 3);
    source.GetItem(1, 2)->raw = 42;
    source.GetItem(1, 2)->offset = 0x30;
    TRPMValCollection destination;
    destination.SetSize(5, 5);
    destination.Assign(source);
    EXPECT_EQ(destination.Rows(), 2);
    EXPECT_EQ(destination.Columns(), 3);
    const TVal *copy = destination.GetItem(1, 2);
    EXPECT_NE(dynamic_cast<const TFuelVal *>(copy), nullptr);
    EXPECT_NE(copy, source.GetItem(1, 2));
    EXPECT_EQ(copy->raw, 42);
    EXPECT_EQ(copy->offset, 0x30);
    EXPECT_TRUE(copy->modified);
}

TEST_F(TValCollectionsTest, AssignToKeepsTheDestinationsValuesAndShape) {
    TFuelValCollection source;
    source.SetSize(2, 2);
    source.GetItem(0, 1)->raw = 42;
    TRPMValCollection destination;
    destination.SetSize(1, 3);
    destination.GetItem(0, 1)->offset = 0x99;
    source.AssignTo(destination);
    EXPECT_NE(dynamic_cast<TRPMVal *>(destination.GetItem(0, 1)), nullptr);
    EXPECT_EQ(destination.GetItem(0, 1)->raw, 42);
    EXPECT_EQ(destination.GetItem(0, 1)->offset, 0x99);
    EXPECT_FALSE(destination.GetItem(0, 1)->showConverted);
    EXPECT_TRUE(destination.GetItem(0, 1)->modified);
    EXPECT_FALSE(destination.GetItem(0, 2)->modified);
}

} // namespace
