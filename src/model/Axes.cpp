#include "model/Axes.h"

#include "model/ROMImage.h"

#include <memory>
#include <utility>

namespace {

/// Bytes in front of the steps: the RAM location and the count.
constexpr std::int32_t headerLength = 2;

} // namespace

TAxisData::TAxisData(TValCollectionClass valuesClass, std::int32_t baseValue)
    : TBlockData(valuesClass), base(baseValue) {
    columns = 1;
    showConverted = true;
}

void TAxisData::LoadAxis(std::int32_t newOffset) {
    axisOffset = newOffset;
    offset = newOffset;
    size = PeekROM(std::int64_t{newOffset} + 1);
    length = size + headerLength;
    columns = 1;
    if (const TROMImage *image = ROMImage()) {
        Resize(size, 1);
        ReadPoints(*image);
    }
    SetModified(false);
}

void TAxisData::ReadPoints(const TROMImage &image) {
    if (LastByte() > TROMImage::highestStart)
        return;
    std::int32_t point = base;
    for (std::int32_t i = 0; i < rows; ++i) {
        point -= image.Peek(LastByte() - i);
        if (TVal *value = values->GetItem(rows - 1 - i, 0))
            value->raw = point;
    }
}

void TAxisData::SaveAxis() {
    if (offset == 0)
        return;
    TROMImage *image = ROMImage();
    const bool wasLoaded = size > 0 && size < gridModulus && LastByte() <= TROMImage::highestStart;
    if (image && wasLoaded && !WritePoints(*image))
        ShowOutOfMemory(); // the load's text, intended: see docs/peculiarities.md
    SetModified(false);
}

bool TAxisData::WritePoints(TROMImage &image) const {
    std::int64_t place = std::int64_t{offset} + headerLength;
    for (std::int32_t k = 0; k + 1 < size; ++k, ++place) {
        const TVal *point = values->GetItem(k, 0);
        const TVal *next = values->GetItem(k + 1, 0);
        if (point && next)
            image.Poke(place, LowByte(std::int64_t{next->raw} - point->raw));
    }
    const TVal *last = values->GetItem(size - 1, 0);
    if (last)
        image.Poke(place, LowByte(std::int64_t{base} - last->raw));
    return last != nullptr;
}

std::int64_t TAxisData::LastByte() const {
    return std::int64_t{offset} + length - 1;
}

void TAxisData::SetSinglePoint(double value) {
    size = 1;
    rows = 1;
    columns = 1;
    values->SetSize(1, 1);
    // A plain value: a point of 100 is 100 %, whatever an axis counts in.
    auto point = std::make_unique<TVal>();
    point->SetValue(value);
    point->modified = false;
    values->SetItem(0, 0, std::move(point));
}

TAxisSet::TAxisSet(std::int32_t count)
    : axisCount(count),
      rpmAxis(std::make_unique<TRPMAxisData>()),
      throttleAxis(std::make_unique<TThrAxisData>()) {}

void TAxisSet::AssignTo(TAxisSet &destination) const {
    rpmAxis->AssignTo(*destination.rpmAxis);
    throttleAxis->AssignTo(*destination.throttleAxis);
}

void TAxisSet::Assign(const TAxisSet &source) {
    rpmAxis->Assign(*source.rpmAxis);
    throttleAxis->Assign(*source.throttleAxis);
    offset = source.offset;
    length = source.length;
}

void TAxisSet::SetOffset(std::int32_t newOffset) {
    offset = newOffset;
    rpmAxis->LoadAxis(newOffset);
    length = rpmAxis->length;
    if (axisCount < 2) {
        throttleAxis->SetSinglePoint(0.0);
        return;
    }
    throttleAxis->LoadAxis(OffsetBehind(newOffset, rpmAxis->length));
    length += throttleAxis->length;
}

void TAxisSet::SaveAxes() {
    rpmAxis->SaveAxis();
    if (axisCount > 1)
        throttleAxis->SaveAxis();
}
