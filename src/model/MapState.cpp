#include "model/MapState.h"

namespace {
/// Calls `visit` for every place of a block's values, row by row.
template <class TVisit>
void ForEachPlace(const TBlockData &block, TVisit visit) {
    for (std::int32_t r = 0; r < block.values->Rows(); ++r)
        for (std::int32_t c = 0; c < block.values->Columns(); ++c)
            visit(r, c);
}

/// Of the same class, with the same flag.
std::unique_ptr<TVal> ExactCopy(const TVal *value) {
    if (!value)
        return nullptr;
    std::unique_ptr<TVal> copy = value->CreateCopy();
    copy->modified = value->modified;
    return copy;
}

bool Same(const TVal *a, const TVal *b) {
    if (!a || !b)
        return a == b;
    return a->raw == b->raw && a->modified == b->modified && a->showConverted == b->showConverted &&
           a->offset == b->offset;
}
} // namespace

TBlockState::TBlockState(const TBlockData &block) : shape_(ShapeOf(block)) {
    ForEachPlace(
        block, [&](auto r, auto c) { values_.push_back(ExactCopy(block.values->GetItem(r, c))); });
}

TBlockState::TShape TBlockState::ShapeOf(const TBlockData &block) {
    return {.size = block.size,
            .length = block.length,
            .columns = block.columns,
            .rows = block.rows,
            .valueRows = block.values->Rows(),
            .valueColumns = block.values->Columns(),
            .showConverted = block.showConverted,
            .modified = block.modified};
}

bool TBlockState::Matches(const TBlockData &block) const {
    bool same = shape_ == ShapeOf(block);
    auto value = values_.begin();
    if (same)
        ForEachPlace(block, [&](auto r, auto c) {
            same = same && Same((value++)->get(), block.values->GetItem(r, c));
        });
    return same;
}

void TBlockState::Restore(TBlockData &block) const {
    block.size = shape_.size;
    block.length = shape_.length;
    block.columns = shape_.columns;
    block.rows = shape_.rows;
    block.showConverted = shape_.showConverted;
    block.modified = shape_.modified;
    block.values->SetSize(shape_.valueRows, shape_.valueColumns);
    auto value = values_.begin();
    ForEachPlace(block,
                 [&](auto r, auto c) { block.values->SetItem(r, c, ExactCopy((value++)->get())); });
}

TMapState::TMapState(const TMap &map)
    : name_(map.name),
      convertedFormat_(map.convertedFormat),
      rawFormat_(map.rawFormat),
      rpmAxis_(*map.axes->rpmAxis),
      throttleAxis_(*map.axes->throttleAxis),
      data_(*map.data) {}

bool TMapState::Matches(const TMap &map) const {
    return name_ == map.name && convertedFormat_ == map.convertedFormat &&
           rawFormat_ == map.rawFormat && rpmAxis_.Matches(*map.axes->rpmAxis) &&
           throttleAxis_.Matches(*map.axes->throttleAxis) && data_.Matches(*map.data);
}

void TMapState::Restore(TMap &map) const {
    map.name = name_;
    map.convertedFormat = convertedFormat_;
    map.rawFormat = rawFormat_;
    rpmAxis_.Restore(*map.axes->rpmAxis);
    throttleAxis_.Restore(*map.axes->throttleAxis);
    data_.Restore(*map.data);
}
