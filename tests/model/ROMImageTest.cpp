#include "model/ROMImageFixture.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

TEST(ROMImageProcessTest, ThereIsOneFromTheStart) {
    ASSERT_NE(ROMImage(), nullptr);
    EXPECT_EQ(ROMImage(), ROMImage());
}

TEST_F(TROMImageTest, IsEmptyWhenCreated) {
    const auto image = std::make_unique<TROMImage>();
    EXPECT_FALSE(image->modified);
    EXPECT_EQ(image->size, 0);
    EXPECT_EQ(image->data.size(), 1048576U);
    EXPECT_EQ(std::count(image->data.begin(), image->data.end(), 0), 1048576);
}

TEST_F(TROMImageTest, CanBeExchanged) {
    auto mine = std::make_unique<TROMImage>();
    TROMImage *expected = mine.get();
    const auto old = ExchangeROMImage(std::move(mine));
    EXPECT_EQ(ROMImage(), expected);
    EXPECT_NE(old.get(), expected);
    EXPECT_EQ(ExchangeROMImage(nullptr).get(), expected);
    EXPECT_EQ(ROMImage(), nullptr);
    EXPECT_EQ(PeekROM(0), 0);
}

TEST_F(TROMImageTest, LoadsEveryLengthUpToItsCapacity) {
    for (const std::size_t length : {0U, 1U, 15U, 32768U, 65536U, 1048576U}) {
        Image().data.fill(0x11);
        Image().modified = true;
        Image().LoadFromFile(FileOf(length, 0xEE));
        EXPECT_EQ(Image().size, static_cast<std::int32_t>(length));
        EXPECT_FALSE(Image().modified);
        TBytes expected(TROMImage::capacity, 0x11);
        std::fill_n(expected.begin(), length, std::uint8_t{0xEE});
        EXPECT_EQ(Get(0, TROMImage::capacity), expected) << length;
    }
}

TEST_F(TROMImageTest, AShorterFileLeavesTheRestOfALongerOne) {
    Image().LoadFromFile(FileOf(65536, 0xAA));
    Image().LoadFromFile(FileOf(32768, 0xBB));
    EXPECT_EQ(Image().size, 32768);
    EXPECT_EQ(Get(32767, 2), (TBytes{0xBB, 0xAA}));
    EXPECT_EQ(Get(65535, 2), (TBytes{0xAA, 0x00}));
}

TEST_F(TROMImageTest, RefusesOneByteTooManyNamingFileSizeAndLimit) {
    const std::string error = LoadError(FileOf(1048577, 1));
    EXPECT_THAT(error, HasSubstr((folder / "rom.bin").string()));
    EXPECT_THAT(error, HasSubstr("1048577"));
    EXPECT_THAT(error, HasSubstr("1048576"));
}

TEST_F(TROMImageTest, AFailedLoadChangesNothing) {
    EXPECT_THAT(LoadError(folder / "none.bin"), HasSubstr("none.bin"));
    EXPECT_THAT(LoadError(folder.Path()), HasSubstr(folder.Path().string()));
}

TEST_F(TROMImageTest, SavesExactlyTheLoadedSize) {
    Image().LoadFromFile(FileOf(300, 0x42));
    Image().Poke(299, 0x43);
    Image().Poke(300, 0x44);
    Image().modified = true;
    Image().SaveToFile(folder / "out.bin");
    TBytes expected(300, 0x42);
    expected.back() = 0x43;
    EXPECT_EQ(GetFile(folder / "out.bin"), expected);
    EXPECT_FALSE(Image().modified);
}

TEST_F(TROMImageTest, LoadThenSaveIsByteIdentical) {
    for (const std::size_t length : {0U, 1U, 15U, 32768U, 1048576U}) {
        TBytes bytes(length);
        for (std::size_t i = 0; i < length; ++i)
            bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
        PutFile(folder / "in.bin", bytes);
        Image().LoadFromFile(folder / "in.bin");
        Image().SaveToFile(folder / "out.bin");
        EXPECT_EQ(GetFile(folder / "out.bin"), bytes);
    }
}

