// An image with maps of its own beside the one in force.
#include "changes/MappedImage.h"

#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"
#include "system/Errors.h"

#include <fstream>
#include <thread>

#include <gmock/gmock.h>

namespace {
class TMappedImageTest : public TModelTest {
protected:
    /// An image of 16 KiB with one map of four RPM points at 0x1000.
    TBytes Other() {
        Image().data.fill(0);
        PutMap(0x1000, {60, 60, 60, 16}, {100, 100, 0});
        TBytes bytes(Image().data.begin(), Image().data.begin() + 0x4000);
        Image().data.fill(0);
        return bytes;
    }
    std::filesystem::path Spec(const std::string &text) {
        const std::filesystem::path file = folder.Path() / "OTHER.SPC";
        std::ofstream(file) << text;
        return file;
    }
    TTemporaryFolder folder;
};

TEST_F(TMappedImageTest, HasItsMapsWhereASpecFileSays) {
    TimingConstants() = {0.5, 10};
    TMappedImage other(Other());
    other.PlaceBySpec(Spec("; Other\n[Main]\ntiming_divider=0.7\ntiming_subtractor=12\n"
                           "[Fuel Maps]\npt_offset=$1000\n"));
    EXPECT_EQ(other.Maps().fuelMapSet.PTMap->RPMCount(), 4);
    EXPECT_EQ(TimingConstants().divider, 0.5) << "the spec file in force stays";
    EXPECT_EQ(ROMImage()->Peek(0x1001), 0) << "the image in force stays";
}

TEST_F(TMappedImageTest, TakesPointersFromItsOwnBytes) {
    TBytes bytes = Other();
    bytes[0x20] = 0x10; // -> $1000
    bytes[0x21] = 0x00;
    Put(0x20, {0x20, 0x00});
    TWorkspace mine;
    mine.fuelMapSet.SetPointers(0x20, 0xFF, 0x20, 0xFF, 0x20, 0xFF);
    TMappedImage other(bytes);
    other.PlaceAs(mine);
    EXPECT_EQ(other.Maps().fuelMapSet.PTMap->data->offset, 0x1000 + 11);
    EXPECT_EQ(mine.fuelMapSet.PTMap->GetLocation(), 0x2000);
}

TEST_F(TMappedImageTest, ShowsWhatTheOtherMapsShow) {
    TWorkspace mine;
    mine.fuelMapSet.SetOffsets(0x1000, 0, 0);
    mine.fuelMapSet.SetShowConverted(true);
    TMappedImage other(Other());
    other.PlaceAs(mine);
    EXPECT_TRUE(other.Maps().fuelMapSet.PTMap->data->showConverted);
    EXPECT_FALSE(other.Maps().timingMapSet.PTMap->data->showConverted);
}

TEST_F(TMappedImageTest, OfABadSpecFileSaysSo) {
    TMappedImage other(Other());
    EXPECT_THROW(other.PlaceBySpec(Spec("[Main]\ntiming_divider=x\n")), EConvertError);
}

TEST_F(TMappedImageTest, SaysWhetherASpecFilePlacesIt) {
    TMappedImage other(Other());
    EXPECT_TRUE(other.PlaceBySpec(Spec("[Fuel Maps]\npt_offset=$1000\n")));
    EXPECT_FALSE(other.PlaceBySpec(Spec("[Fuel Maps]\npt_offset=here\n")));
}

TEST_F(TMappedImageTest, TakesChangesIntoItsOwnBytes) {
    TMappedImage other(Other());
    other.PlaceBySpec(Spec("[Fuel Maps]\npt_offset=$1000\n"));
    other.ShowUnits(true);
    other.Change([](TWorkspace &maps) {
        maps.fuelMapSet.PTMap->data->values->GetItem(0, 0)->SetValue(1);
        maps.fuelMapSet.PTMap->Save();
    });
    EXPECT_EQ(other.Bytes()[0x1000 + 11], 128);
    EXPECT_EQ(ROMImage()->Peek(0x1000 + 11), 0) << "the image in force stays";
}

TEST_F(TMappedImageTest, IsInForceForItsThreadAlone) {
    TMappedImage other(Other());
    TimingConstants() = {0.5, 10};
    Put(0x1001, {7});
    other.InForce([&] {
        std::thread([] {
            EXPECT_EQ(ROMImage()->Peek(0x1001), 0) << "a thread begins with an image of its own";
            EXPECT_EQ(TimingConstants().divider, 0);
            ROMImage()->Poke(0x1001, 9);
        }).join();
        EXPECT_EQ(ROMImage()->Peek(0x1001), 4);
    });
    EXPECT_EQ(ROMImage()->Peek(0x1001), 7);
    EXPECT_EQ(TimingConstants().divider, 0.5);
}

TEST_F(TMappedImageTest, HasAtMostAMebibyte) {
    EXPECT_EQ(TMappedImage(TBytes()).Bytes().size(), 0U);
    EXPECT_EQ(TMappedImage(TBytes(TROMImage::capacity + 1, 7)).Bytes().size(),
              std::size_t{TROMImage::capacity});
}
} // namespace
