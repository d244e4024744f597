// What holds for any image whatever: random images from fixed seeds, maps placed anywhere.
#include "support/FakeMapViews.h"
#include "support/ModelFixture.h"

#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

class TModelPropertiesTest : public TModelTest, public testing::WithParamInterface<unsigned> {
protected:
    TModelPropertiesTest() : random(GetParam()) {
        // Small bytes are counts that make sense; half of the images have mostly those.
        const unsigned ceiling = GetParam() % 2 == 0 ? 255 : 24;
        for (std::uint8_t &byte : Image().data)
            byte = static_cast<std::uint8_t>(Number(0, static_cast<int>(ceiling)));
    }

    int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
    /// Mostly inside the image, often near its ends, sometimes outside.
    std::int32_t Offset() {
        switch (Number(0, 4)) {
        case 0:
            return Number(-4, 40);
        case 1:
            return Number(0xFFF00, 0x100010);
        default:
            return Number(0, 0xFFFFF);
        }
    }

    std::mt19937 random;
    TFuelMapSet fuel;
    TTimingMapSet timing;
};

TEST_P(TModelPropertiesTest, SavingUneditedSetsRewritesTheSameBytes) {
    const TBytes before = Get(0, TROMImage::capacity);
    for (int round = 0; round < 200; ++round) {
        fuel.SetOffsets(Offset(), Offset(), Offset());
        timing.SetPointers(Offset(), Number(0, 255), Offset(), Number(0, 255), Offset(),
                           Number(0, 255));
        fuel.revLimiter.SetOffset(Offset());
        fuel.SaveAll();
        timing.SaveAll();
    }
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
}

TEST_P(TModelPropertiesTest, ShowingAndReadingBackChangesNothing) {
    const TBytes before = Get(0, TROMImage::capacity);
    TimingConstants() = {0.65, 12.7};
    for (int round = 0; round < 50; ++round) {
        fuel.SetOffsets(Offset(), Offset(), Offset());
        fuel.SetShowConverted(Number(0, 1) == 1);
        for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT}) {
            TFakeMapGrid grid;
            std::string label;
            TMap &map = fuel.Map(kind);
            map.SizeGrid(grid);
            map.FillGrid(grid, label, map.GetCellFormat(), 12, 12);
            map.ReadGrid(grid);
            EXPECT_FALSE(map.IsModified());
        }
    }
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
    EXPECT_TRUE(Messages().empty());
}

TEST_P(TModelPropertiesTest, AnEditTouchesExactlyItsByte) {
    for (int round = 0; round < 100; ++round) {
        fuel.SetOffsets(Number(1, 0xF0000), 0, 0);
        TMapData &body = *fuel.PTMap->data;
        if (body.rows == 0 || body.columns == 0)
            continue;
        TBytes expected = Get(0, TROMImage::capacity);
        const int r = Number(0, body.rows - 1);
        const int t = Number(0, body.columns - 1);
        const int raw = Number(-300, 600);
        body.values->GetItem(r, t)->SetValue(raw);
        expected[static_cast<std::size_t>(body.offset + r * body.columns + t)] =
            static_cast<std::uint8_t>(raw);
        fuel.PTMap->Save();
        ASSERT_EQ(Get(0, TROMImage::capacity), expected);
    }
}

TEST_P(TModelPropertiesTest, AnAxisPointTouchesAtMostItsTwoSteps) {
    for (int round = 0; round < 100; ++round) {
        TRPMAxisData axis;
        axis.LoadAxis(Number(1, 0xF0000));
        if (axis.rows == 0 || axis.size > 31)
            continue;
        TBytes expected = Get(0, TROMImage::capacity);
        const int k = Number(0, axis.rows - 1);
        const int change = Number(-300, 300);
        axis.values->GetItem(k, 0)->raw += change;
        const auto step = static_cast<std::size_t>(axis.offset + 2 + k);
        expected[step] = static_cast<std::uint8_t>(expected[step] - change);
        if (k > 0)
            expected[step - 1] = static_cast<std::uint8_t>(expected[step - 1] + change);
        axis.SaveAxis();
        ASSERT_EQ(Get(0, TROMImage::capacity), expected);
        axis.LoadAxis(axis.offset);
        axis.SaveAxis();
        ASSERT_EQ(Get(0, TROMImage::capacity), expected) << "what was written reads back";
    }
}

TEST_P(TModelPropertiesTest, APasteWritesTheBufferedMapAtTheDestination) {
    for (int round = 0; round < 100; ++round) {
        const std::int32_t from = Number(1, 0x70000);
        const std::int32_t to = Number(0x80000, 0xF0000);
        fuel.SetOffsets(from, 0, 0);
        if (!fuel.PTMap->Fits() || fuel.PTMap->LoadCount() == 0)
            continue;
        const auto buffer = fuel.PTMap->CreateCopy();
        const std::int32_t length = buffer->axes->length + buffer->data->length;
        // The destination has the same counts, as the paste checks demand.
        Image().Poke(to + 1, static_cast<std::uint8_t>(buffer->RPMCount()));
        Image().Poke(to + buffer->RPMCount() + 3, static_cast<std::uint8_t>(buffer->LoadCount()));
        TBytes expected = Get(0, TROMImage::capacity);
        for (std::int32_t i = 0; i < length; ++i)
            if (i != 0 && i != buffer->axes->rpmAxis->length)
                expected[static_cast<std::size_t>(to + i)] = Image().Peek(from + i);
        fuel.SetOffsets(to, 0, 0);
        buffer->AssignTo(*fuel.PTMap);
        fuel.PTMap->Save();
        ASSERT_EQ(Get(0, TROMImage::capacity), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TModelPropertiesTest, testing::Range(1U, 7U));

} // namespace
