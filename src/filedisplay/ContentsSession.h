// What the contents view holds of its image: the bytes as they are shown, the colours that searches
// gave them, the search parameters, the counters and the recorded cell. The page of FileDisplay.h
// asks the user, calls one operation and shows its outcome; it is the page that knows the grid.
#pragma once

#include "filedisplay/MapStarts.h"
#include "filedisplay/Searches.h"

#include <functional>
#include <optional>
#include <string>

/// What an operation did.
struct TContentsOutcome {
    struct TCell {
        std::uint32_t offset; ///< in the image
        TColor color;
    };
    std::vector<TCell> colored; ///< the cells that have another colour than before
    std::string text;           ///< for the bottom line
};

class TContentsSession {
public:
    TSearchParameters parameters; ///< set back to their defaults by each Show

    /// Begins anew with an image, without marks. Counters and recorded cell stay.
    void Show(std::span<const std::uint8_t> bytes);
    /// Whether there is no cell.
    bool IsEmpty() const { return values_.empty(); }
    /// Of the data cells, in reading order.
    std::span<const TColor> Colors() const { return colors_; }
    /// Set back by ClearAllMarkers alone.
    const TMapCounters &Counters() const { return counters_; }

    /// Records a cell by its image offset; those behind the last byte count too.
    void Record(std::size_t offset) { recorded_ = offset; }
    /// As recorded last; none after a search of the whole image.
    std::optional<std::size_t> Recorded() const { return recorded_; }

    // Searches of the whole image; see Searches.h and MapSearch.h.
    TContentsOutcome MarkPossibleFuelValues();
    TContentsOutcome MarkPossibleTimingValues();
    TContentsOutcome MarkValue(std::int32_t value);
    /// With the mask of the parameters.
    TContentsOutcome MarkPointers(TPointerAddress address);
    TContentsOutcome HighlightAllMaps(TMapShape shape, TMapContents contents);

    /// Marks the map that starts at the recorded cell and records the cell behind it, or without
    /// such a map the next cell. Says so when no cell is recorded.
    TContentsOutcome HighlightFromRecorded(TMapShape shape, TMapContents contents);

    TContentsOutcome ClearAllMarkers();

private:
    using TCells = std::vector<TContentsOutcome::TCell>;

    /// Gives the cells of which `change` changed the colours.
    TCells Color(const std::function<void(const TSearchGrid &)> &change);
    TContentsOutcome ScanAll(std::string (*textOf)(const TFound &),
                             const std::function<TFound(const TSearchGrid &)> &search);
    /// `found` and what is marked in all.
    std::string Summary(const std::string &found) const;

    std::vector<TCellValue> values_;
    std::vector<TColor> colors_;
    TMapCounters counters_;
    std::optional<std::size_t> recorded_;
};
