// Two-dimensional grids of values of one class, with a cell of its own for every (row, column).
// What the grids stand for is the business of Blocks.h.
#pragma once

#include "model/Values.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

/// One place of a collection; owns exactly one value.
class TValCollectionItem {
public:
    explicit TValCollectionItem(std::unique_ptr<TVal> initial) : value(std::move(initial)) {}
    virtual ~TValCollectionItem() = default;
    std::unique_ptr<TVal> value;
};

/// The place of a value of class `TValue`, which comes with it.
template <class TValue>
class TItemOf : public TValCollectionItem {
public:
    TItemOf() : TValCollectionItem(std::make_unique<TValue>()) {}
};

/// Makes a fresh item, and so a fresh value, of one class.
using TValItemClass = std::unique_ptr<TValCollectionItem> (*)();

/// The item class of `TItem`.
template <class TItem>
std::unique_ptr<TValCollectionItem> CreateItem() {
    return std::make_unique<TItem>();
}

/// A grid of rows x columns values; empty at first. References and pointers to values are good
/// until the next SetSize, Assign or SetItem.
class TValCollection {
public:
    explicit TValCollection(TValItemClass itemClass) : itemClass_(itemClass) {}
    virtual ~TValCollection() = default;

    /// Takes the source's dimensions and a copy of each of its values; all copies are modified.
    virtual void Assign(const TValCollection &source);
    /// Gives every value to the destination's value at the same place through TVal::AssignTo;
    /// places that only one of the two has are passed over.
    virtual void AssignTo(TValCollection &destination) const;
    /// Discards all values and creates rows x columns fresh ones. When that runs out of memory
    /// (std::bad_alloc) the ones made so far stay and the others are none.
    virtual void SetSize(std::int32_t rows, std::int32_t columns);
    /// The value at row `i` and column `j`, or none outside the grid.
    virtual TVal *GetItem(std::int32_t i, std::int32_t j);
    virtual const TVal *GetItem(std::int32_t i, std::int32_t j) const;
    /// Replaces the value at row `i` and column `j`; outside the grid `value` is dropped.
    virtual void SetItem(std::int32_t i, std::int32_t j, std::unique_ptr<TVal> value);

    std::int32_t Rows() const { return rows_; }
    std::int32_t Columns() const { return columns_; }

private:
    TValCollectionItem *FindItem(std::int32_t i, std::int32_t j) const;

    TValItemClass itemClass_;
    std::vector<std::unique_ptr<TValCollectionItem>> items_;
    std::int32_t rows_ = 0;
    std::int32_t columns_ = 0;
};

/// An empty grid for values of class `TValue`.
template <class TValue>
class TCollectionOf : public TValCollection {
public:
    TCollectionOf() : TValCollection(CreateItem<TItemOf<TValue>>) {}
};

// The items and collections of each class of value.
using TRPMValCollectionItem = TItemOf<TRPMVal>;
using TRPMValCollection = TCollectionOf<TRPMVal>;
using TThrValCollectionItem = TItemOf<TThrVal>;
using TThrValCollection = TCollectionOf<TThrVal>;
using TFuelValCollectionItem = TItemOf<TFuelVal>;
using TFuelValCollection = TCollectionOf<TFuelVal>;
using TTimingValCollectionItem = TItemOf<TTimingVal>;
using TTimingValCollection = TCollectionOf<TTimingVal>;

/// Makes an empty collection of one class.
using TValCollectionClass = std::unique_ptr<TValCollection> (*)();

/// The collection class of `TCollection`.
template <class TCollection>
std::unique_ptr<TValCollection> CreateCollection() {
    return std::make_unique<TCollection>();
}
