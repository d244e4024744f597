#include "model/Values.h"

#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "system/Texts.h"

TTimingConstants &TimingConstants() {
    thread_local TTimingConstants constants;
    return constants;
}

double TVal::GetRaw() const {
    return raw;
}

void TVal::SetValue(double value) {
    if (showConverted) {
        SetConverted(value);
        return;
    }
    raw = Round(value);
    modified = true;
}

double TVal::GetConverted() const {
    return raw * unit_;
}

void TVal::SetConverted(double value) {
    raw = Round(value / unit_);
    modified = true;
}

void TVal::AssignTo(TVal &destination) const {
    destination.raw = raw;
    destination.showConverted = showConverted;
    destination.modified = true;
}

double TVal::GetValue() const {
    return showConverted ? GetConverted() : GetRaw();
}

void TVal::SetOffset(std::int32_t newOffset) {
    offset = newOffset;
    if (const TROMImage *image = ROMImage(); image && offset != -1)
        raw = image->Peek(offset);
}

bool TByteVal::Save() {
    modified = false;
    TROMImage *image = ROMImage();
    if (!image)
        return false;
    const bool saved = image->Poke(offset, LowByte(Round(GetRaw())));
    if (!saved)
        ShowModelMessage(Translated("Model", "Error saving rev limiter data"));
    return saved;
}

double TTimingVal::GetConverted() const {
    return (raw - TimingConstants().subtractor) * TimingConstants().divider;
}

void TTimingVal::SetConverted(double value) {
    // A failed entry still counts as an edit; this is intended: see docs/peculiarities.md.
    modified = true;
    const auto [divider, subtractor] = TimingConstants();
    const std::optional<std::int32_t> counts =
        divider == 0.0 ? std::nullopt : TryRound(value / divider + subtractor);
    if (counts)
        raw = *counts;
    else
        ShowModelMessage(Translated("Model", "Timing Divider Not yet Set"));
}

double TMapPointerVal::GetRaw() const {
    if (offset == -1)
        return raw;
    const std::int32_t high = PeekROM(offset) & bitmask;
    return high * 256 + PeekROM(std::int64_t{offset} + 1);
}

void TMapPointerVal::AssignTo(TVal &destination) const {
    TVal::AssignTo(destination);
    if (auto *pointer = dynamic_cast<TMapPointerVal *>(&destination))
        pointer->bitmask = bitmask;
}

std::unique_ptr<TVal> TMapPointerVal::CreateCopy() const {
    auto copy = std::make_unique<TMapPointerVal>(*this);
    copy->modified = false;
    return copy;
}
