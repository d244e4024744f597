#include "filedisplay/ContentsSession.h"

#include "filedisplay/ContentsTexts.h"

void TContentsSession::Show(std::span<const std::uint8_t> bytes) {
    parameters = {};
    values_.assign(bytes.begin(), bytes.end());
}

std::string TContentsSession::Summary(const std::string &found) const {
    const TCellColors colors = Colors();
    std::size_t marked = 0;
    for (std::size_t i = 0; i < colors.size(); ++i)
        if (colors[i] != unmarkedColor)
            ++marked;
    return found + ". " + MarkedInAll(marked, counters_);
}

std::string TContentsSession::Scanned(const std::string &found) {
    recorded_.reset();
    return Summary(found);
}

std::string TContentsSession::MarkPossibleFuelValues() {
    return Scanned(FoundCells(::MarkPossibleValues(Cells(), parameters.Fuel(), possibleFuelColor)));
}

std::string TContentsSession::MarkPossibleTimingValues() {
    return Scanned(
        FoundCells(::MarkPossibleValues(Cells(), parameters.Timing(), possibleTimingColor)));
}

std::string TContentsSession::MarkValue(std::int32_t value) {
    return Scanned(FoundCells(::MarkValue(Cells(), value)));
}

std::string TContentsSession::MarkPointers(TPointerAddress address) {
    return Scanned(FoundPointers(::MarkPointers(Cells(), address, parameters.pointerMask)));
}

std::string TContentsSession::HighlightAllMaps(TMapShape shape, TMapContents contents) {
    return Scanned(FoundMaps(::HighlightAllMaps(Cells(), shape, contents, parameters, counters_)));
}

std::string TContentsSession::HighlightFromRecorded(TMapShape shape, TMapContents contents) {
    if (!recorded_)
        return NoCellIsSelected();
    const std::size_t start = *recorded_;
    const TMapStep step = HighlightMapAt(Cells(), start, shape, contents, parameters, counters_);
    recorded_ = step.next;
    return step.found ? Summary(FoundMaps({1, start})) : NoMapAt(start, step.next);
}

std::string TContentsSession::HighlightMap(std::size_t offset, TMapShape shape,
                                           TMapContents contents) {
    TSearchParameters anyBytes;
    anyBytes.fuelMinimum = anyBytes.timingMinimum = 0;
    anyBytes.fuelMaximum = anyBytes.timingMaximum = 255;
    const TMapStep step = HighlightMapAt(Cells(), offset, shape, contents, anyBytes, counters_);
    return step.found ? Summary(FoundMaps({1, offset})) : NoMapAt(offset, step.next);
}

std::string TContentsSession::ClearAllMarkers() {
    ::ClearAllMarkers(Cells(), counters_);
    return AllMarkersAreCleared();
}
