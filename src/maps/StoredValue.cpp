#include "maps/StoredValue.h"

#include "model/Messages.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"
#include "system/Texts.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <memory>

namespace {
/// A copy that took the number; none where that is refused.
std::unique_ptr<TVal> Taken(const TVal &value, double number) {
    std::unique_ptr<TVal> copy = value.CreateCopy();
    bool refused = false;
    // A refusal in words belongs to "Commit", which makes it.
    const TMessageHook hook = SetMessageHook([&](const std::string &) { refused = true; });
    try {
        copy->SetValue(number);
    } catch (const std::exception &) {
        refused = true;
    }
    SetMessageHook(hook);
    return refused ? nullptr : std::move(copy);
}

/// 249 counts of 0.4 are 99.6, though not to the last bit.
bool IsSame(double one, double other) {
    constexpr double lastBits = 1e-12;
    return std::abs(one - other) <= lastBits * std::max(std::abs(one), std::abs(other));
}

struct TWords {
    std::string before;
    std::string after;
};

std::string Words(TNoteTime time, const TWords &words, const std::string &text,
                  const std::string &shown = {}) {
    return Filled(time == TNoteTime::Before ? words.before : words.after, {text, shown});
}
} // namespace

bool CanBeStored(const TVal &value, double number) {
    return Taken(value, number) != nullptr;
}

std::string StoredNote(const TVal &value, const std::string &picture, const std::string &text,
                       TNoteTime time) {
    const std::optional<double> number = TryParseReal(text);
    if (!number)
        return {};
    const std::unique_ptr<TVal> taken = Taken(value, *number);
    if (!taken)
        return Words(time,
                     {Translated("StoredValue", "%1 cannot be stored: the old byte stays"),
                      Translated("StoredValue", "%1 could not be stored: the old byte stays")},
                     text);
    const bool fits = taken->raw == LowByte(taken->raw);
    taken->raw = LowByte(taken->raw);
    const std::string shown = FormatReal(picture, taken->GetValue());
    if (!fits)
        return Words(time,
                     {Translated("StoredValue", "%1 does not fit a byte: %2 will be stored"),
                      Translated("StoredValue", "%1 does not fit a byte: %2 was stored")},
                     text, shown);
    if (IsSame(taken->GetValue(), *number) || TryParseReal(shown) == number)
        return {};
    return Words(time,
                 {Translated("StoredValue", "%1 will be stored as %2"),
                  Translated("StoredValue", "%1 was stored as %2")},
                 text, shown);
}

std::string StoredNote(const TMap &map, int column, int row, const std::string &text,
                       TNoteTime time) {
    const TVal *value = map.data->values->GetItem(column - 1, row - 1);
    return value ? StoredNote(*value, map.GetCellFormat(), text, time) : std::string();
}

std::optional<std::int32_t> CountOf(const TVal &value, const std::string &text) {
    const std::optional<double> number = TryParseReal(text);
    const std::unique_ptr<TVal> taken = number ? Taken(value, *number) : nullptr;
    return taken ? std::optional(taken->raw) : std::nullopt;
}

std::string EntryFor(const TVal &value, const std::string &picture, std::int32_t count) {
    constexpr int mostMoreDigits = 15;
    const std::unique_ptr<TVal> wanted = value.CreateCopy();
    wanted->raw = count;
    std::string digits = picture;
    if (picture.find('.') == std::string::npos)
        digits += '.'; // shows nothing by itself
    for (int more = 0; more <= mostMoreDigits; ++more, digits += '0')
        if (std::string text = FormatReal(digits, wanted->GetValue());
            CountOf(value, text) == count)
            return text;
    return {};
}

bool StandsFor(const TVal &value, const std::string &picture, std::int32_t count,
               const std::string &text) {
    const std::optional<double> number = TryParseReal(text);
    const std::unique_ptr<TVal> counted = value.CreateCopy();
    counted->raw = count;
    return number && (IsSame(counted->GetValue(), *number) ||
                      TryParseReal(EntryFor(value, picture, count)) == number);
}
