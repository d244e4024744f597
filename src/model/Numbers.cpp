#include "model/Numbers.h"

#include "system/Errors.h"
#include "system/Texts.h"
#include "system/ThreadEnd.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <initializer_list>
#include <limits>
#include <system_error>
#include <utility>

namespace {

/// As many decimal digits as every double keeps.
constexpr int significantDigits = 15;

struct TSeparator {
    std::string text = ".";
};

std::string &DecimalSeparator() {
    thread_local TSeparator *own = nullptr;
    return OfThread(own).text;
}

constexpr auto blanks = " \t";

void SkipBlanks(std::string_view &text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

bool Skip(std::string_view &text, std::string_view prefix) {
    if (!text.starts_with(prefix))
        return false;
    text.remove_prefix(prefix.size());
    return true;
}

/// Takes an optional sign; true for minus.
bool SkipSign(std::string_view &text) {
    const bool negative = Skip(text, "-");
    if (!negative)
        Skip(text, "+");
    return negative;
}

std::string_view TakeDigits(std::string_view &text) {
    const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
    text.remove_prefix(digits.size());
    return digits;
}

/// Takes an exponent, with its letter, into `plain`. False for a letter without digits.
bool TakeExponent(std::string_view &text, std::string &plain) {
    if (!Skip(text, "e") && !Skip(text, "E"))
        return true;
    plain += SkipSign(text) ? "e-" : "e";
    const std::string_view digits = TakeDigits(text);
    plain += digits;
    return !digits.empty();
}

/// The integer that `digits` and nothing else make up; hexadecimal ones are eight at most.
std::optional<std::int32_t> IntegerOf(std::string_view digits, int base, bool negative) {
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value, base);
    const bool fits =
        base == 16 ? digits.size() <= 8 : value <= (negative ? 0x80000000U : 0x7FFFFFFFU);
    if (error != std::errc{} || end != digits.end() || !fits)
        return std::nullopt;
    return static_cast<std::int32_t>(negative ? 0 - value : value);
}

/// Whether `plain`, a number with a point, with a digit other than 0 and outside a double's range,
/// is too small for it. It is too large otherwise.
bool IsTooSmall(std::string_view plain) {
    const std::size_t mark = std::min(plain.find('e'), plain.size());
    const std::string_view exponent = plain.substr(std::min(mark + 1, plain.size()));
    std::int32_t power = 0;
    const auto error = std::from_chars(exponent.begin(), exponent.end(), power).ec;
    if (error == std::errc::result_out_of_range)
        return exponent.starts_with('-');
    const auto place = [&](std::size_t at) { return static_cast<std::int64_t>(at); };
    return place(plain.find('.')) - place(plain.find_first_of("123456789")) + power <= 0;
}

/// `hexMarks` are what hexadecimal digits may follow.
std::optional<std::int32_t> ParseIntegerText(std::string_view text,
                                             std::initializer_list<std::string_view> hexMarks) {
    SkipBlanks(text);
    const bool negative = SkipSign(text);
    const bool hex = std::any_of(hexMarks.begin(), hexMarks.end(),
                                 [&](std::string_view mark) { return Skip(text, mark); });
    return IntegerOf(text, hex ? 16 : 10, negative);
}

/// A non-negative number as its first 15 decimal digits times a power of ten.
struct TDecimal {
    std::int64_t digits;
    int exponent;
};

TDecimal DecimalOf(double magnitude) {
    std::array<char, 40> buffer{};
    std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                  std::chars_format::scientific, significantDigits - 1);
    std::string text = buffer.data();
    text.erase(1, 1); // the point
    return {std::stoll(text), std::stoi(text.substr(text.find('e') + 1)) - significantDigits + 1};
}

/// The digits of a non-negative number with `decimals` of them behind its point, rounded half up
/// there.
std::string DigitsOf(double magnitude, std::size_t decimals) {
    auto [digits, exponent] = DecimalOf(magnitude);
    for (exponent += static_cast<int>(decimals); exponent < -1; ++exponent)
        digits /= 10;
    if (exponent == -1)
        digits = (digits + 5) / 10;
    std::string text = std::to_string(digits);
    text.append(static_cast<std::size_t>(std::max(exponent, 0)), '0');
    text.insert(0, decimals - std::min(decimals, text.size()), '0');
    return text;
}

