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

bool TMap::IsModified() const {
    return data->AnyModified();
}

void TMap::BecomeCopyOf(const TMap &source) {
    isCopy = true;
    name = source.name;
    location = source.location->CreatePointerCopy();
    convertedFormat = source.convertedFormat;
    rawFormat = source.rawFormat;
    axes->Assign(*source.axes);
    data->Assign(*source.data);
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

TFuelMap::TFuelMap(std::int32_t count, TMapDataClass dataClass)
    : TMap(dataClass, count, "###0.00", "##0") {}

std::unique_ptr<TMap> TFuelMap::CreateCopy() const {
    auto copy = std::make_unique<TFuelMap>(axisCount, mapDataClass);
    copy->BecomeCopyOf(*this);
    return copy;
}

TTimingMap::TTimingMap(std::int32_t count, TMapDataClass dataClass)
    : TMap(dataClass, count, "###0.0", "##0") {}

std::unique_ptr<TMap> TTimingMap::CreateCopy() const {
    auto copy = std::make_unique<TTimingMap>(axisCount, mapDataClass);
    copy->BecomeCopyOf(*this);
    return copy;
}
