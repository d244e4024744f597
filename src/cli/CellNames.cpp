#include "cli/CellNames.h"

#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "model/Numbers.h"

#include <cmath>
#include <optional>
#include <vector>

namespace {
constexpr double sameNumber = 1e-6; // a hundredth of a percent is the least step of an axis

[[noreturn]] void Refuse(const std::string &place, const std::string &why) {
    throw EWrongUse(place + ": " + why);
}

[[noreturn]] void RefuseForm(std::string_view text) {
    Refuse("'" + std::string(text) + "'",
           "no place in a map, such as fuel-pt[3120,56], fuel-pt[#5,#3], fuel-wot[3120] or "
           "fuel-pt.rpm[3]");
}

TPointNames ReadPoints(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return {std::string(text), std::string(text)};
    return {std::string(text.substr(0, colon)), std::string(text.substr(colon + 1))};
}

/// A point of an axis by its number alone: "3" or "#3".
TPointNames ReadNumber(std::string_view text) {
    const std::string number = (text.starts_with('#') ? "" : "#") + std::string(text);
    return {number, number};
}

/// What stands before the brackets, and in them; nothing without brackets.
struct TParts {
    std::string_view name;
    std::optional<std::string_view> inside;
};

TParts Split(std::string_view text) {
    const std::size_t open = text.find('[');
    if (open == std::string_view::npos)
        return {text, std::nullopt};
    if (!text.ends_with(']') || text.size() < open + 3)
        RefuseForm(text);
    return {text.substr(0, open), text.substr(open + 1, text.size() - open - 2)};
}

/// The points of an axis as a map's grid names them.
class TAxisPoints {
public:
    TAxisPoints(const TCellNames &names, const TAxisData &axis, int count, const char *word)
        : names_(names), axis_(axis), count_(count), word_(word) {}

    int First(const TPointNames &points) const {
        return points.first.empty() ? 1 : Find(points.first);
    }
    int Last(const TPointNames &points) const {
        return points.last.empty() ? count_ : Find(points.last);
    }

private:
    int Find(const std::string &point) const {
        return point.starts_with('#') ? ByNumber(point) : ByValue(point);
    }

    int ByNumber(const std::string &point) const {
        const std::optional<std::int32_t> number = TryParseInteger(point.substr(1));
        if (!number || *number < 1 || *number > count_)
            Refuse(names_.text, "'" + point + "' is not among the " + std::to_string(count_) + " " +
                                    word_ + " points");
        return *number;
    }

    int ByValue(std::string point) const {
        if (point.ends_with('%'))
            point.pop_back();
        std::vector<int> found = Matching(
            [&](double value) { return std::abs(value - ParsePoint(point)) < sameNumber; });
        if (found.empty())
            found = Matching([&](double value) { return FormatReal(axisPicture, value) == point; });
        if (found.empty())
            Refuse(names_.text, "no " + std::string(word_) + " point is " + point + "; there are " +
                                    AllPoints());
        if (found.size() > 1)
            Refuse(names_.text, "more than one " + std::string(word_) + " point is " + point +
                                    "; name it by its number, #" + std::to_string(found.front()));
        return found.front();
    }

    double ParsePoint(const std::string &point) const {
        if (const std::optional<double> number = TryParseReal(point))
            return *number;
        Refuse(names_.text, "'" + point + "' is no number");
    }

    std::string AllPoints() const {
        std::string all;
        for (int i = 1; i <= count_; ++i)
            all += (i > 1 ? " " : "") + FormatReal(axisPicture, Value(i));
        return all;
    }

    double Value(int number) const {
        const TVal *point = axis_.values->GetItem(number - 1, 0);
        return point ? point->GetValue() : 0;
    }

    template <class TTest>
    std::vector<int> Matching(const TTest &test) const {
        std::vector<int> found;
        for (int i = 1; i <= count_; ++i)
            if (test(Value(i)))
                found.push_back(i);
        return found;
    }

    const TCellNames &names_;
    const TAxisData &axis_;
    int count_;
    const char *word_;
};

TCellRange RangeNamed(const TCellNames &names, const TMap &map) {
    const TAxisPoints rpm(names, *map.axes->rpmAxis, map.RPMCount(), "RPM");
    const TAxisPoints load(names, *map.axes->throttleAxis, map.LoadCount(), "load");
    if (names.part == TMapPart::RpmAxis)
        return {rpm.First(names.rpm), 0, rpm.Last(names.rpm), 0};
    if (names.part == TMapPart::LoadAxis)
        return {0, load.First(names.load), 0, load.Last(names.load)};
    return {rpm.First(names.rpm), load.First(names.load), rpm.Last(names.rpm),
            load.Last(names.load)};
}
} // namespace

TCellNames ReadCellNames(std::string_view text) {
    const TParts parts = Split(text);
    const std::size_t dot = parts.name.find('.');
    TCellNames names{std::string(text), NamedMap(parts.name.substr(0, dot))};
    if (dot != std::string_view::npos) {
        const std::string_view axis = parts.name.substr(dot + 1);
        if ((axis != "rpm" && axis != "load") || !parts.inside)
            RefuseForm(text);
        names.part = axis == "rpm" ? TMapPart::RpmAxis : TMapPart::LoadAxis;
        (axis == "rpm" ? names.rpm : names.load) = ReadNumber(*parts.inside);
    } else if (parts.inside) {
        const std::size_t comma = parts.inside->find(',');
        names.rpm = ReadPoints(parts.inside->substr(0, comma));
        if ((comma == std::string_view::npos) != (names.map.kind != TMapKind::PT))
            Refuse(names.text, names.map.kind == TMapKind::PT
                                   ? "this map has two axes: MAP[RPM,LOAD]"
                                   : "this map has one axis: MAP[RPM]");
        if (comma != std::string_view::npos)
            names.load = ReadPoints(parts.inside->substr(comma + 1));
    }
    return names;
}

TCellRange CellsNamed(const TCellNames &names, const TMap &map) {
    if (names.part == TMapPart::LoadAxis && map.axisCount < 2)
        Refuse(names.text, "this map has no load axis");
    const TCellRange range = RangeNamed(names, map);
    if (range.left > range.right || range.top > range.bottom)
        Refuse(names.text, "the first point lies behind the last one");
    return range;
}

TCellRange CellNamed(const TCellNames &names, const TMap &map) {
    const TCellRange range = CellsNamed(names, map);
    if (range.left != range.right || range.top != range.bottom)
        Refuse(names.text, "more than one cell; a cell is MAP[RPM,LOAD]");
    return range;
}

std::string CellName(TMapId id, const TMap &map, int column, int row) {
    const auto point = [](const TAxisData &axis, int number) {
        const TVal *value = axis.values->GetItem(number - 1, 0);
        return value ? FormatReal(axisPicture, value->GetValue()) : std::string();
    };
    if (row == 0)
        return NameOf(id) + ".rpm[" + std::to_string(column) + "]";
    if (column == 0)
        return NameOf(id) + ".load[" + std::to_string(row) + "]";
    const std::string rpm = point(*map.axes->rpmAxis, column);
    if (map.axisCount < 2)
        return NameOf(id) + "[" + rpm + "]";
    return NameOf(id) + "[" + rpm + "," + point(*map.axes->throttleAxis, row) + "]";
}
