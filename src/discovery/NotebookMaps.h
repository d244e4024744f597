// The six maps of the notebook, in the order of the keys 1 to 6, and what may be given to them.
#pragma once

#include "discovery/FoundMaps.h"
#include "model/Workspace.h"

#include <array>
#include <string>

struct TNotebookMap {
    TMapContents contents; ///< Fuel or Timing
    TMapKind kind;

    /// Whether a map of that form can be it: only part throttle maps have loads.
    bool Takes(const TMapPlace &place) const { return place.Is2D() == (kind == TMapKind::PT); }
};

inline constexpr std::array<TNotebookMap, 6> notebookMaps{{{TMapContents::Fuel, TMapKind::PT},
                                                           {TMapContents::Fuel, TMapKind::Idle},
                                                           {TMapContents::Fuel, TMapKind::WOT},
                                                           {TMapContents::Timing, TMapKind::PT},
                                                           {TMapContents::Timing, TMapKind::Idle},
                                                           {TMapContents::Timing, TMapKind::WOT}}};

/// Which of the found maps is proposed for it, if any is.
std::optional<std::size_t> Proposed(const TFoundMaps &found, const TNotebookMap &map);

/// As the menu of "File Contents" calls those that are at `place` now, one behind the other.
std::string MapsAt(const TWorkspace &workspace, const TMapPlace &place);
