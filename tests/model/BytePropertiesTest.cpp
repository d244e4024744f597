// What reaches the disk: random files, maps placed in them at random, edits typed into grids. The
// saved file differs from the loaded one in the bytes that the edits stand for and in no other.
#include "e2e/ExpectedImage.h"
#include "model/LiteralMap.h"
#include "support/FakeMapViews.h"
#include "support/ModelFixture.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr std::array<TMapKind, 3> kinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};
constexpr int rpmBase = 256;
constexpr int loadBase = 250;
constexpr double divider = 0.65;
constexpr double subtractor = 12.7;

/// An entry and what must be shown of it once it has been through the file.
struct TEntry {
    std::size_t map; ///< 0 to 2 fuel, 3 to 5 timing
    int column;
    int row;
    double entered; ///< in the units of the entry
    double unit;    ///< one count in those units
    int raw;        ///< the count that the entry is rounded to
    bool converted;
};

class TBytePropertiesTest : public TModelTest, public testing::WithParamInterface<unsigned> {
protected:
    TBytePropertiesTest() : random(GetParam()) { TimingConstants() = {divider, subtractor}; }

    int Number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); }
    bool Chance(int of) { return Number(1, of) == 1; }

    TBytes RandomBytes(int count) {
        TBytes bytes(static_cast<std::size_t>(count));
        for (std::uint8_t &byte : bytes)
            byte = static_cast<std::uint8_t>(Number(0, 255));
        return bytes;
    }

    /// Makes a map start at `at`: its counts; steps and cells stay as random as they are.
    void PlantMap(TBytes &bytes, int at, bool twoAxes) {
        const int rpmCount = Number(1, 31);
        ::Put(bytes, at + 1, rpmCount);
        if (twoAxes)
            ::Put(bytes, at + rpmCount + 3, Number(1, 20));
    }

    void LoadFile(const TBytes &bytes) {
        PutFile(folder / "loaded.BIN", bytes);
        Image().LoadFromFile(folder / "loaded.BIN");
    }
    TBytes SavedFile() {
        fuel.SaveAll();
        timing.SaveAll();
        Image().SaveToFile(folder / "saved.BIN");
        return GetFile(folder / "saved.BIN");
    }

    TMapSet &SetOf(std::size_t map) { return map < 3 ? static_cast<TMapSet &>(fuel) : timing; }
    TMap &Map(std::size_t map) { return SetOf(map).Map(kinds[map % 3]); }
    static bool TwoAxes(std::size_t map) { return map % 3 == 0; }

    void Place(const std::array<int, 6> &at) {
        fuel.SetOffsets(at[0], at[1], at[2]);
        timing.SetOffsets(at[3], at[4], at[5]);
    }

    /// Types `text` into the map's grid and takes it over.
    void Type(std::size_t map, int column, int row, const std::string &text) {
        TFakeMapGrid grid;
        std::string label;
        Map(map).SizeGrid(grid);
        Map(map).FillGrid(grid, label, Map(map).GetCellFormat(), 12, 12);
        grid.Edit(column, row, text);
        Map(map).ReadGrid(grid);
        EXPECT_NE(grid.FontColor(column, row), clBlue) << "not taken: " << text;
    }

    std::mt19937 random;
    TTemporaryFolder folder;
    TFuelMapSet fuel;
    TTimingMapSet timing;
};

TEST_P(TBytePropertiesTest, AnUntouchedFileIsSavedByteForByte) {
    for (int round = 0; round < 20; ++round) {
        const TBytes loaded = RandomBytes(Chance(4) ? Number(0, 40) : Number(2048, 70000));
        LoadFile(loaded);
        const auto place = [&] { return Chance(5) ? Number(-3, 0x100003) : Number(0, 66000); };
        fuel.SetOffsets(place(), place(), place());
        timing.SetPointers(place(), Number(0, 255), place(), Number(0, 255), place(),
                           Number(0, 255));
        fuel.revLimiter.SetOffset(place());
        const bool converted = Chance(2);
        for (std::size_t map = 0; map < 6; ++map) {
            SetOf(map).SetShowConverted(converted);
            TFakeMapGrid grid;
            std::string label;
            Map(map).SizeGrid(grid);
            Map(map).FillGrid(grid, label, Map(map).GetCellFormat(), 12, 12);
            Map(map).ReadGrid(grid);
        }
        ASSERT_EQ(Differences(loaded, SavedFile()), "");
    }
}

