#include "LiteralPage.h"

#include "model/Numbers.h"

#include <cmath>

namespace {
constexpr std::array mapNames{"PT", "Idle", "WOT"};

std::string RealError(const std::string &text) {
    return "'" + text + "' is not a valid floating point value";
}
} // namespace

void TLiteralPage::Show() {
    if (hasRevBox)
        ShowRevLimiter();
    for (std::size_t which = 0; which < 3; ++which)
        LoadMap(which);
}

bool TLiteralPage::Asks() const {
    return changed[0] || changed[1] || changed[2] || revChanged;
}

void TLiteralPage::Leave(bool commit) {
    if (!Asks() || !commit)
        return;
    for (std::size_t which = 0; which < 3; ++which)
        CommitMap(which);
    if (revChanged) {
        TakeRevLimiter();
        dataChanged = true;
    }
}

void TLiteralPage::Commit(std::size_t which) {
    CommitMap(which);
    if (which != 0 || !hasRevBox)
        return;
    if (RevPlaced())
        TakeRevLimiter();
    revChanged = false;
}

void TLiteralPage::Reset(std::size_t which) {
    set.Fill(set.entries[which], grids[which]);
    changed[which] = false;
    if (which != 0 || !hasRevBox)
        return;
    if (RevPlaced())
        ShowRevLimiter();
    revChanged = false;
}

void TLiteralPage::Interpret() {
    set.Interpret(!set.showConverted);
    for (std::size_t which = 0; which < 3; ++which)
        set.Fill(set.entries[which], grids[which]);
}

void TLiteralPage::Edit(std::size_t which, int column, int row, const std::string &text) {
    TFakeMapGrid &grid = grids[which];
    grid.SetCell(column, row, text);
    if (CellNumber(which, column, row)) {
        grid.SetFontColor(column, row, clBlue);
        changed[which] = true;
        return;
    }
    const bool loadHeader = which == 0 && column == 0;
    set.world.messages.push_back(RealError(loadHeader ? text.substr(0, text.find('%')) : text));
}

void TLiteralPage::Adjust(std::size_t which, const TLiteralAdjustment &how) {
    TFakeMapGrid &grid = grids[which];
    changed[which] = true;
    for (int row = how.top; row <= how.bottom; ++row)
        for (int column = how.left; column <= how.right; ++column) {
            const std::optional<double> old = TryParseReal(grid.Cell(column, row));
            grid.SetFontColor(column, row, old ? clBlue : clRed);
            if (!old)
                continue;
            const long double product =
                static_cast<long double>(how.amount) * static_cast<long double>(*old) * how.sign;
            const auto change = how.percent ? static_cast<double>(std::nearbyint(product / 100.0L))
                                            : static_cast<double>(how.amount) * how.sign;
            grid.SetCell(column, row, FormatReal(set.Picture(set.entries[which]), *old + change));
        }
}

void TLiteralPage::Copy(std::size_t which) {
    pasteSlots[which] = workspaceSet.entries[which];
}

void TLiteralPage::Paste(std::size_t which) {
    const std::string name =
        (set.fuel ? "Fuel " : "Timing ") + std::string(mapNames[which]) + " Map";
    TLiteralEntry &entry = set.entries[which];
    const std::optional<TLiteralEntry> &copied = pasteSlots[which];
    std::string problem;
    if (!copied)
        problem = "No " + name + " currently in paste buffer";
    else if (copied->map.rpm.count != entry.map.rpm.count)
        problem = name + " in paste buffer has different RPM axis count";
    else if (copied->map.load.count != entry.map.load.count)
        problem = name + " in paste buffer has different Load axis count";
    if (!problem.empty()) {
        set.world.messages.push_back(problem);
        return;
    }
    TLiteralSet::Paste(*copied, entry);
    TLiteralSet::Shape(entry, grids[which]);
    set.Fill(entry, grids[which]);
    changed[which] = true;
}

void TLiteralPage::Move(std::size_t which, std::int32_t place) {
    if (place == set.Location(set.entries[which]))
        return;
    if (changed[which]) {
        set.world.messages.emplace_back("You have uncommitted changes, save first");
        return;
    }
    set.PlaceDirectly(set.entries[which], place);
    LoadMap(which);
}

void TLiteralPage::TypeRevLimiter(int rpm) {
    revShown = rpm;
    revChanged = true;
}

std::optional<double> TLiteralPage::CellNumber(std::size_t which, int column, int row) const {
    const std::string text = grids[which].Cell(column, row);
    return TryParseReal(which == 0 && column == 0 ? text.substr(0, text.find('%')) : text);
}

void TLiteralPage::ShowRevLimiter() {
    revShown = workspaceSet.revRaw * 40;
    revChanged = false;
}

void TLiteralPage::TakeRevLimiter() {
    workspaceSet.SetRevLimiter(revShown);
    revChanged = false;
}

void TLiteralPage::LoadMap(std::size_t which) {
    TLiteralEntry &entry = set.entries[which];
    set.PlaceDirectly(entry, set.Location(entry));
    set.SetSingleLoadPoint(which);
    entry.map.converted = set.showConverted;
    entry.formatConverted = set.showConverted;
    TLiteralSet::Shape(entry, grids[which]);
    set.Fill(entry, grids[which]);
    changed[which] = false;
}

void TLiteralPage::CommitMap(std::size_t which) {
    TLiteralEntry &entry = set.entries[which];
    if (changed[which]) {
        if (set.TakeEdits(entry, grids[which])) {
            set.world.messages.emplace_back("Error saving new data");
        } else {
            set.Save(entry);
            changed[which] = false;
            dataChanged = true;
        }
    }
    set.Fill(entry, grids[which]);
}
