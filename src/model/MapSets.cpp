#include "model/MapSets.h"

#include "model/Messages.h"
#include "model/ROMImage.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace {

constexpr double idleLoad = 0.0;
constexpr double fullLoad = 100.0;

void ZeroBody(TMapData &body) {
    for (std::int32_t r = 0; r < body.rows; ++r)
        for (std::int32_t t = 0; t < body.columns; ++t)
            if (TVal *cell = body.values->GetItem(r, t))
                cell->SetValue(0.0);
}

} // namespace

TMapSet::TMapSet(std::unique_ptr<TMap> partThrottle, std::unique_ptr<TMap> idle,
                 std::unique_ptr<TMap> fullThrottle)
    : PTMap(std::move(partThrottle)), IdleMap(std::move(idle)), WOTMap(std::move(fullThrottle)) {}

TMap &TMapSet::Map(TMapKind kind) {
    return const_cast<TMap &>(std::as_const(*this).Map(kind));
}

const TMap &TMapSet::Map(TMapKind kind) const {
    if (kind == TMapKind::PT)
        return *PTMap;
    return kind == TMapKind::Idle ? *IdleMap : *WOTMap;
}

bool TMapSet::IsModified() const {
    return PTMap->IsModified() || IdleMap->IsModified() || WOTMap->IsModified();
}

void TMapSet::SetOffsets(std::int32_t partThrottle, std::int32_t idle, std::int32_t fullThrottle) {
    PTMap->SetOffset(partThrottle);
    IdleMap->SetOffset(idle);
    WOTMap->SetOffset(fullThrottle);
    SetSingleLoadPoints();
}

void TMapSet::SetPointers(std::int32_t ptPointer, std::int32_t ptBitmask, std::int32_t idlePointer,
                          std::int32_t idleBitmask, std::int32_t wotPointer,
                          std::int32_t wotBitmask) {
    PTMap->SetPointer(ptPointer, ptBitmask);
    IdleMap->SetPointer(idlePointer, idleBitmask);
    WOTMap->SetPointer(wotPointer, wotBitmask);
    SetSingleLoadPoints();
}

void TMapSet::SetSingleLoadPoints() {
    IdleMap->axes->throttleAxis->SetSinglePoint(idleLoad);
    WOTMap->axes->throttleAxis->SetSinglePoint(fullLoad);
}

void TMapSet::ReadAnew() {
    PTMap->ReadAnew();
    IdleMap->ReadAnew();
    WOTMap->ReadAnew();
    SetSingleLoadPoints();
    SetShowConverted(showConverted);
}

void TMapSet::SaveAll() {
    if (!ROMImage())
        return;
    PTMap->Save();
    IdleMap->Save();
    WOTMap->Save();
}

void TMapSet::SetShowConverted(bool flag) {
    showConverted = flag;
    PTMap->data->SetShowConverted(flag);
    IdleMap->data->SetShowConverted(flag);
    WOTMap->data->SetShowConverted(flag);
}

void TMapSet::ZeroMaps() {
    constexpr std::int32_t mostRPM = 32;
    constexpr std::int32_t mostLoad = 20;
    // All cells of a map say the same, which is shown once for all of them.
    std::set<std::string> messages;
    const TMessageHook hook =
        SetMessageHook([&](const std::string &text) { messages.insert(text); });
    if (PTMap->RPMCount() <= mostRPM && PTMap->LoadCount() <= mostLoad)
        ZeroBody(*PTMap->data);
    if (IdleMap->RPMCount() <= mostRPM)
        ZeroBody(*IdleMap->data);
    if (WOTMap->RPMCount() <= mostRPM)
        ZeroBody(*WOTMap->data);
    SetMessageHook(hook);
    if (hook)
        std::for_each(messages.begin(), messages.end(), hook);
}

TFuelMapSet::TFuelMapSet()
    : TMapSet(std::make_unique<TFuelMap>(2), std::make_unique<TFuelMap>(1),
              std::make_unique<TFuelMap>(1)) {}

bool TFuelMapSet::HasRevLimiter() const {
    return revLimiter.offset > 0;
}

bool TFuelMapSet::IsModified() const {
    return TMapSet::IsModified() || revLimiter.modified;
}

void TFuelMapSet::ReadAnew() {
    TMapSet::ReadAnew();
    if (!HasRevLimiter())
        return;
    revLimiter.SetOffset(revLimiter.offset);
    revLimiter.modified = false;
}

void TFuelMapSet::SaveAll() {
    TMapSet::SaveAll();
    // An unplaced one too, which reports its failure at each save. This is intended: see
    // docs/peculiarities.md.
    if (ROMImage())
        revLimiter.Save();
}

TTimingMapSet::TTimingMapSet()
    : TMapSet(std::make_unique<TTimingMap>(2), std::make_unique<TTimingMap>(1),
              std::make_unique<TTimingMap>(1)) {}
