// Tests of images that are loaded from a folder of their own.
#pragma once

#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

struct TROMImageTest : TModelTest {
    TTemporaryFolder folder;

    std::filesystem::path FileOf(std::size_t length, std::uint8_t fill) {
        PutFile(folder / "rom.bin", TBytes(length, fill));
        return folder / "rom.bin";
    }
    /// The text of the error with which loading `file` fails; the image must stay as it was.
    std::string LoadError(const std::filesystem::path &file) {
        Image().data.fill(0x77);
        Image().size = 1234;
        Image().modified = true;
        std::string text;
        try {
            Image().LoadFromFile(file);
        } catch (const EFileError &error) {
            text = error.what();
        }
        EXPECT_EQ(Get(0, TROMImage::capacity), TBytes(TROMImage::capacity, 0x77));
        EXPECT_EQ(Image().size, 1234);
        EXPECT_TRUE(Image().modified);
        return text;
    }
};
