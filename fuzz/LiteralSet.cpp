#include "LiteralSet.h"

#include "model/Numbers.h"
#include "model/Values.h"

namespace {
void ShowText(TFakeMapGrid &grid, std::size_t column, std::size_t row, const std::string &text) {
    const auto c = static_cast<int>(column);
    const auto r = static_cast<int>(row);
    if (c < grid.ColCount() && r < grid.RowCount())
        grid.SetCell(c, r, text);
}
} // namespace

bool TLiteralSet::Modified() const {
    return revModified || entries[0].modified || entries[1].modified || entries[2].modified;
}

std::int32_t TLiteralSet::Location(const TLiteralEntry &entry) const {
    if (entry.pointerPlace == -1)
        return entry.directPlace;
    const std::int64_t place = entry.pointerPlace;
    return (ByteAt(world.image, place) & entry.mask) * 256 + ByteAt(world.image, place + 1);
}

void TLiteralSet::PlaceDirectly(TLiteralEntry &entry, std::int32_t place) {
    entry.directPlace = place;
    entry.pointerPlace = -1;
    if (place == 0)
        return;
    entry.map.Load(world.image, place);
    entry.modified = false;
}

void TLiteralSet::PlaceThroughPointer(TLiteralEntry &entry, std::int32_t place, std::int32_t mask) {
    entry.pointerPlace = place;
    entry.mask = mask;
    if (place != -1)
        entry.directPlace = ByteAt(world.image, place);
    entry.map.Load(world.image, Location(entry));
    entry.modified = false;
}

void TLiteralSet::SetSingleLoadPoint(std::size_t which) {
    if (which == 0)
        return;
    entries[which].map.load.count = 1;
    entries[which].map.load.points = {which == 1 ? 0 : 100};
}

void TLiteralSet::PlaceRevLimiter(std::int32_t place) {
    revPlace = place;
    if (place != -1)
        revRaw = ByteAt(world.image, place);
}

void TLiteralSet::SetRevLimiter(std::int32_t rpm) {
    revRaw = TryRound(rpm / 40.0).value_or(0);
    revModified = true;
}

void TLiteralSet::Interpret(bool converted) {
    showConverted = converted;
    for (TLiteralEntry &entry : entries) {
        entry.map.converted = converted;
        entry.formatConverted = converted;
    }
}

void TLiteralSet::Save(TLiteralEntry &entry) {
    entry.map.Write(world.image);
    if (entry.map.CannotBeWritten(world.image))
        world.messages.emplace_back("Error saving data map data");
    entry.modified = false;
}

void TLiteralSet::SaveAll() {
    for (TLiteralEntry &entry : entries)
        Save(entry);
    if (!fuel)
        return;
    revModified = false;
    if (revPlace >= 0 && revPlace < static_cast<std::int32_t>(world.image.size()))
        PutByte(world.image, revPlace, revRaw);
    else
        world.messages.emplace_back("Error saving rev limiter data");
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
            world.messages.emplace_back("Timing Divider Not yet Set");
        told = told || !zero;
        entry.modified = true;
    }
}

void TLiteralSet::Paste(const TLiteralEntry &copied, TLiteralEntry &entry) {
    entry.map.Paste(copied.map);
    entry.formatConverted = copied.formatConverted;
    entry.modified = !entry.map.cells.empty();
}

void TLiteralSet::Shape(const TLiteralEntry &entry, TFakeMapGrid &grid) {
    const bool filled = entry.map.Fits() && entry.map.rpm.count > 0;
    grid.SetShape(filled ? entry.map.rpm.count + 1 : 1, filled ? entry.map.load.count + 1 : 1);
    grid.SetVisible(entry.map.Fits());
}

void TLiteralSet::Fill(const TLiteralEntry &entry, TFakeMapGrid &grid) const {
    const TLiteralMap &map = entry.map;
    grid.SetVisible(map.Fits());
    if (!map.Fits())
        return;
    for (int column = 0; column < grid.ColCount(); ++column)
        for (int row = 0; row < grid.RowCount(); ++row)
            grid.SetFontColor(column, row, clWindowText);
    const std::size_t loads = map.load.points.size();
    for (std::size_t r = 0; r < map.rpm.points.size(); ++r)
        ShowText(grid, r + 1, 0, FormatReal("####0", map.rpm.points[r] * 40.0));
    for (std::size_t t = 0; t < loads; ++t) {
        ShowText(grid, 0, t + 1, FormatReal("##0", LoadShown(entry, t)) + "%");
        for (std::size_t r = 0; r < map.rpm.points.size(); ++r)
            ShowText(grid, r + 1, t + 1,
                     FormatReal(Picture(entry), CellShown(entry, r * loads + t)));
    }
}

bool TLiteralSet::TakeEdits(TLiteralEntry &entry, TFakeMapGrid &grid) {
    const int columns = grid.ColCount();
    const int rows = grid.RowCount();
    for (int column = 1; column < columns; ++column)
        for (int row = 1; row < rows; ++row)
            TakeCell(entry, grid, column, row);
    bool stopped = false;
    for (int column = 1; column < columns && !stopped; ++column)
        stopped = TakeHeader(entry, grid, column, 0);
    for (int row = 1; row < rows && !stopped && entry.map.twoAxes; ++row)
        stopped = TakeHeader(entry, grid, 0, row);
    return stopped;
}

const char *TLiteralSet::Picture(const TLiteralEntry &entry) const {
    const char *converted = fuel ? "###0.00" : "###0.0";
    return entry.formatConverted ? converted : "##0";
}

double TLiteralSet::CellShown(const TLiteralEntry &entry, std::size_t cell) const {
    const std::int32_t raw = entry.map.cells[cell];
    if (!entry.map.converted)
        return raw;
    const auto [divider, subtractor] = TimingConstants();
    return fuel ? raw / 128.0 : (raw - subtractor) * divider;
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

void TLiteralSet::TakeCell(TLiteralEntry &entry, TFakeMapGrid &grid, int column, int row) {
    std::int32_t *cell = entry.map.Cell(column - 1, row - 1);
    const std::optional<double> number = TryParseReal(grid.Cell(column, row));
    if (grid.FontColor(column, row) != clBlue || !cell || !number)
        return;
    const std::optional<std::int32_t> raw = CellRaw(*number, entry.map.converted);
    // A timing entry that cannot be converted counts as taken; any other stays in the grid.
    const bool timing = !fuel && entry.map.converted;
    if (!raw && timing)
        world.messages.emplace_back("Timing Divider Not yet Set");
    if (!raw && !timing)
        return;
    *cell = raw.value_or(*cell);
    entry.modified = true;
    grid.SetFontColor(column, row, clGreen);
}

/// True for a text that is no number or does not fit.
bool TLiteralSet::TakeHeader(TLiteralEntry &entry, TFakeMapGrid &grid, int column, int row) {
    const bool load = column == 0;
    std::vector<std::int32_t> &points = load ? entry.map.load.points : entry.map.rpm.points;
    const auto point = static_cast<std::size_t>(load ? row : column) - 1;
    if (grid.FontColor(column, row) != clBlue || point >= points.size())
        return false;
    const std::string text = grid.Cell(column, row);
    const std::optional<double> number = TryParseReal(load ? text.substr(0, text.find('%')) : text);
    const std::optional<std::int32_t> raw =
        number ? TryRound(*number / (load ? 0.4 : 40.0)) : std::nullopt;
    if (!raw)
        return true;
    points[point] = *raw;
    grid.SetFontColor(column, row, clBlack);
    return false;
}
