// What the main window owns of the model, in one object, so that pages get it by reference and need
// no class of the window. The ROM image is not part of it: one is in force (ROMImage.h).
#pragma once

#include "model/MapSets.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>

/// Paste slots of one kind of map, each empty or holding a private copy.
class TPasteSlots {
public:
    /// The slot of a map kind; the reference lives as long as the slots.
    std::unique_ptr<TMap> &operator[](TMapKind kind) {
        return slots_[static_cast<std::size_t>(kind)];
    }

private:
    std::array<std::unique_ptr<TMap>, 3> slots_;
};

struct TWorkspace {
    TFuelMapSet fuelMapSet;
    TTimingMapSet timingMapSet;
    TPasteSlots fuelPasteSlots;
    TPasteSlots timingPasteSlots;
    /// The ROM file loaded last; empty before the first load.
    std::filesystem::path romFileName;
};

/// Reads all that is placed again from the image, whose bytes something else than the maps has
/// changed.
inline void ReadMapsAnew(TWorkspace &workspace) {
    workspace.fuelMapSet.ReadAnew();
    workspace.timingMapSet.ReadAnew();
}