/// What a picture asks for.
struct TPicture {
    std::size_t leastWhole;
    std::size_t leastDecimals;
    std::size_t mostDecimals;
};

TPicture PictureOf(std::string_view picture) {
    const std::size_t point = std::min(picture.find('.'), picture.size());
    const std::string_view whole = picture.substr(0, point);
    const std::string_view decimals = picture.substr(std::min(point + 1, picture.size()));
    const std::size_t firstZero = whole.find('0');
    const std::size_t lastZero = decimals.rfind('0');
    return {firstZero == std::string_view::npos ? 0 : whole.size() - firstZero,
            lastZero == std::string_view::npos ? 0 : lastZero + 1, decimals.size()};
}

} // namespace

std::string SetDecimalSeparator(std::string separator) {
    return std::exchange(DecimalSeparator(), std::move(separator));
}

std::optional<std::int32_t> TryRound(double value) {
    // The default rounding direction is to nearest, ties to even; the program never changes it.
    const double rounded = std::nearbyint(value);
    const bool fits = rounded >= std::numeric_limits<std::int32_t>::min() &&
                      rounded <= std::numeric_limits<std::int32_t>::max();
    return fits ? std::optional(static_cast<std::int32_t>(rounded)) : std::nullopt;
}

std::int32_t Round(double value) {
    if (const std::optional<std::int32_t> rounded = TryRound(value))
        return *rounded;
    throw ERangeError(Translated("Numbers", "The number is outside the range of a stored value"));
}

std::optional<double> TryParseReal(std::string_view text) {
    SkipBlanks(text);
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    std::string plain = SkipSign(text) ? "-" : "";
    const std::string_view whole = TakeDigits(text);
    const bool separated = Skip(text, DecimalSeparator());
    const std::string_view decimals = separated ? TakeDigits(text) : std::string_view();
    plain.append(whole).append(".").append(decimals);
    const bool digitsSeen = !whole.empty() || !decimals.empty();
    if (!digitsSeen || !TakeExponent(text, plain) || !text.empty())
        return std::nullopt;
    double value = 0.0; // stays so for what is outside a double's range
    const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    return result.ec == std::errc{} || IsTooSmall(plain) ? std::optional(value) : std::nullopt;
}

double ParseReal(std::string_view text) {
    if (const std::optional<double> value = TryParseReal(text))
        return *value;
    throw EConvertError(
        Filled(Translated("Numbers", "'%1' is not a valid floating point value"), {text}));
}

std::optional<std::int32_t> TryParseInteger(std::string_view text) {
    return ParseIntegerText(text, {"$"});
}

std::int32_t ParseInteger(std::string_view text) {
    if (const std::optional<std::int32_t> value = TryParseInteger(text))
        return *value;
    throw EConvertError(Filled(Translated("Numbers", "'%1' is not a valid integer value"), {text}));
}

std::int32_t ParseIntegerOr(std::string_view text, std::int32_t fallback) {
    return ParseIntegerText(text, {"$", "0x", "0X"}).value_or(fallback);
}

std::string FormatReal(std::string_view picture, double value) {
    if (std::isnan(value))
        return "NAN";
    if (std::isinf(value))
        return value < 0 ? "-INF" : "INF";
    const TPicture asked = PictureOf(picture);
    const std::string digits = DigitsOf(std::abs(value), asked.mostDecimals);
    std::string whole = digits.substr(0, digits.size() - asked.mostDecimals);
    std::string decimals = digits.substr(whole.size());
    whole.erase(0, whole.find_first_not_of('0'));
    if (whole.size() < asked.leastWhole)
        whole.insert(0, asked.leastWhole - whole.size(), '0');
    while (decimals.size() > asked.leastDecimals && decimals.back() == '0')
        decimals.pop_back();

    const bool zero = digits.find_first_not_of('0') == std::string::npos;
    std::string text = value < 0 && !zero ? "-" : "";
    text += whole;
    if (!decimals.empty())
        text += DecimalSeparator() + decimals;
    return text;
}

std::string FormatOffset(std::int32_t offset) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "$%04X", static_cast<unsigned>(offset));
    return text.data();
}

std::int32_t WrappingSum(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
