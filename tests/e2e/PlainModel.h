// What the window should do to an image, kept as plain numbers: six maps, a rev limiter, the edits
// that wait in the grids, the paste slots and the bytes. It shares no code with the program.
#pragma once

#include "ExpectedImage.h"

#include <array>
#include <map>
#include <optional>
#include <utility>

/// One map and its grid.
class TPlainMap {
public:
    TPlainMap(int place, bool twoAxes) : place_(place), twoAxes_(twoAxes) {}

    /// What is copied by "Copy Map".
    struct TValues {
        std::vector<int> rpm;
        std::vector<int> load;
        std::vector<int> cells; ///< RPM by RPM
        bool converted = false;
    };
    TValues values;
    bool changed = false; ///< the page's flag
    TLayout at{};

    void Read(const TBytes &image, bool converted);
    void Write(TBytes &image) const;
    /// An edit that waits in the grid, in raw counts; row or column 0 is a header.
    void Edit(int column, int row, int raw);
    void DropEdits() { waiting_.clear(); }
    /// "Commit": true when there was something to write.
    bool Commit(TBytes &image);
    void Paste(const TValues &copied);

private:
    int place_;
    bool twoAxes_;
    std::map<std::pair<int, int>, int> waiting_;
};

/// One page: its three maps, the interpretation switch and whether it has data to save.
struct TPlainPage {
    std::vector<TPlainMap> maps;
    std::array<std::optional<TPlainMap::TValues>, 3> pasteSlots;
    bool converted = false;
    bool dataChanged = false;

    void Show(const TBytes &image);
    void Commit(std::size_t map, TBytes &image);
    void Write(TBytes &image) const;
    bool AnyChanged() const;
};
