// What the contents view holds of its image: the bytes as they are shown, the search parameters,
// the counters and the recorded cell; the colours are lent to it. The page of FileDisplay.h asks
// the user, calls one operation and shows the text that it gives; it is the page that knows the
// grid.
#pragma once

#include "filedisplay/MapStarts.h"
#include "filedisplay/Searches.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class TContentsSession {
public:
    /// `colors` lends those of the cells that are shown, at least one for each byte, for one
    /// operation at a time.
    explicit TContentsSession(std::function<TCellColors()> colors) : colors_(std::move(colors)) {}

    TSearchParameters parameters; ///< set back to their defaults by each Show

    /// Begins anew with an image, of which no cell is marked. Counters and recorded cell stay.
    void Show(std::span<const std::uint8_t> bytes);
    /// Whether there is no cell.
    bool IsEmpty() const { return values_.empty(); }
    std::size_t Size() const { return values_.size(); } ///< bytes
    /// The byte at an offset, -1 behind the last one.
    TCellValue ValueAt(std::size_t offset) const {
        return offset < values_.size() ? values_[offset] : TCellValue{-1};
    }
    /// Of the data cells, until others are shown.
    TCellColors Colors() const { return colors_(); }
    /// Set back by ClearAllMarkers alone.
    const TMapCounters &Counters() const { return counters_; }

    /// Records a cell by its image offset; those behind the last byte count too.
    void Record(std::size_t offset) { recorded_ = offset; }
    /// As recorded last; none after a search of the whole image.
    std::optional<std::size_t> Recorded() const { return recorded_; }

    // Each gives the text for the bottom line.

    // Searches of the whole image; see Searches.h and MapSearch.h.
    std::string MarkPossibleFuelValues();
    std::string MarkPossibleTimingValues();
    std::string MarkValue(std::int32_t value);
    /// With the mask of the parameters.
    std::string MarkPointers(TPointerAddress address);
    std::string HighlightAllMaps(TMapShape shape, TMapContents contents);

    /// Marks the map that starts at the recorded cell and records the cell behind it, or without
    /// such a map the next cell. Says so when no cell is recorded.
    std::string HighlightFromRecorded(TMapShape shape, TMapContents contents);

    /// Marks the map that starts at `offset`, whatever its bytes are and whatever stood before its
    /// axes; the recorded cell stays. Says so when no map starts there.
    std::string HighlightMap(std::size_t offset, TMapShape shape, TMapContents contents);

    std::string ClearAllMarkers();

private:
    TSearchGrid Cells() const { return {values_, Colors()}; }
    /// `found` and what is marked in all.
    std::string Summary(const std::string &found) const;
    /// Likewise, of a search of the whole image.
    std::string Scanned(const std::string &found);

    std::function<TCellColors()> colors_;
    std::vector<TCellValue> values_;
    TMapCounters counters_;
    std::optional<std::size_t> recorded_;
};
