// The breakpoint axes in front of a map's body, and the set of one or two axes of a map.
//
// Stored form of an axis at offset A with n points, as the control unit keeps it:
//   A       engine-RAM location of the axis input; neither read nor written here
//   A + 1   n
//   A + 2.. n steps: point k + 1 minus point k, and last the base minus the last point, modulo 256
// So an axis takes n + 2 bytes and its points are summed downwards from the base.
#pragma once

#include "model/Blocks.h"

#include <cstdint>

/// One axis: a column of points in raw counts, shown converted, rising from first to last.
class TAxisData : public TBlockData {
public:
    /// The value that the steps are subtracted from.
    std::int32_t base;
    /// The offset last given to LoadAxis.
    std::int32_t axisOffset = 0;

    /// Decodes the axis at `newOffset`; afterwards nothing is modified.
    ///
    /// The grid takes the count modulo 32, size and length the count as stored. An axis that runs
    /// past 0xFFFFF is sized but its points stay 0. Without an image the count is 0 and the grid
    /// stays. Shows "Out of memory allocating data map data" when the grid cannot be made.
    virtual void LoadAxis(std::int32_t newOffset);

    /// Encodes the points into the steps at `offset`; the first byte and the count are never
    /// written. Marks all points unmodified, except at offset 0, which means not placed.
    ///
    /// Nothing is written without points, with a stored count of 32 or more and for an axis that
    /// runs past 0xFFFFF: none of them was loaded from the bytes that would be written. A failure
    /// shows "Out of memory allocating data map data", the load's text.
    virtual void SaveAxis();

    /// Makes the axis one fixed point that shows `value` as it is. Does not touch the image.
    void SetSinglePoint(double value);

protected:
    TAxisData(TValCollectionClass valuesClass, std::int32_t baseValue);

private:
    void ReadPoints(const TROMImage &image);
    /// False when the last point is missing.
    bool WritePoints(TROMImage &image) const;
    /// The offset of the axis's last byte.
    std::int64_t LastByte() const;
};

/// Engine speeds; the base 256 stands for 10,240 rpm.
class TRPMAxisData : public TAxisData {
public:
    explicit TRPMAxisData(TValCollectionClass valuesClass = CreateCollection<TRPMValCollection>)
        : TAxisData(valuesClass, 256) {}
};

/// Throttle or load; the base 250 stands for 100 %.
class TThrAxisData : public TAxisData {
public:
    explicit TThrAxisData(TValCollectionClass valuesClass = CreateCollection<TThrValCollection>)
        : TAxisData(valuesClass, 250) {}
};

/// The axes of one map, one behind the other.
class TAxisSet {
public:
    /// @param count  2 for a map over RPM and load, 1 for a map over RPM only
    explicit TAxisSet(std::int32_t count);
    virtual ~TAxisSet() = default;
    TAxisSet(const TAxisSet &) = delete;
    TAxisSet &operator=(const TAxisSet &) = delete;

    /// Where the first axis begins.
    std::int32_t offset = 0;
    /// Bytes taken by all axes; the body begins at offset + length.
    std::int32_t length = 0;
    std::int32_t axisCount;
    TOwned<TRPMAxisData> rpmAxis;
    /// Directly behind the RPM axis when there are two axes; else a single fixed point.
    TOwned<TThrAxisData> throttleAxis;

    /// Gives the points of both axes to another set, whose offset and length stay.
    virtual void AssignTo(TAxisSet &destination) const;
    /// Takes the axes, offset and length of another set; the axis count stays.
    void Assign(const TAxisSet &source);
    /// Loads the axes from `newOffset` on. With one axis the load axis becomes the single point 0.
    void SetOffset(std::int32_t newOffset);
    /// Saves the RPM axis, and the load axis when there are two.
    void SaveAxes();
};
