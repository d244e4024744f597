// Base of the tests of saving an image from the page "ROM Information": an image that is loaded and
// placed, an edit, a save, and what has to hold after one that failed.
#pragma once

#include "pages/ROMInfoFixture.h"

#include <cstdint>
#include <filesystem>

class TROMInfoSaveTest : public TROMInfoTest {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN", 7);
        original = GetFile(rom);
        LoadAndPlace(rom);
    }
    /// Changes the first fuel part throttle cell in the map alone; the bytes that a save then
    /// writes.
    TBytes Edit(int value = 77) {
        Cell(*workspace.fuelMapSet.PTMap).SetValue(value);
        TBytes bytes = original;
        bytes[static_cast<std::size_t>(workspace.fuelMapSet.PTMap->data->offset)] =
            static_cast<std::uint8_t>(value);
        return bytes;
    }
    void Save(const std::filesystem::path &target) {
        dialogs.saves.push_back(Name(target));
        other->DataChanged = true;
        page->ShowPage();
        Button("btnSave").click();
    }
    /// A save that the user agreed to fails with `reason`, leaves all files as they were, and the
    /// next one to another name works.
    void ExpectFailure(const std::filesystem::path &target, const QString &reason) {
        const TBytes expected = Edit();
        EXPECT_NO_THROW(Save(target));
        EXPECT_EQ(dialogs.messages, QStringList{"Cannot write '" + Name(target) + "': " + reason});
        EXPECT_EQ(GetFile(rom), original);
        EXPECT_EQ(page->ROMFileName(), rom);
        EXPECT_EQ(Caption(), "Ferrolyn - " + Name(rom));
        EXPECT_TRUE(Image().modified);
        ExpectNextSaveWorks(expected);
    }
    void ExpectNextSaveWorks(const TBytes &expected) {
        dialogs.messages.clear();
        Save(folder / "NEXT.BIN");
        EXPECT_EQ(dialogs.messages, QStringList());
        EXPECT_EQ(GetFile(folder / "NEXT.BIN"), expected);
        EXPECT_EQ(page->ROMFileName(), folder / "NEXT.BIN");
    }

    std::filesystem::path rom;
    TBytes original;
};
