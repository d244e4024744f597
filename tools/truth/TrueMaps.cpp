#include "truth/TrueMaps.h"

#include "discovery/MapPlace.h"

#include <algorithm>

namespace {

constexpr int rpmTop = 256;
constexpr int loadTop = 250;

/// Rising points from `first` to `last`, evenly or closer at the beginning.
std::vector<int> Points(int count, int first, int last, TChance &chance) {
    const int bend = chance.Below(3); // of three: how much closer
    std::vector<int> points;
    for (int i = 0; i < count; ++i) {
        const int even = (last - first) * i / (count - 1);
        const int bent = (last - first) * i * i / ((count - 1) * (count - 1));
        points.push_back(first + ((3 - bend) * even + bend * bent) / 3);
    }
    for (std::size_t i = 1; i < points.size(); ++i) // no two points alike
        points[i] = std::max(points[i], points[i - 1] + 1);
    return points;
}

/// Inner points moved a little; they still rise.
std::vector<int> Moved(std::vector<int> points, int jitter, TChance &chance) {
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        points[i] = std::clamp(points[i] + chance.Between(-jitter, jitter), points[i - 1] + 1,
                               std::max(points[i - 1] + 1, points[i + 1] - 1));
    return points;
}

void PutAxis(TBytes &bytes, int location, const std::vector<int> &points, int top,
             TChance &chance) {
    bytes.push_back(location < 0 ? chance.Byte() : static_cast<std::uint8_t>(location));
    bytes.push_back(static_cast<std::uint8_t>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        bytes.push_back(
            static_cast<std::uint8_t>((i + 1 < points.size() ? points[i + 1] : top) - points[i]));
}

/// A landscape over RPM and load, in thousandths of both scales and of the height.
struct TLandscape {
    int base;
    int byLoad;   ///< added at full load
    int byRpm;    ///< added at full speed
    int hump;     ///< added at `humpAt`
    int humpAt;   ///< thousandths of full speed
    int bothways; ///< added where both are full
    int least;
    int most;
    int noise;

    int At(int rpm, int load, TChance &chance) const {
        const int far = rpm - humpAt;
        const int onHump = hump * std::max(0, 250000 - far * far) / 250000;
        const int value = base + byLoad * load / 1000 + byRpm * rpm / 1000 + onHump +
                          bothways * (rpm * load / 1000) / 1000 + chance.Below(noise + 1);
        return std::clamp(value, least, most);
    }
};

TLandscape FuelLandscape(int noise, TChance &chance) {
    return {.base = chance.Between(92, 140),
            .byLoad = chance.Between(-20, 50),
            .byRpm = chance.Between(-6, 16),
            .hump = chance.Between(0, 18),
            .humpAt = chance.Between(300, 800),
            .bothways = chance.Between(-8, 16),
            .least = chance.Percent(95) ? 90 : 60, // a few go below the usual values
            .most = chance.Percent(30) ? chance.Between(140, 200) : 200,
            .noise = noise};
}

TLandscape TimingLandscape(int noise, TChance &chance) {
    return {.base = chance.Between(18, 40),
            .byLoad = chance.Between(-24, 2),
            .byRpm = chance.Between(10, 44),
            .hump = chance.Between(-8, 8),
            .humpAt = chance.Between(200, 700),
            .bothways = chance.Between(-10, 4),
            .least = chance.Percent(95) ? 10 : 0,
            .most = chance.Percent(30) ? chance.Between(60, 90) : 90,
            .noise = noise};
}

int Part(int point, int top) {
    return std::clamp(point * 1000 / top, 0, 1000);
}

TMadeMap MakeMap(const TMapStyle &style, const TLandscape &landscape, TMapContents contents,
                 TMapKind kind, TChance &chance) {
    TMapStyle shape = style.ownAxes ? MakeStyle(chance) : style;
    const auto locationOf = [&](int location) {
        return location < 0 || contents == TMapContents::Fuel
                   ? location
                   : (location + style.timingOffset) % 256;
    };
    if (kind != TMapKind::PT && style.shortLinear)
        shape.rpms = Points(style.shortLinear, shape.rpms.front(), shape.rpms.back(), chance);
    TMadeMap map{contents, kind, {}};
    const std::vector<int> rpms = Moved(shape.rpms, style.jitter, chance);
    PutAxis(map.bytes, locationOf(style.rpmLocation), rpms, rpmTop, chance);
    std::vector<int> loads{kind == TMapKind::Idle ? 0 : loadTop};
    if (kind == TMapKind::PT) {
        loads = Moved(shape.loads, style.jitter, chance);
        PutAxis(map.bytes, locationOf(style.loadLocation), loads, loadTop, chance);
    }
    for (const int rpm : rpms)
        for (const int load : loads)
            map.bytes.push_back(static_cast<std::uint8_t>(
                landscape.At(Part(rpm, rpmTop), Part(load, loadTop), chance)));
    return map;
}

} // namespace

TMapStyle MakeStyle(TChance &chance) {
    TMapStyle style{};
    style.rpmPoints = chance.Percent(85) ? chance.Between(8, 18) : chance.Between(5, 30);
    style.loadPoints = chance.Percent(85) ? chance.Between(6, 16) : chance.Between(4, 20);
    const int first = chance.Below(20);
    const int firstRpm = first < 12   ? chance.Between(8, 30)
                         : first < 17 ? chance.Between(1, 70)
                                      : chance.Between(60, 120);
    const int last = chance.Below(10);
    const int lastRpm = last == 0  ? rpmTop
                        : last < 5 ? chance.Between(160, rpmTop)
                                   : chance.Between(130, 225);
    style.rpms = Points(style.rpmPoints, firstRpm, lastRpm, chance);
    const int firstLoad = chance.Percent(65) ? chance.Between(0, 30) : chance.Between(0, 90);
    const int lastLoad = chance.Percent(60) ? loadTop : chance.Between(160, loadTop);
    style.loads = Points(style.loadPoints, firstLoad, lastLoad, chance);
    style.jitter = chance.OneOf(std::vector<int>{0, 0, 1, 2});
    style.noise = chance.OneOf(std::vector<int>{0, 1, 1, 2, 3, 5});
    style.shortLinear = chance.Percent(20) ? chance.Between(4, 12) : 0;
    style.timingOffset = chance.Percent(8) ? 4 : 0;
    style.rpmLocation = chance.Byte();
    do
        style.loadLocation = chance.Byte();
    while (style.loadLocation == style.rpmLocation);
    return style;
}

std::vector<TMadeMap> MakeSet(const TMapStyle &style, TMapContents contents, TChance &chance) {
    const TLandscape landscape = contents == TMapContents::Fuel
                                     ? FuelLandscape(style.noise, chance)
                                     : TimingLandscape(style.noise, chance);
    std::vector<TMadeMap> maps;
    for (const TMapKind kind : {TMapKind::PT, TMapKind::Idle, TMapKind::WOT})
        maps.push_back(MakeMap(style, landscape, contents, kind, chance));
    return maps;
}

TBytes OtherRpmTable(const TMapStyle &style, TChance &chance) {
    TBytes table;
    PutAxis(table, style.rpmLocation, Moved(style.rpms, style.jitter, chance), rpmTop, chance);
    int value = chance.Byte();
    const int slope = chance.Between(-16, 16);
    for (std::size_t i = 0; i < style.rpms.size(); ++i) {
        table.push_back(static_cast<std::uint8_t>(std::clamp(value, 0, 255)));
        value += slope + chance.Between(-2, 2);
    }
    return table;
}

TMadeMap Tuned(const TMadeMap &map, TChance &chance) {
    TMadeMap tuned = map;
    const TMapPlace place =
        *PlaceAt(map.bytes, 0, map.kind == TMapKind::PT ? TMapShape::TwoD : TMapShape::Linear);
    const bool fuel = map.contents == TMapContents::Fuel;
    const int shift = chance.Between(-4, 4);
    const int from = chance.Below(static_cast<int>(place.BodySize()));
    for (std::size_t i = place.Body() + static_cast<std::size_t>(from); i < place.End(); ++i)
        tuned.bytes[i] = static_cast<std::uint8_t>(
            std::clamp(tuned.bytes[i] + shift + chance.Below(2), fuel ? 90 : 10, fuel ? 200 : 90));
    const std::size_t step = place.RpmSteps() + 1;
    if (chance.Percent(15) && place.rpmPoints > 3 && tuned.bytes[step] > 2) {
        --tuned.bytes[step]; // one point lies elsewhere
        ++tuned.bytes[step + 1];
    }
    return tuned;
}
