#include "model/MapTypes.h"

#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <utility>

TMap::TMap(TMapDataClass dataClass, std::int32_t count, std::string convertedPicture,
           std::string rawPicture)
    : location(std::make_unique<TMapPointerVal>()),
      mapDataClass(dataClass),
      axisCount(count),
      convertedFormat(std::move(convertedPicture)),
      rawFormat(std::move(rawPicture)),
      axes(std::make_unique<TAxisSet>(count)),
      data(dataClass()) {}

TMap::TMap(const TMap &source)
    : TMap(source.mapDataClass, source.axisCount, source.convertedFormat, source.rawFormat) {
    isCopy = true;
    name = source.name;
    *location = *source.location;
    location->modified = false;
    axes->Assign(*source.axes);
    data->Assign(*source.data);
}

bool TMap::IsModified() const {
    return data->HasModified();
}

void TMap::SetOffset(std::int32_t offset) {
    location->raw = offset;
    location->offset = -1;
    if (offset != 0)
        LoadFromLocation();
}

void TMap::SetPointer(std::int32_t pointerOffset, std::int32_t bitmask) {
    location->SetOffset(pointerOffset);
    location->bitmask = bitmask;
    LoadFromLocation();
}

void TMap::ReadAnew() {
    if (location->offset != -1 || location->raw != 0)
        LoadFromLocation();
}

void TMap::LoadFromLocation() {
    axes->SetOffset(GetLocation());
    const std::int32_t loadPoints = axisCount > 1 ? LoadCount() : 1;
    data->Load(OffsetBehind(axes->offset, axes->length), RPMCount(), loadPoints);
}

void TMap::Save() {
    axes->SaveAxes();
    data->Save();
}

std::int32_t TMap::GetLocation() const {
    return Round(location->GetRaw());
}

const std::string &TMap::GetCellFormat() const {
    return data->showConverted ? convertedFormat : rawFormat;
}

std::int32_t TMap::RPMCount() const {
    return axes->rpmAxis->size;
}

std::int32_t TMap::LoadCount() const {
    return axes->throttleAxis->size;
}

bool TMap::Fits() const {
    return RPMCount() < rpmLimit && LoadCount() < loadLimit;
}

void TMap::AssignTo(TMap &destination) const {
    axes->AssignTo(*destination.axes);
    data->AssignTo(*destination.data);
    destination.name = name;
    destination.convertedFormat = convertedFormat;
    destination.rawFormat = rawFormat;
}
