// A map as it stood at one moment, to be given back exactly: values, modified flags, shapes, names.
// Its bytes in the image are not part of it.
#pragma once

#include "model/MapTypes.h"

#include <string>
#include <vector>

/// What an axis or a body holds.
class TBlockState {
public:
    explicit TBlockState(const TBlockData &block);

    /// Whether the block is still, or again, as it was.
    bool Matches(const TBlockData &block) const;
    /// Gives everything back but the block's place.
    void Restore(TBlockData &block) const;

private:
    struct TShape {
        std::int32_t size;
        std::int32_t length;
        std::int32_t columns;
        std::int32_t rows;
        std::int32_t valueRows;
        std::int32_t valueColumns;
        bool showConverted;
        bool modified;
        bool operator==(const TShape &) const = default;
    };
    static TShape ShapeOf(const TBlockData &block);

    TShape shape_;
    std::vector<std::unique_ptr<TVal>> values_; ///< row by row; none where the block has none
};

class TMapState {
public:
    explicit TMapState(const TMap &map);

    bool Matches(const TMap &map) const;
    /// `map` is the one that this was taken of, at the same place.
    void Restore(TMap &map) const;

private:
    std::string name_;
    std::string convertedFormat_;
    std::string rawFormat_;
    TBlockState rpmAxis_;
    TBlockState throttleAxis_;
    TBlockState data_;
};
