// A run of bytes of the ROM image and the grid of values that stands for it. This is the base of
// map bodies (here) and of axes (Axes.h); how the two form a map is in MapTypes.h.
#pragma once

#include "model/Owned.h"
#include "model/ValCollections.h"

#include <cstdint>
#include <memory>

/// Grids take stored counts modulo this, so a count of 32 is none.
inline constexpr std::int32_t gridModulus = 32;

/// Shows "Out of memory allocating data map data", which failed loads and failed axis saves say.
void ShowOutOfMemory();

class TROMImage;

/// What map bodies and axes share. Rows run along the RPM axis, columns along the load axis.
class TBlockData {
public:
    virtual ~TBlockData() = default;
    TBlockData(const TBlockData &) = delete;
    TBlockData &operator=(const TBlockData &) = delete;

    /// The class that `values` was made from.
    TValCollectionClass collectionClass;
    /// Rows x columns values.
    TOwned<TValCollection> values;
    /// The last answer of AnyModified; also set by Assign and AssignTo.
    bool modified = false;
    /// Whether the values are shown and edited in engineering units. Fresh values after a load
    /// have their class's own setting until SetShowConverted is called again.
    bool showConverted = false;
    /// Number of points by the stored count bytes.
    std::int32_t size = 0;
    /// Absolute offset of the block's first byte.
    std::int32_t offset = 0;
    /// Number of bytes taken in the image, by the stored count bytes.
    std::int32_t length = 0;
    /// Points along the inner index, modulo 32.
    std::int32_t columns = 0;
    /// Points along the outer index, modulo 32.
    std::int32_t rows = 0;

    /// Sets the switch on the block and on every value that it holds now.
    virtual void SetShowConverted(bool flag);
    /// Takes placement, shape, values and switch of another block; all values count as modified.
    virtual void Assign(const TBlockData &source);
    /// Gives shape, values and switch to another block and marks it modified. Its offset stays, so
    /// that pasted values are written to the destination's own place.
    virtual void AssignTo(TBlockData &destination) const;
    /// Loads a run of bytes, one per cell, row by row; afterwards nothing is modified.
    ///
    /// @param newOffset   where the run starts; from 0x100000 on the cells get no values
    /// @param newRows, newColumns  the stored counts, 0 to 255; the grid takes them modulo 32
    /// Bytes outside the buffer read 0. Without an image the grid stays. Shows "Out of memory
    /// allocating data map data" when the grid cannot be made; the cells made so far stay.
    virtual void Load(std::int32_t newOffset, std::int32_t newRows, std::int32_t newColumns);

    /// Whether any value of the grid is modified.
    bool HasModified() const;
    /// As HasModified; the answer is also stored in `modified`.
    bool AnyModified() { return modified = HasModified(); }
    /// Sets the modified flag of every value of the grid.
    void SetModified(bool flag);

protected:
    explicit TBlockData(TValCollectionClass valuesClass);
    /// Makes fresh values for the counts modulo 32; the ones that there is no memory for are none,
    /// and that is shown.
    void Resize(std::int32_t newRows, std::int32_t newColumns);

private:
    void FillValues(const TROMImage &image);
};

/// A map's body: rows are RPM points, columns load points.
class TMapData : public TBlockData {
public:
    /// Writes the low byte of every cell back by the walk that loaded it and marks all cells
    /// unmodified. Cells that cannot be read or lie outside the buffer are skipped silently; a
    /// body that has cells but starts outside the image shows "Error saving data map data".
    /// Marks the image modified in any case. Without an image nothing is written.
    void Save();

protected:
    using TBlockData::TBlockData;

private:
    void WriteCells(TROMImage &image) const;
};

class TFuelMapData : public TMapData {
public:
    explicit TFuelMapData(TValCollectionClass valuesClass = CreateCollection<TFuelValCollection>)
        : TMapData(valuesClass) {}
};

class TTimingMapData : public TMapData {
public:
    explicit TTimingMapData(
        TValCollectionClass valuesClass = CreateCollection<TTimingValCollection>)
        : TMapData(valuesClass) {}
};

/// Makes an empty body of one class.
using TMapDataClass = std::unique_ptr<TMapData> (*)();

/// The body class of `TData`.
template <class TData>
std::unique_ptr<TMapData> CreateMapData() {
    return std::make_unique<TData>();
}