/// Six maps and a rev limiter side by side in one file, and edits all over them.
class TEditedFileTest : public TBytePropertiesTest {
protected:
    TEditedFileTest() {
        loaded = RandomBytes(Number(12000, 40000));
        int at = Number(1, 40);
        for (std::size_t map = 0; map < 6; ++map) {
            PlantMap(loaded, at, TwoAxes(map));
            places[map] = at;
            layouts[map] = LayoutOf(loaded, at, TwoAxes(map));
            at = layouts[map].Cell(layouts[map].rpmCount, 0) + Number(0, 40);
        }
        revPlace = at;
        pointers = at + 1;
        mask = Number(0, 1) == 1 ? 0xFF : 0x7F;
        for (std::size_t map = 0; map < 6; ++map) {
            const int high = places[map] / 256 | (mask == 0xFF ? 0 : 0x80);
            ::Put(loaded, Pointer(map), high);
            ::Put(loaded, Pointer(map) + 1, places[map]);
        }
        expected = loaded;
    }

    int Pointer(std::size_t map) const { return pointers + 2 * static_cast<int>(map); }
    void PlaceAll(bool throughPointers) {
        if (throughPointers) {
            fuel.SetPointers(Pointer(0), mask, Pointer(1), mask, Pointer(2), mask);
            timing.SetPointers(Pointer(3), mask, Pointer(4), mask, Pointer(5), mask);
        } else {
            Place(places);
        }
        fuel.revLimiter.SetOffset(revPlace);
    }

    void EditCell() {
        const auto map = static_cast<std::size_t>(Number(0, 5));
        const TLayout &at = layouts[map];
        const int column = Number(1, at.rpmCount);
        const int row = Number(1, at.loadCount);
        const bool converted = Chance(2);
        SetOf(map).SetShowConverted(converted);
        TEntry entry{map, column, row, Number(-60, 320) * 1.0, 1.0, 0, converted};
        if (converted && map < 3)
            entry = {map, column, row, Number(-20, 230) / 100.0, 1 / 128.0, 0, true};
        else if (converted)
            entry = {map, column, row, Number(-120, 1700) / 10.0, divider, 0, true};
        const double counts =
            entry.entered / entry.unit + (converted && map >= 3 ? subtractor : 0.0);
        entry.raw = static_cast<int>(std::nearbyint(counts));
        Type(map, column, row, FormatReal("0.00", entry.entered));
        ::Put(expected, at.Cell(column - 1, row - 1), entry.raw);
        Remember(entry);
    }

    void EditAxis() {
        const auto map = static_cast<std::size_t>(Number(0, 5));
        const bool load = TwoAxes(map) && Chance(2);
        const TLayout &at = layouts[map];
        const int axis = load ? at.loadAxis : at.rpmAxis;
        const int point = Number(0, (load ? at.loadCount : at.rpmCount) - 1);
        const double unit = load ? 0.4 : 40.0;
        const int entered =
            static_cast<int>(NewPoint(axis, point, load ? loadBase : rpmBase) * unit) +
            Number(0, load ? 0 : 19);
        TEntry entry{map, load ? 0 : point + 1, load ? point + 1 : 0, entered * 1.0, unit, 0, true};
        entry.raw = static_cast<int>(std::nearbyint(entered / unit));
        Type(map, entry.column, entry.row, std::to_string(entered) + (load ? "%" : ""));
        MoveTo(axis, point, entry.raw, load ? loadBase : rpmBase);
        Remember(entry);
    }

    void EditRevLimiter() {
        const int rpm = Number(0, 10200);
        fuel.revLimiter.SetValue(rpm);
        revEntered = rpm;
        ::Put(expected, revPlace, static_cast<int>(std::nearbyint(rpm / 40.0)));
    }

    /// A count between the neighbours, so that both steps still fit a byte.
    int NewPoint(int axis, int point, int base) {
        std::vector<int> points = PointsOf(expected, axis, base);
        points.push_back(base);
        const auto k = static_cast<std::size_t>(point);
        const int before = k > 0 ? points[k - 1] : points[k + 1] - 255;
        const int low = std::max(before, points[k + 1] - 255);
        const int high = std::min(points[k + 1], before + 255);
        return Number(std::min(low + 1, high), std::max(low, high - 1));
    }

    /// The step in front of the point and the one behind it, nothing else.
    void MoveTo(int axis, int point, int raw, int base) {
        const int counts = raw - PointsOf(expected, axis, base)[static_cast<std::size_t>(point)];
        const int step = axis + 2 + point;
        const auto add = [&](int place, int change) {
            ::Put(expected, place, expected[static_cast<std::size_t>(place)] + change);
        };
        add(step, -counts);
        if (point > 0)
            add(step - 1, counts);
    }

