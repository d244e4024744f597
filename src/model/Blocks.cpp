#include "model/Blocks.h"

#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "model/Texts.h"

#include <exception>
#include <new>

namespace {

/// Runs one step of a walk over cells; a cell that fails is passed over silently.
template <class TStep>
void SkipOnFailure(TStep step) {
    try {
        step();
    } catch (const std::exception &) {
        // Intended: the other cells go on.
    }
}

/// Calls `visit` for every value that the grid holds.
template <class TVisit>
void ForEachValue(const TValCollection &values, TVisit visit) {
    for (std::int32_t r = 0; r < values.Rows(); ++r)
        for (std::int32_t c = 0; c < values.Columns(); ++c)
            if (TVal *value = values.GetItem(r, c))
                visit(*value);
}

} // namespace

void ShowOutOfMemory() {
    ShowModelMessage(Translated("Model", "Out of memory allocating data map data"));
}

TBlockData::TBlockData(TValCollectionClass valuesClass)
    : collectionClass(valuesClass), values(valuesClass()) {}

void TBlockData::SetShowConverted(bool flag) {
    showConverted = flag;
    ForEachValue(*values, [flag](TVal &value) { value.showConverted = flag; });
}

void TBlockData::Assign(const TBlockData &source) {
    offset = source.offset;
    length = source.length;
    size = source.size;
    columns = source.columns;
    rows = source.rows;
    values->Assign(*source.values);
    showConverted = source.showConverted;
    modified = true;
}

void TBlockData::AssignTo(TBlockData &destination) const {
    destination.columns = columns;
    destination.rows = rows;
    destination.length = length;
    destination.size = size;
    destination.values->SetSize(values->Rows(), values->Columns());
    values->AssignTo(*destination.values);
    destination.showConverted = showConverted;
    destination.modified = true;
}

void TBlockData::Load(std::int32_t newOffset, std::int32_t newRows, std::int32_t newColumns) {
    offset = newOffset;
    size = newRows * newColumns;
    length = size;
    const TROMImage *image = ROMImage();
    if (image) {
        columns = newColumns % gridModulus;
        rows = newRows % gridModulus;
        try {
            values->SetSize(rows, columns);
        } catch (const std::bad_alloc &) {
            ShowOutOfMemory();
        }
        FillValues(*image);
    }
    SetModified(false);
}

void TBlockData::FillValues(const TROMImage &image) {
    if (offset > TROMImage::highestStart)
        return;
    std::int64_t place = offset;
    for (std::int32_t r = 0; r < rows; ++r)
        for (std::int32_t c = 0; c < columns; ++c, ++place)
            if (TVal *value = values->GetItem(r, c))
                SkipOnFailure([&] { value->SetValue(image.Peek(place)); });
}

bool TBlockData::AnyModified() {
    modified = false;
    ForEachValue(*values, [this](const TVal &value) { modified = modified || value.modified; });
    return modified;
}

void TBlockData::SetModified(bool flag) {
    ForEachValue(*values, [flag](TVal &value) { value.modified = flag; });
}

void TMapData::Save() {
    if (TROMImage *image = ROMImage()) {
        if (rows > 0 && columns > 0 && !TROMImage::Contains(offset))
            ShowModelMessage(Translated("Model", "Error saving data map data"));
        else
            WriteCells(*image);
        image->modified = true;
    }
    SetModified(false);
}

void TMapData::WriteCells(TROMImage &image) const {
    std::int64_t place = offset;
    for (std::int32_t r = 0; r < rows; ++r)
        for (std::int32_t c = 0; c < columns; ++c, ++place)
            if (const TVal *value = values->GetItem(r, c))
                SkipOnFailure([&] { image.Poke(place, LowByte(Round(value->GetRaw()))); });
}
