#include "filedisplay/ContentsSession.h"

#include "filedisplay/ContentsTexts.h"

#include <algorithm>
#include <utility>

void TContentsSession::Show(std::span<const std::uint8_t> bytes) {
    parameters = {};
    values_.assign(bytes.begin(), bytes.end());
    colors_.assign(values_.size(), unmarkedColor);
}

TContentsSession::TCells
TContentsSession::Color(const std::function<void(const TSearchGrid &)> &change) {
    const std::vector<TColor> before = colors_;
    change({values_, colors_});
    TCells colored;
    for (std::size_t i = 0; i < colors_.size(); ++i)
        if (colors_[i] != before[i])
            colored.push_back({static_cast<std::uint32_t>(i), colors_[i]});
    return colored;
}

std::string TContentsSession::Summary(const std::string &found) const {
    const auto marked =
        colors_.size() -
        static_cast<std::size_t>(std::count(colors_.begin(), colors_.end(), unmarkedColor));
    return found + ". " + MarkedInAll(marked, counters_);
}

TContentsOutcome
TContentsSession::ScanAll(std::string (*textOf)(const TFound &),
                          const std::function<TFound(const TSearchGrid &)> &search) {
    recorded_.reset();
    TFound found;
    TCells colored = Color([&](const TSearchGrid &grid) { found = search(grid); });
    return {std::move(colored), Summary(textOf(found))};
}

TContentsOutcome TContentsSession::MarkPossibleFuelValues() {
    return ScanAll(FoundCells, [this](const TSearchGrid &grid) {
        return ::MarkPossibleFuelValues(grid, parameters);
    });
}

TContentsOutcome TContentsSession::MarkPossibleTimingValues() {
    return ScanAll(FoundCells, [this](const TSearchGrid &grid) {
        return ::MarkPossibleTimingValues(grid, parameters);
    });
}

TContentsOutcome TContentsSession::MarkValue(std::int32_t value) {
    return ScanAll(FoundCells,
                   [value](const TSearchGrid &grid) { return ::MarkValue(grid, value); });
}

TContentsOutcome TContentsSession::MarkPointers(TPointerAddress address) {
    return ScanAll(FoundPointers, [&](const TSearchGrid &grid) {
        return ::MarkPointers(grid, address, parameters.pointerMask);
    });
}

TContentsOutcome TContentsSession::HighlightAllMaps(TMapShape shape, TMapContents contents) {
    return ScanAll(FoundMaps, [&](const TSearchGrid &grid) {
        return ::HighlightAllMaps(grid, shape, contents, parameters, counters_);
    });
}

TContentsOutcome TContentsSession::HighlightFromRecorded(TMapShape shape, TMapContents contents) {
    if (!recorded_)
        return {{}, NoCellIsSelected()};
    const std::size_t start = *recorded_;
    TMapStep step{};
    TCells colored = Color([&](const TSearchGrid &grid) {
        step = HighlightMapAt(grid, start, shape, contents, parameters, counters_);
    });
    recorded_ = step.next;
    return {std::move(colored),
            step.found ? Summary(FoundMaps({1, start})) : NoMapAt(start, step.next)};
}

TContentsOutcome TContentsSession::ClearAllMarkers() {
    TCells colored = Color([this](const TSearchGrid &grid) { ::ClearAllMarkers(grid, counters_); });
    return {std::move(colored), AllMarkersAreCleared()};
}
