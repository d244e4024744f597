// One calibration table: its axes followed by its body of byte cells, found at an offset or through
// a pointer in the image, shown in grids and charts and written back. Sets of maps: MapSets.h.
//
// A map at L has its RPM axis at L, its load axis behind it (two-axis maps only), and then its body
// of nR x nT bytes, one run of nT bytes for each RPM point.
#pragma once

#include "model/Axes.h"
#include "model/Blocks.h"
#include "model/MapViews.h"
#include "model/Values.h"

#include <cstdint>
#include <memory>
#include <string>

/// A map; unplaced and empty at first. TFuelMap and TTimingMap are the two kinds.
class TMap {
public:
    virtual ~TMap() = default;
    TMap &operator=(const TMap &) = delete;

    /// True for what CreateCopy made.
    bool isCopy = false;
    std::string name;
    /// Where the map begins: offset is the pointer's place (-1 when placed directly), raw the
    /// direct start.
    TOwned<TMapPointerVal> location;
    TMapDataClass mapDataClass;
    /// 2 for part throttle, 1 for idle and full throttle.
    std::int32_t axisCount;
    /// Picture for cells shown in engineering units, and for cells shown as stored.
    std::string convertedFormat;
    std::string rawFormat;
    TOwned<TAxisSet> axes;
    /// The body: rows are RPM points, columns load points.
    TOwned<TMapData> data;

    /// Whether any body cell is modified. Edits of the axes do not count.
    virtual bool IsModified() const;
    /// A private copy with location, name, formats, axes and body; its cells count as modified.
    virtual std::unique_ptr<TMap> CreateCopy() const = 0;
    /// Places the map directly and loads it. 0 records the location and stops: axes and body keep
    /// their old place and values. Fresh cells show raw whatever GetCellFormat says.
    virtual void SetOffset(std::int32_t offset);
    /// Places the map through the pointer at `pointerOffset`, its high byte ANDed with `bitmask`,
    /// and loads it. A pointer of 0 is a place like any other.
    virtual void SetPointer(std::int32_t pointerOffset, std::int32_t bitmask);
    /// Reads axes and body again from where the map lies, directly or through its pointer; nothing
    /// while it has no place. Fresh cells show raw as those of SetOffset do.
    void ReadAnew();
    /// Writes axes and body into the image; see TAxisData::SaveAxis and TMapData::Save.
    virtual void Save();

    /// The start offset: the direct one, or the pointer as it stands in the image now.
    std::int32_t GetLocation() const;
    /// The picture for the body's cells as the body shows them.
    const std::string &GetCellFormat() const;
    /// Points along the axes by the stored count bytes (0 to 255), not modulo 32.
    std::int32_t RPMCount() const;
    std::int32_t LoadCount() const;
    // With so many points along an axis, or more, a map cannot be shown.
    static constexpr std::int32_t rpmLimit = 32;
    static constexpr std::int32_t loadLimit = 21;
    /// Whether the map can be shown.
    bool Fits() const;
    /// Paste: gives values, axes, name, formats and conversion switch to `destination`, which keeps
    /// its place and counts as modified.
    void AssignTo(TMap &destination) const;

    /// Shapes the grid: (RPM points + 1) columns x (load points + 1) rows and visible; 1 x 1 and
    /// hidden when the map does not fit; 1 x 1 and visible without RPM points.
    void SizeGrid(IMapGrid &grid) const;
    /// Shows the map in a grid shaped by SizeGrid, clearing all edit marks to the window text
    /// colour; cells that the grid lacks are left out.
    ///
    /// @param locationLabel  set to the RPM axis offset, "$" and at least four digits, in any case
    /// @param cellFormat     picture for the body cells
    /// @param maxRows, maxColumns  body cells shown at once
    /// When the map does not fit the grid is hidden and nothing else happens. A cell that cannot
    /// be shown gives the message "data error: x=" r " y=" t and the others are still filled.
    void FillGrid(IMapGrid &grid, std::string &locationLabel, const std::string &cellFormat,
                  int maxRows, int maxColumns) const;
    /// Takes the cells marked blue into the map, in the units that are shown. Body cells become
    /// green, header cells black; load headers are read up to the first "%" and only with two axes.
    ///
    /// A body cell that is no number or out of range is skipped and stays blue. For a header cell
    /// EConvertError or ERangeError goes to the caller; what was taken before stays.
    void ReadGrid(IMapGrid &grid);
    /// Shows or hides the chart by the fit rule and gives it one series per load point when its
    /// count differs.
    void SizeChart(IMapChart &chart) const;
    /// Fills a visible chart: series t is load point t, x the RPM.
    void FillChart(IMapChart &chart) const;
    /// Fills one series with a load point's title, load and points, whatever the chart's state.
    void FillSeries(IMapChart &chart, int series, int loadPoint) const;

protected:
    TMap(TMapDataClass dataClass, std::int32_t count, std::string convertedPicture,
         std::string rawPicture);
    TMap(const TMap &source); ///< for CreateCopy

private:
    void LoadFromLocation();
    void FillHeaders(IMapGrid &grid) const;
    void FillBody(IMapGrid &grid, const std::string &cellFormat) const;
    void ReadBody(IMapGrid &grid);
    void ReadHeaders(IMapGrid &grid);
};

/// A lambda trim map: cells in 1/128, "###0.00".
class TFuelMap : public TMap {
public:
    explicit TFuelMap(std::int32_t count, TMapDataClass dataClass = CreateMapData<TFuelMapData>)
        : TMap(dataClass, count, "###0.00", "##0") {}
    std::unique_ptr<TMap> CreateCopy() const override { return std::make_unique<TFuelMap>(*this); }
};

/// An ignition timing map: cells in degrees by the timing constants, "###0.0".
class TTimingMap : public TMap {
public:
    explicit TTimingMap(std::int32_t count, TMapDataClass dataClass = CreateMapData<TTimingMapData>)
        : TMap(dataClass, count, "###0.0", "##0") {}
    std::unique_ptr<TMap> CreateCopy() const override {
        return std::make_unique<TTimingMap>(*this);
    }
};
