// The three maps of one kind - part throttle, idle and full throttle (WOT) - placed, saved and
// switched together; the fuel set also has the rev limiter. Who owns the sets: Workspace.h.
#pragma once

#include "model/MapTypes.h"

#include <cstdint>
#include <memory>

/// Which map of a set.
enum class TMapKind { PT, Idle, WOT };

/// What both sets share. The maps live as long as the set.
class TMapSet {
public:
    virtual ~TMapSet() = default;
    TMapSet(const TMapSet &) = delete;
    TMapSet &operator=(const TMapSet &) = delete;

    /// The interpretation switch: the last value given to SetShowConverted.
    bool showConverted = false;
    TOwned<TMap> PTMap;
    TOwned<TMap> IdleMap;
    TOwned<TMap> WOTMap;

    TMap &Map(TMapKind kind);
    const TMap &Map(TMapKind kind) const;

    /// Whether the body of any map, or the rev limiter, is modified.
    virtual bool IsModified() const;
    /// Places the maps directly and loads them; 0 leaves a map as it was. Idle then gets the single
    /// load point 0 and full throttle 100, placed or not.
    virtual void SetOffsets(std::int32_t partThrottle, std::int32_t idle,
                            std::int32_t fullThrottle);
    /// As SetOffsets, each map through its pointer and mask.
    virtual void SetPointers(std::int32_t ptPointer, std::int32_t ptBitmask,
                             std::int32_t idlePointer, std::int32_t idleBitmask,
                             std::int32_t wotPointer, std::int32_t wotBitmask);
    /// Reads what is placed again from the image, as it is shown now; edits that are not in the
    /// image are dropped.
    virtual void ReadAnew();
    /// Writes all three maps into the image; nothing without one.
    virtual void SaveAll();

    /// Records the interpretation switch and sets it on the three bodies.
    void SetShowConverted(bool flag);
    /// Sets every body cell to 0 in the units that are shown; not yet in the image. Part throttle
    /// only with at most 32 RPM and 20 load points, the others with at most 32 RPM points. A
    /// message of the cells is shown once, not once per cell.
    void ZeroMaps();

protected:
    TMapSet(std::unique_ptr<TMap> partThrottle, std::unique_ptr<TMap> idle,
            std::unique_ptr<TMap> fullThrottle);

private:
    void SetSingleLoadPoints();
};

/// The lambda trim maps and the rev limiter.
class TFuelMapSet : public TMapSet {
public:
    TFuelMapSet();

    /// One byte, 40 rpm per count; placed with its SetOffset.
    TRPMVal revLimiter;

    /// Whether the rev limiter is placed, at an offset above 0.
    bool HasRevLimiter() const;
    bool IsModified() const override;
    /// Also reads the rev limiter, if there is one.
    void ReadAnew() override;
    /// Also saves the rev limiter, placed or not: an unplaced one shows its message at each save.
    void SaveAll() override;
};

/// The ignition timing maps.
class TTimingMapSet : public TMapSet {
public:
    TTimingMapSet();
};
