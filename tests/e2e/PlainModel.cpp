#include "PlainModel.h"

#include <algorithm>

namespace {
constexpr int rpmBase = 256;
constexpr int loadBase = 250;
} // namespace

void TPlainMap::Read(const TBytes &image, bool converted) {
    at = LayoutOf(image, place_, twoAxes_);
    values.rpm = PointsOf(image, at.rpmAxis, rpmBase);
    values.load = twoAxes_ ? PointsOf(image, at.loadAxis, loadBase) : std::vector<int>();
    const auto body = image.begin() + at.body;
    values.cells.assign(body, body + at.rpmCount * at.loadCount);
    values.converted = converted;
    waiting_.clear();
    changed = false;
}

void TPlainMap::Write(TBytes &image) const {
    PutPoints(image, at.rpmAxis, values.rpm, rpmBase);
    if (twoAxes_)
        PutPoints(image, at.loadAxis, values.load, loadBase);
    for (std::size_t i = 0; i < values.cells.size(); ++i)
        Put(image, at.body + static_cast<int>(i), values.cells[i]);
}

void TPlainMap::Edit(int column, int row, int raw) {
    waiting_[{column, row}] = raw;
    changed = true;
}

bool TPlainMap::Commit(TBytes &image) {
    const bool wrote = changed;
    for (const auto &[cell, raw] : waiting_) {
        const auto [column, row] = cell;
        if (row == 0)
            values.rpm[static_cast<std::size_t>(column) - 1] = raw;
        else if (column == 0)
            values.load[static_cast<std::size_t>(row) - 1] = raw;
        else
            values.cells[static_cast<std::size_t>((column - 1) * at.loadCount + row - 1)] = raw;
    }
    waiting_.clear();
    if (wrote)
        Write(image);
    changed = false;
    return wrote;
}

void TPlainMap::Paste(const TValues &copied) {
    values = copied;
    waiting_.clear();
    changed = true;
}

void TPlainPage::Show(const TBytes &image) {
    for (TPlainMap &map : maps)
        map.Read(image, converted);
}

void TPlainPage::Commit(std::size_t map, TBytes &image) {
    dataChanged = maps[map].Commit(image) || dataChanged;
}

void TPlainPage::Write(TBytes &image) const {
    for (const TPlainMap &map : maps)
        map.Write(image);
}

bool TPlainPage::AnyChanged() const {
    return std::any_of(maps.begin(), maps.end(), [](const TPlainMap &map) { return map.changed; });
}
