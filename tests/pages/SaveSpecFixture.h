// Base of the tests of "Save Spec" on the page "ROM Information".
#pragma once

#include "pages/ROMInfoFixture.h"

class TSaveSpecTest : public TROMInfoTest {
protected:
    void SetUp() override {
        TROMInfoTest::SetUp();
        rom = MakeROM("A.BIN");
        LoadAndPlace(rom);
    }
    void SaveSpec(const std::filesystem::path &target) {
        dialogs.saves.push_back(Name(target));
        Button("btnSaveSpec").click();
    }
    std::string Text(const std::filesystem::path &file) {
        const TBytes bytes = GetFile(file);
        return {bytes.begin(), bytes.end()};
    }

    std::filesystem::path rom;
    const std::string rest = "[Fuel Maps]\npt_offset=$1000\nidle_offset=$1200\nwot_offset=$1300\n"
                             "[Timing Maps]\npt_offset=$2000\nidle_offset=$2200\nwot_offset=$2300\n"
                             "[Other Maps]\nrevlimit_offset=$0040\n";
};
