#include "model/Blocks.h"

#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "system/Texts.h"

#include <exception>
#include <new>

namespace {

/// Calls `visit` for every value that the grid holds, with its place in the walk row by row. One
/// for which it fails is passed over silently.
template <class TValues, class TVisit>
void ForEachValue(TValues &values, TVisit visit) {
    std::int64_t place = 0;
    for (std::int32_t r = 0; r < values.Rows(); ++r)
        for (std::int32_t c = 0; c < values.Columns(); ++c, ++place)
            try {
                if (auto *value = values.GetItem(r, c))
                    visit(*value, place);
            } catch (const std::exception &) {
                // One bad cell does not keep the others from being loaded or saved.
            }
}

} // namespace

void ShowOutOfMemory() {
    ShowModelMessage(Translated("Model", "Out of memory allocating data map data"));
}

TBlockData::TBlockData(TValCollectionClass valuesClass)
    : collectionClass(valuesClass), values(valuesClass()) {}

void TBlockData::SetShowConverted(bool flag) {
    showConverted = flag;
    ForEachValue(*values, [flag](TVal &value, auto) { value.showConverted = flag; });
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

void TBlockData::Resize(std::int32_t newRows, std::int32_t newColumns) {
    rows = newRows % gridModulus;
    columns = newColumns % gridModulus;
    try {
        values->SetSize(rows, columns);
    } catch (const std::bad_alloc &) {
        ShowOutOfMemory();
    }
}

void TBlockData::Load(std::int32_t newOffset, std::int32_t newRows, std::int32_t newColumns) {
    offset = newOffset;
    size = newRows * newColumns;
    length = size;
    if (const TROMImage *image = ROMImage()) {
        Resize(newRows, newColumns);
        FillValues(*image);
    }
    SetModified(false);
}

void TBlockData::FillValues(const TROMImage &image) {
    if (offset > TROMImage::highestStart)
        return;
    ForEachValue(*values, [&](TVal &value, std::int64_t place) {
        value.SetValue(image.Peek(offset + place));
    });
}

bool TBlockData::HasModified() const {
    bool any = false;
    ForEachValue(*values, [&any](const TVal &value, auto) { any = any || value.modified; });
    return any;
}

void TBlockData::SetModified(bool flag) {
    ForEachValue(*values, [flag](TVal &value, auto) { value.modified = flag; });
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
    ForEachValue(*values, [&](const TVal &value, std::int64_t place) {
        image.Poke(offset + place, LowByte(Round(value.GetRaw())));
    });
}
