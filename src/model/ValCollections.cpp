#include "model/ValCollections.h"

#include <algorithm>
#include <cstddef>
#include <utility>

void TValCollection::Assign(const TValCollection &source) {
    SetSize(source.rows_, source.columns_);
    for (std::int32_t i = 0; i < rows_; ++i)
        for (std::int32_t j = 0; j < columns_; ++j)
            if (const TVal *value = source.GetItem(i, j))
                SetItem(i, j, value->CreateCopy());
}

void TValCollection::AssignTo(TValCollection &destination) const {
    for (std::int32_t i = 0; i < rows_; ++i)
        for (std::int32_t j = 0; j < columns_; ++j) {
            const TVal *from = GetItem(i, j);
            TVal *to = destination.GetItem(i, j);
            if (from && to)
                from->AssignTo(*to);
        }
}

void TValCollection::SetSize(std::int32_t rows, std::int32_t columns) {
    items_.clear();
    rows_ = std::max(rows, 0);
    columns_ = std::max(columns, 0);
    const auto count = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_);
    items_.reserve(count);
    while (items_.size() < count)
        items_.push_back(itemClass_());
}

TVal *TValCollection::GetItem(std::int32_t i, std::int32_t j) {
    TValCollectionItem *item = FindItem(i, j);
    return item ? item->value.get() : nullptr;
}

const TVal *TValCollection::GetItem(std::int32_t i, std::int32_t j) const {
    const TValCollectionItem *item = FindItem(i, j);
    return item ? item->value.get() : nullptr;
}

void TValCollection::SetItem(std::int32_t i, std::int32_t j, std::unique_ptr<TVal> value) {
    if (TValCollectionItem *item = FindItem(i, j))
        item->value = std::move(value);
}

TValCollectionItem *TValCollection::FindItem(std::int32_t i, std::int32_t j) const {
    if (i < 0 || i >= rows_ || j < 0 || j >= columns_)
        return nullptr;
    const auto index = static_cast<std::size_t>(i) * static_cast<std::size_t>(columns_) +
                       static_cast<std::size_t>(j);
    return index < items_.size() ? items_[index].get() : nullptr;
}