TEST_F(TROMImageTest, SavesAlthoughTheLoadedFileHasGone) {
    Image().LoadFromFile(FileOf(16, 0x42));
    fs::remove(folder / "rom.bin");
    Image().SaveToFile(folder / "rom.bin");
    EXPECT_EQ(GetFile(folder / "rom.bin"), TBytes(16, 0x42));
}

TEST_F(TROMImageTest, AFailedSaveKeepsTheModifiedFlag) {
    Image().size = 5;
    for (const bool modified : {true, false}) {
        Image().modified = modified;
        EXPECT_THROW(Image().SaveToFile(folder / "none/out.bin"), EFileError);
        EXPECT_THROW(Image().SaveToFile(folder.Path()), EFileError);
        EXPECT_EQ(Image().modified, modified);
    }
}

TEST_F(TROMImageTest, CountsTheBytesThatAreNotInTheFile) {
    Image().Poke(0, 9);
    EXPECT_EQ(Image().BytesNotInFile(), 0U) << "there is no file";
    Image().LoadFromFile(FileOf(16, 5));
    EXPECT_EQ(Image().BytesNotInFile(), 0U);
    for (const int offset : {0, 7, 15, 16})
        Image().Poke(offset, 6);
    EXPECT_EQ(Image().BytesNotInFile(), 3U) << "the last one lies behind the file";
    Image().Poke(7, 5);
    EXPECT_EQ(Image().BytesNotInFile(), 2U);
    EXPECT_THROW(Image().LoadFromFile(folder / "gone"), EFileError);
    EXPECT_THROW(Image().SaveToFile(folder / "gone" / "rom.bin"), EFileError);
    EXPECT_EQ(Image().BytesNotInFile(), 2U);
    Image().SaveToFile(folder / "saved.bin");
    EXPECT_EQ(Image().BytesNotInFile(), 0U);
    Image().Poke(0, 7);
    EXPECT_EQ(Image().BytesNotInFile(), 1U) << "of the saved one";
    Image().LoadFromFile(FileOf(8, 1));
    EXPECT_EQ(Image().BytesNotInFile(), 0U);
}

TEST_F(TROMImageTest, KnowsWhichBytesGoIntoFiles) {
    Image().size = 16;
    for (const auto &[offset, inFile] : {std::pair(-1, false), {0, true}, {15, true}, {16, false}})
        EXPECT_EQ(Image().IsInFile(offset), inFile) << offset;
}

TEST_F(TROMImageTest, PeeksAndPokesOnlyInsideTheBuffer) {
    constexpr std::int64_t far = std::numeric_limits<std::int64_t>::max();
    Image().data.fill(0x5A);
    for (const std::int64_t offset : std::vector<std::int64_t>{0, 1, 0xFFFFE, 0xFFFFF}) {
        EXPECT_TRUE(TROMImage::Contains(offset));
        EXPECT_EQ(Image().Peek(offset), 0x5A);
        EXPECT_TRUE(Image().Poke(offset, 0xA5));
        EXPECT_EQ(PeekROM(offset), 0xA5);
    }
    const TBytes before = Get(0, TROMImage::capacity);
    for (const std::int64_t offset :
         std::vector<std::int64_t>{-1, 0x100000, 0x100001, 0x7FFFFFFF, -0x80000000LL, far, -far}) {
        EXPECT_FALSE(TROMImage::Contains(offset));
        EXPECT_EQ(Image().Peek(offset), 0);
        EXPECT_FALSE(Image().Poke(offset, 0xFF));
    }
    EXPECT_EQ(Get(0, TROMImage::capacity), before);
}

TEST_F(TROMImageTest, StoresIntegersByTheirLowByte) {
    EXPECT_EQ(LowByte(0), 0);
    EXPECT_EQ(LowByte(255), 255);
    EXPECT_EQ(LowByte(300), 44);
    EXPECT_EQ(LowByte(-1), 255);
    EXPECT_EQ(LowByte(-256), 0);
}

TEST_F(TROMImageTest, OffsetsBehindDoNotWrap) {
    EXPECT_EQ(OffsetBehind(0x6000, 28), 0x601C);
    EXPECT_EQ(OffsetBehind(-5, 2), -3);
    EXPECT_EQ(OffsetBehind(highest, 2), highest);
}

} // namespace