    /// The last entry of a cell counts.
    void Remember(const TEntry &entry) {
        std::erase_if(entries, [&](const TEntry &old) {
            return old.map == entry.map && old.column == entry.column && old.row == entry.row;
        });
        entries.push_back(entry);
    }

    void ExpectShown(const TEntry &entry) {
        SetOf(entry.map).SetShowConverted(entry.converted);
        const TMap &map = Map(entry.map);
        const bool header = entry.row == 0 || entry.column == 0;
        const TVal &value =
            entry.row == 0      ? *map.axes->rpmAxis->values->GetItem(entry.column - 1, 0)
            : entry.column == 0 ? *map.axes->throttleAxis->values->GetItem(entry.row - 1, 0)
                                : *map.data->values->GetItem(entry.column - 1, entry.row - 1);
        EXPECT_EQ(value.raw, header ? entry.raw : LowByte(entry.raw));
        if (header || entry.raw == LowByte(entry.raw)) {
            EXPECT_LE(std::fabs(value.GetValue() - entry.entered), entry.unit / 2 + 1e-9);
        }
    }

    TBytes loaded;
    TBytes expected;
    std::array<int, 6> places{};
    std::array<TLayout, 6> layouts{};
    std::vector<TEntry> entries;
    int revPlace;
    std::optional<int> revEntered;
    int pointers;
    int mask;
};

TEST_P(TEditedFileTest, DiffersInTheEditedBytesAloneAndShowsWhatWasEntered) {
    const bool throughPointers = GetParam() % 2 == 0;
    LoadFile(loaded);
    PlaceAll(throughPointers);
    for (int round = 0; round < 8; ++round) {
        for (int edit = Number(0, 12); edit > 0; --edit)
            Chance(3) ? EditAxis() : EditCell();
        if (Chance(3))
            EditRevLimiter();
        const TBytes saved = SavedFile();
        ASSERT_EQ(Differences(expected, saved), "");

        LoadFile(saved);
        PlaceAll(throughPointers);
        for (const TEntry &entry : entries)
            ExpectShown(entry);
        if (revEntered) {
            EXPECT_LE(std::fabs(fuel.revLimiter.GetValue() - *revEntered), 20.0);
        }
    }
    EXPECT_TRUE(Messages().empty());
}

TEST_P(TEditedFileTest, OnePointMovesItsTwoStepsAtMostHoweverFarItGoes) {
    for (int round = 0; round < 30; ++round) {
        expected = loaded;
        LoadFile(loaded);
        PlaceAll(false);
        const auto map = static_cast<std::size_t>(Number(0, 5));
        const bool load = TwoAxes(map) && Chance(2);
        const TLayout &at = layouts[map];
        const int point = Number(0, (load ? at.loadCount : at.rpmCount) - 1);
        const int raw = Number(-1000, 1000);
        Type(map, load ? 0 : point + 1, load ? point + 1 : 0,
             FormatReal("0.0", raw * (load ? 0.4 : 40.0)));
        MoveTo(load ? at.loadAxis : at.rpmAxis, point, raw, load ? loadBase : rpmBase);
        ASSERT_EQ(Differences(expected, SavedFile()), "");
    }
}

/// Maps that overlap, or lie at the end of the file or of the buffer: what each of them read is
/// written in the order of saving, with its edits, as far as there are bytes.
class TCrowdedFileTest : public TBytePropertiesTest {
protected:
    /// The buffer is what the file leaves of an older, larger image.
    void LoadOver(const TBytes &file) {
        LoadFile(RandomBytes(0x20000));
        LoadFile(file);
        buffer = Get(0, TROMImage::capacity);
        for (std::size_t map = 0; map < 6; ++map)
            literal[map] = TLiteralMap(TwoAxes(map));
    }

    void PlaceAndEdit(const std::array<int, 6> &at) {
        Place(at);
        for (std::size_t map = 0; map < 6; ++map) {
            literal[map].Load(buffer, at[map]);
            EditSome(map);
        }
    }

    void EditSome(std::size_t map) {
        TLiteralMap &plain = literal[map];
        if (!Map(map).Fits() || plain.cells.empty())
            return;
        for (int edit = Number(0, 4); edit > 0; --edit) {
            const int rpmPoint = Number(0, plain.rows - 1);
            const int raw = Number(0, 255);
            if (Chance(3)) {
                Type(map, rpmPoint + 1, 0, std::to_string(raw * 40));
                plain.rpm.points[static_cast<std::size_t>(rpmPoint)] = raw;
            } else {
                const int loadPoint = Number(0, plain.columns - 1);
                Type(map, rpmPoint + 1, loadPoint + 1, std::to_string(raw));
                *plain.Cell(rpmPoint, loadPoint) = raw;
            }
        }
    }

