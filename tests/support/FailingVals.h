// Values and collections that fail on purpose, for the rules about what a failure leaves behind.
#pragma once

#include "model/ValCollections.h"

#include <memory>
#include <new>
#include <stdexcept>

/// A value that cannot be read, and cannot take the number 19.
class TFailingVal : public TVal {
public:
    double GetRaw() const override { throw std::runtime_error("unreadable"); }
    void SetValue(double value) override {
        if (value == 19.0)
            throw std::runtime_error("unwritable");
        TVal::SetValue(value);
    }
};

class TFailingValCollectionItem : public TValCollectionItem {
public:
    TFailingValCollectionItem() : TValCollectionItem(std::make_unique<TFailingVal>()) {}
};

class TFailingValCollection : public TValCollection {
public:
    TFailingValCollection() : TValCollection(CreateItem<TFailingValCollectionItem>) {}
};

/// Runs out of memory at the third value of every grid.
class TScarceValCollection : public TValCollection {
public:
    TScarceValCollection() : TValCollection(CreateScarceItem) {}
    void SetSize(std::int32_t rows, std::int32_t columns) override {
        itemsLeft = 2;
        TValCollection::SetSize(rows, columns);
    }

private:
    static std::unique_ptr<TValCollectionItem> CreateScarceItem() {
        if (itemsLeft-- == 0)
            throw std::bad_alloc();
        return std::make_unique<TRPMValCollectionItem>();
    }
    inline static int itemsLeft = 0;
};
