#include "LiteralSet.h"

#include "model/Numbers.h"
#include "model/Values.h"

std::int32_t TLiteralSet::Location(const TLiteralEntry &entry) const {
    if (entry.pointerPlace == -1)
        return entry.directPlace;
    const std::int64_t place = entry.pointerPlace;
    return (ByteAt(image, place) & entry.mask) * 256 + ByteAt(image, place + 1);
}

void TLiteralSet::PlaceDirectly(TLiteralEntry &entry, std::int32_t place) {
    entry.directPlace = place;
    entry.pointerPlace = -1;
    if (place == 0)
        return;
    entry.map.Load(image, place);
    entry.modified = false;
}

void TLiteralSet::PlaceThroughPointer(TLiteralEntry &entry, std::int32_t place, std::int32_t mask) {
    entry.pointerPlace = place;
    entry.mask = mask;
    if (place != -1)
        entry.directPlace = ByteAt(image, place);
    entry.map.Load(image, Location(entry));
    entry.modified = false;
}

void TLiteralSet::SetSingleLoadPoints() {
    for (const std::size_t i : {1U, 2U}) {
        entries[i].map.load.count = 1;
        entries[i].map.load.points = {i == 1 ? 0 : 100};
    }
}

void TLiteralSet::Save(TLiteralEntry &entry) {
    entry.map.Write(image);
    if (entry.map.CannotBeWritten(image))
        messages.emplace_back("Error saving data map data");
    entry.modified = false;
}

void TLiteralSet::SaveRevLimiter() {
    revModified = false;
    if (revPlace >= 0 && revPlace < 0x100000)
        PutByte(image, revPlace, revRaw);
    else
        messages.emplace_back("Error saving rev limiter data");
}

void TLiteralSet::Zero() {
    bool told = false;
    for (TLiteralEntry &entry : entries) {
        TLiteralMap &map = entry.map;
        if (map.rpm.count > 32 || (map.twoAxes && map.load.count > 20) || map.cells.empty())
            continue;
        const std::optional<std::int32_t> zero = CellRaw(0.0, map.converted);
        if (zero)
            map.cells.assign(map.cells.size(), *zero);
        else if (!told)
            messages.emplace_back("Timing Divider Not yet Set");
        told = told || !zero;
        entry.modified = true;
    }
}

bool TLiteralSet::TakeEdits(TLiteralEntry &entry) {
    const int columns = entry.grid.ColCount();
    const int rows = entry.grid.RowCount();
    for (int column = 1; column < columns; ++column)
        for (int row = 1; row < rows; ++row)
            TakeCell(entry, column, row);
    bool stopped = false;
    for (int column = 1; column < columns && !stopped; ++column)
        stopped = TakeHeader(entry, column, 0);
    for (int row = 1; row < rows && !stopped && entry.map.twoAxes; ++row)
        stopped = TakeHeader(entry, 0, row);
    return stopped;
}

double TLiteralSet::Shown(std::int32_t raw, bool converted) const {
    if (!converted)
        return raw;
    const auto [divider, subtractor] = TimingConstants();
    return fuel ? raw / 128.0 : (raw - subtractor) * divider;
}

double TLiteralSet::Shown(const TLiteralEntry &entry, std::size_t cell) const {
    return Shown(entry.map.cells[cell], entry.map.converted);
}

double TLiteralSet::LoadShown(const TLiteralEntry &entry, std::size_t point) {
    const std::int32_t raw = entry.map.load.points[point];
    return entry.map.twoAxes ? raw * 0.4 : raw;
}

/// What a cell stores for a number; nothing when it cannot.
std::optional<std::int32_t> TLiteralSet::CellRaw(double number, bool converted) const {
    if (!converted)
        return TryRound(number);
    if (fuel)
        return TryRound(number * 128.0);
    const auto [divider, subtractor] = TimingConstants();
    return divider == 0.0 ? std::nullopt : TryRound(number / divider + subtractor);
}

void TLiteralSet::TakeCell(TLiteralEntry &entry, int column, int row) {
    std::int32_t *cell = entry.map.Cell(column - 1, row - 1);
    const std::optional<double> number = TryParseReal(entry.grid.Cell(column, row));
    if (entry.grid.FontColor(column, row) != clBlue || !cell || !number)
        return;
    const std::optional<std::int32_t> raw = CellRaw(*number, entry.map.converted);
    // A timing entry that cannot be converted counts as taken; any other stays in the grid.
    const bool timing = !fuel && entry.map.converted;
    if (!raw && timing)
        messages.emplace_back("Timing Divider Not yet Set");
    if (!raw && !timing)
        return;
    *cell = raw.value_or(*cell);
    entry.modified = true;
    entry.grid.SetFontColor(column, row, clGreen);
}

/// True for a text that is no number or does not fit.
bool TLiteralSet::TakeHeader(TLiteralEntry &entry, int column, int row) {
    const bool load = column == 0;
    std::vector<std::int32_t> &points = load ? entry.map.load.points : entry.map.rpm.points;
    const auto point = static_cast<std::size_t>(load ? row : column) - 1;
    if (entry.grid.FontColor(column, row) != clBlue || point >= points.size())
        return false;
    const std::string text = entry.grid.Cell(column, row);
    const std::optional<double> number = TryParseReal(load ? text.substr(0, text.find('%')) : text);
    const std::optional<std::int32_t> raw =
        number ? TryRound(*number / (load ? 0.4 : 40.0)) : std::nullopt;
    if (!raw)
        return true;
    points[point] = *raw;
    entry.grid.SetFontColor(column, row, clBlack);
    return false;
}
