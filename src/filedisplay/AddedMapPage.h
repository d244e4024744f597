// A map page that the contents view adds to the notebook: it owns the map set that it shows and
// shows one map of it.
#pragma once

#include "maps/Maps.h"

/// A base of its own, so that the set is there before the page that refers to it and goes after it.
template <class TSet>
class TMapSetOwner {
protected:
    TSet ownSet_;
};

/// `TPage` is TfrmFuelMaps with TFuelMapSet, or TfrmTimingMaps with TTimingMapSet.
template <class TPage, class TSet>
class TAddedMapPage : private TMapSetOwner<TSet>, public TPage {
public:
    explicit TAddedMapPage(TWorkspace &sharedWorkspace)
        : TPage(nullptr, sharedWorkspace, TMapSetOwner<TSet>::ownSet_) {}
};
