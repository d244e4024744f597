#include "model/Values.h"

#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "model/Texts.h"

namespace {

constexpr double rpmPerCount = 40.0;
constexpr double percentPerCount = 0.4;
constexpr double trimCounts = 128.0;

/// A copy made through CreateCopy stands for an edit, so it starts modified.
template <class TValue>
std::unique_ptr<TVal> ModifiedCopy(const TValue &source) {
    auto copy = std::make_unique<TValue>(source);
    copy->modified = true;
    return copy;
}

} // namespace

TTimingConstants &TimingConstants() {
    static TTimingConstants constants;
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
    return raw;
}

void TVal::SetConverted(double value) {
    raw = Round(value);
    modified = true;
}

std::unique_ptr<TVal> TVal::CreateCopy() const {
    return ModifiedCopy(*this);
}

void TVal::AssignTo(TVal &destination) const {
    destination.raw = raw;
    destination.showConverted = showConverted;
    destination.modified = true;
}

bool TVal::Save() {
    return false;
}

double TVal::GetValue() const {
    return showConverted ? GetConverted() : GetRaw();
}

void TVal::SetOffset(std::int32_t newOffset) {
    offset = newOffset;
    if (const TROMImage *image = ROMImage(); image && offset != -1)
        raw = image->Peek(offset);
}

bool TVal::SaveByte() {
    modified = false;
    TROMImage *image = ROMImage();
    if (!image)
        return false;
    const bool saved = image->Poke(offset, LowByte(Round(GetRaw())));
    if (!saved)
        ShowModelMessage(Translated("Model", "Error saving rev limiter data"));
    return saved;
}

double TRPMVal::GetConverted() const {
    return raw * rpmPerCount;
}

void TRPMVal::SetConverted(double value) {
    raw = Round(value / rpmPerCount);
    modified = true;
}

std::unique_ptr<TVal> TRPMVal::CreateCopy() const {
    return ModifiedCopy(*this);
}

bool TRPMVal::Save() {
    return SaveByte();
}

double TThrVal::GetConverted() const {
    return raw * percentPerCount;
}

void TThrVal::SetConverted(double value) {
    raw = Round(value / percentPerCount);
    modified = true;
}

std::unique_ptr<TVal> TThrVal::CreateCopy() const {
    return ModifiedCopy(*this);
}

bool TThrVal::Save() {
    return SaveByte();
}

double TFuelVal::GetConverted() const {
    return raw / trimCounts;
}

void TFuelVal::SetConverted(double value) {
    raw = Round(value * trimCounts);
    modified = true;
}

std::unique_ptr<TVal> TFuelVal::CreateCopy() const {
    return ModifiedCopy(*this);
}

double TTimingVal::GetConverted() const {
    return (raw - TimingConstants().subtractor) * TimingConstants().divider;
}

void TTimingVal::SetConverted(double value) {
    // A failed entry still counts as an edit; this is intended.
    modified = true;
    const auto [divider, subtractor] = TimingConstants();
    const std::optional<std::int32_t> counts =
        divider == 0.0 ? std::nullopt : TryRound(value / divider + subtractor);
    if (counts)
        raw = *counts;
    else
        ShowModelMessage(Translated("Model", "Timing Divider Not yet Set"));
}

std::unique_ptr<TVal> TTimingVal::CreateCopy() const {
    return ModifiedCopy(*this);
}

double TMapPointerVal::GetRaw() const {
    if (offset == -1)
        return raw;
    const std::int32_t high = PeekROM(offset) & bitmask;
    return high * 256 + PeekROM(std::int64_t{offset} + 1);
}

std::unique_ptr<TVal> TMapPointerVal::CreateCopy() const {
    return CreatePointerCopy();
}

void TMapPointerVal::AssignTo(TVal &destination) const {
    TVal::AssignTo(destination);
    if (auto *pointer = dynamic_cast<TMapPointerVal *>(&destination))
        pointer->bitmask = bitmask;
}

std::unique_ptr<TMapPointerVal> TMapPointerVal::CreatePointerCopy() const {
    auto copy = std::make_unique<TMapPointerVal>(*this);
    copy->modified = false;
    return copy;
}
