// What a map page does with its map set, in plain terms: three grids of texts and marks, which of
// them hold uncommitted edits, the rev limiter's box, copies and pastes. No window; PlayedSession.h
// plays the same on the real one.
#pragma once

#include "LiteralSet.h"

#include <array>
#include <optional>
#include <string>

/// The main window's copies of one kind of map.
using TLiteralSlots = std::array<std::optional<TLiteralEntry>, 3>;

struct TLiteralAdjustment {
    int sign;
    bool percent;
    int amount;
    int left, top, right, bottom; ///< grid coordinates, all included
};

class TLiteralPage {
public:
    /// @param shown      the set that the page shows
    /// @param workspace  the main window's set of that kind: what is copied, and the rev limiter
    /// @param withRev    whether the page has the rev limiter's box
    /// All are lent.
    TLiteralPage(TLiteralSet &shown, TLiteralSet &workspace, TLiteralSlots &sharedSlots,
                 bool withRev)
        : set(shown), workspaceSet(workspace), pasteSlots(sharedSlots), hasRevBox(withRev) {}

    TLiteralSet &set;
    TLiteralSet &workspaceSet;
    TLiteralSlots &pasteSlots;
    bool hasRevBox;
    std::array<TFakeMapGrid, 3> grids;
    std::array<bool, 3> changed{};
    bool dataChanged = false;
    int revShown = 0;
    bool revChanged = false;

    /// Entering the page reads the three maps again.
    void Show();
    /// Whether leaving the page asks "Commit Changes?".
    bool Asks() const;
    /// Leaving it; `commit` is the answer where it asks.
    void Leave(bool commit);
    /// The button of a map; part throttle takes the rev limiter along.
    void Commit(std::size_t which);
    void Reset(std::size_t which);
    void Interpret();
    /// A text typed into a cell and accepted.
    void Edit(std::size_t which, int column, int row, const std::string &text);
    void Adjust(std::size_t which, const TLiteralAdjustment &how);
    void Copy(std::size_t which);
    void Paste(std::size_t which);
    /// A new offset in a map's box.
    void Move(std::size_t which, std::int32_t place);
    void TypeRevLimiter(int rpm);

    /// The number that a cell's text is read as; only part throttle has load headers with "%".
    std::optional<double> CellNumber(std::size_t which, int column, int row) const;

private:
    bool RevPlaced() const { return workspaceSet.revPlace > 0; }
    void ShowRevLimiter();
    void TakeRevLimiter();
    void LoadMap(std::size_t which);
    void CommitMap(std::size_t which);
};