    /// The first bytes of the buffer, after all maps and the rev limiter between the sets.
    TBytes ExpectedFile(std::size_t size) {
        for (std::size_t map = 0; map < 6; ++map) {
            literal[map].Write(buffer);
            if (map == 2 && fuel.HasRevLimiter())
                PutByte(buffer, fuel.revLimiter.offset, fuel.revLimiter.raw);
        }
        return {buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(size)};
    }

    TBytes buffer;
    std::array<TLiteralMap, 6> literal{TLiteralMap(true), TLiteralMap(false), TLiteralMap(false),
                                       TLiteralMap(true), TLiteralMap(false), TLiteralMap(false)};
};

TEST_P(TCrowdedFileTest, OverlappingMapsAreWrittenOverEachOtherAndOverNothingElse) {
    for (int round = 0; round < 15; ++round) {
        TBytes file = RandomBytes(4096);
        std::array<int, 6> at{};
        for (std::size_t map = 0; map < 6; ++map) {
            at[map] = Number(1, 500);
            PlantMap(file, at[map], TwoAxes(map));
        }
        LoadOver(file);
        fuel.revLimiter.SetOffset(Number(1, 900));
        PlaceAndEdit(at);
        if (Chance(2))
            fuel.revLimiter.SetValue(Number(0, 10200));
        ASSERT_EQ(Differences(ExpectedFile(file.size()), SavedFile()), "");
    }
}

TEST_P(TCrowdedFileTest, AMapAtTheFilesEndIsSavedAsFarAsTheFileGoes) {
    for (int round = 0; round < 15; ++round) {
        TBytes file = RandomBytes(Number(2048, 4096));
        const int size = static_cast<int>(file.size());
        std::array<int, 6> at{};
        for (std::size_t map = 0; map < 6; ++map) {
            at[map] = size - Number(0, TwoAxes(map) ? 400 : 70);
            PlantMap(file, at[map], TwoAxes(map));
        }
        LoadOver(file);
        fuel.revLimiter.SetOffset(size - Number(-1, 1));
        PlaceAndEdit(at);
        const TBytes saved = SavedFile();
        ASSERT_EQ(Differences(ExpectedFile(file.size()), saved), "");
        ASSERT_EQ(saved.size(), file.size());
    }
}

TEST_P(TCrowdedFileTest, AMapEndingWithTheLastByteOfTheFileKeepsItsNeighbours) {
    for (std::size_t map = 0; map < 6; ++map) {
        TBytes file = RandomBytes(4096);
        // One RPM axis of 5 points, where there are two a load axis of 4.
        const int length = TwoAxes(map) ? 7 + 6 + 20 : 7 + 5;
        const int at = 4096 - length;
        ::Put(file, at + 1, 5);
        if (TwoAxes(map))
            ::Put(file, at + 8, 4);
        LoadOver(file);
        Map(map).SetOffset(at);
        TBytes expected = file;
        Type(map, 5, TwoAxes(map) ? 4 : 1, "77");
        expected.back() = 77;
        Map(map).Save();
        Image().SaveToFile(folder / "saved.BIN");
        ASSERT_EQ(Differences(expected, GetFile(folder / "saved.BIN")), "");
        ASSERT_EQ(Image().Peek(4096), buffer[4096]);
    }
}

TEST_P(TCrowdedFileTest, AMapAtTheEndOfTheLargestFileIsSavedAsFarAsItGoes) {
    TBytes file = RandomBytes(TROMImage::capacity);
    for (int round = 0; round < 4; ++round) {
        std::array<int, 6> at{};
        for (std::size_t map = 0; map < 6; ++map) {
            at[map] = TROMImage::capacity - Number(1, TwoAxes(map) ? 700 : 70);
            PlantMap(file, at[map], TwoAxes(map));
        }
        LoadOver(file);
        fuel.revLimiter.SetOffset(TROMImage::highestStart);
        PlaceAndEdit(at);
        ASSERT_TRUE(ExpectedFile(file.size()) == SavedFile());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TBytePropertiesTest, testing::Range(1U, 7U));
INSTANTIATE_TEST_SUITE_P(Seeds, TEditedFileTest, testing::Range(1U, 31U));
INSTANTIATE_TEST_SUITE_P(Seeds, TCrowdedFileTest, testing::Range(1U, 7U));

} // namespace
