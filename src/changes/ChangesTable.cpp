#include "changes/ChangesTable.h"

#include "model/Numbers.h"

namespace {
// No field needs quotes: none has a comma, a quote or a line end in it.
constexpr const char *tableHead = "map,what,RPM,load,old offset,new offset,old count,new count,"
                                  "old value,new value\r\n";

/// What a line says beside its byte.
struct TLineWords {
    std::string map{};
    std::string what;
    std::string rpm{};
    std::string load{};
    std::string oldValue{};
    std::string newValue{};
};

std::string Offset(std::uint32_t offset) {
    return FormatOffset(static_cast<std::int32_t>(offset));
}

std::string Line(const TLineWords &words, const TByteDifference &byte) {
    return words.map + ',' + words.what + ',' + words.rpm + ',' + words.load + ',' +
           Offset(byte.offsetBefore) + ',' + Offset(byte.offsetAfter) + ',' +
           std::to_string(byte.before) + ',' + std::to_string(byte.after) + ',' + words.oldValue +
           ',' + words.newValue + "\r\n";
}

std::string Point(const TAxisData &axis, std::int32_t point) {
    const TVal *value = std::as_const(*axis.values).GetItem(point, 0);
    return value ? FormatReal("####0", value->GetValue()) : std::string();
}

/// In engineering units; an angle without its divider is none.
std::string Value(const TMappedImage &image, TMapId id, const TCellChange &cell,
                  std::uint8_t byte) {
    if (id.set == TMapSetKind::Timing && image.Timing().divider == 0.0)
        return {};
    const TMap &map = MapOf(image.Maps(), id);
    double value = 0;
    image.InForce([&] { value = ShownValue(map, cell, byte, true); });
    return FormatReal(map.convertedFormat, value);
}

std::string MapLines(const TMapChanges &changes, const TMappedImage &before,
                     const TMappedImage &after) {
    const std::string name = EnglishMapName(changes.map);
    const TAxisSet &axes = *MapOf(after.Maps(), changes.map).axes;
    std::string lines;
    for (const TByteDifference &byte : changes.axes)
        lines += Line({.map = name, .what = "axis"}, byte);
    for (const TCellChange &cell : changes.cells)
        lines += Line({name, "cell", Point(*axes.rpmAxis, cell.rpmPoint),
                       Point(*axes.throttleAxis, cell.loadPoint),
                       Value(before, changes.map, cell, cell.byte.before),
                       Value(after, changes.map, cell, cell.byte.after)},
                      cell.byte);
    return lines;
}

std::string RevLimiterLine(const TByteDifference &limiter) {
    const auto speed = [](std::uint8_t byte) {
        TRPMVal value;
        value.raw = byte;
        return FormatReal("####0", value.GetConverted());
    };
    return Line({.what = "rev limiter",
                 .oldValue = speed(limiter.before),
                 .newValue = speed(limiter.after)},
                limiter);
}
} // namespace

std::string ChangesTable(const TImageChanges &changes, const TMappedImage &before,
                         const TMappedImage &after) {
    const TSeparatorInForce point("."); // whatever the user's language
    std::string table = tableHead;
    for (const TMapChanges &map : changes.maps)
        table += MapLines(map, before, after);
    if (changes.revLimiter)
        table += RevLimiterLine(*changes.revLimiter);
    for (const auto &[offset, length] : changes.elsewhere)
        for (std::uint32_t i = offset; i < offset + length; ++i)
            table += Line({.what = "elsewhere"}, {i, i, before.Bytes()[i], after.Bytes()[i]});
    return table;
}
