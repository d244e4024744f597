#include "model/Numbers.h"

#include "model/Errors.h"
#include "model/Texts.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>
#include <utility>

namespace {

/// As many decimal digits as every double keeps.
constexpr int significantDigits = 15;

std::string &DecimalSeparator() {
    static std::string separator = ".";
    return separator;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

void SkipBlanks(std::string_view &text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
}

bool Skip(std::string_view &text, std::string_view prefix) {
    if (prefix.empty() || !text.starts_with(prefix))
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
    std::size_t count = 0;
    while (count < text.size() && IsDigit(text[count]))
        ++count;
    const std::string_view digits = text.substr(0, count);
    text.remove_prefix(count);
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

std::optional<std::int32_t> ParseHex(std::string_view digits, bool negative) {
    constexpr std::size_t mostDigits = 8;
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value, 16);
    if (digits.size() > mostDigits || error != std::errc{} || end != digits.end())
        return std::nullopt;
    return static_cast<std::int32_t>(negative ? 0U - value : value);
}

std::optional<std::int32_t> ParseDecimal(std::string_view digits, bool negative) {
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value);
    const std::uint64_t limit = negative ? 0x80000000U : 0x7FFFFFFFU;
    if (error != std::errc{} || end != digits.end() || value > limit)
        return std::nullopt;
    const auto magnitude = static_cast<std::int64_t>(value);
    return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
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

enum class THexForms { DollarOnly, DollarAndC };

std::optional<std::int32_t> ParseIntegerText(std::string_view text, THexForms forms) {
    SkipBlanks(text);
    const bool negative = SkipSign(text);
    const bool hex = Skip(text, "$") ||
                     (forms == THexForms::DollarAndC && (Skip(text, "0x") || Skip(text, "0X")));
    return hex ? ParseHex(text, negative) : ParseDecimal(text, negative);
}

/// A non-negative number as decimal digits, the point standing behind `whole` of them.
struct TDecimal {
    std::string digits;
    int whole;
};

TDecimal DecimalOf(double magnitude) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t mark = text.find('e');
    std::string digits(text.substr(0, mark));
    digits.erase(1, 1);
    int exponent = 0;
    const char *first = text.data() + mark + 1;
    std::from_chars(*first == '+' ? first + 1 : first, end, exponent);
    return {std::move(digits), exponent + 1};
}

/// Writes leading and trailing zeros out so that `decimals` digits stand behind the point, and
/// rounds half away from zero there.
void RoundTo(TDecimal &number, int decimals) {
    if (number.whole < 0)
        number.digits.insert(0, static_cast<std::size_t>(-number.whole), '0');
    number.whole = std::max(number.whole, 0);
    const auto kept = static_cast<std::size_t>(number.whole) + static_cast<std::size_t>(decimals);
    if (kept >= number.digits.size()) {
        number.digits.resize(kept, '0');
        return;
    }
    const bool up = number.digits[kept] >= '5';
    number.digits.resize(kept);
    std::size_t i = kept;
    while (up && i > 0 && number.digits[i - 1] == '9')
        number.digits[--i] = '0';
    if (up && i > 0) {
        ++number.digits[i - 1];
    } else if (up) {
        number.digits.insert(0, 1, '1');
        ++number.whole;
    }
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
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
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
    return ParseIntegerText(text, THexForms::DollarOnly);
}

std::int32_t ParseInteger(std::string_view text) {
    if (const std::optional<std::int32_t> value = TryParseInteger(text))
        return *value;
    throw EConvertError(Filled(Translated("Numbers", "'%1' is not a valid integer value"), {text}));
}

std::int32_t ParseIntegerOr(std::string_view text, std::int32_t fallback) {
    return ParseIntegerText(text, THexForms::DollarAndC).value_or(fallback);
}

std::string FormatReal(std::string_view picture, double value) {
    if (std::isnan(value))
        return "NAN";
    if (std::isinf(value))
        return value < 0 ? "-INF" : "INF";
    const TPicture asked = PictureOf(picture);
    TDecimal number = DecimalOf(std::abs(value));
    RoundTo(number, static_cast<int>(asked.mostDecimals));

    const auto point = static_cast<std::size_t>(number.whole);
    std::string whole = number.digits.substr(0, point);
    std::string decimals = number.digits.substr(point);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() < asked.leastWhole)
        whole.insert(0, asked.leastWhole - whole.size(), '0');
    while (decimals.size() > asked.leastDecimals && decimals.back() == '0')
        decimals.pop_back();

    const bool zero = number.digits.find_first_not_of('0') == std::string::npos;
    std::string text = value < 0 && !zero ? "-" : "";
    text += whole;
    if (!decimals.empty())
        text += DecimalSeparator() + decimals;
    return text;
}

std::string FormatOffset(std::int32_t offset) {
    constexpr std::size_t leastDigits = 4;
    std::string digits;
    for (auto rest = static_cast<std::uint32_t>(offset); rest != 0 || digits.size() < leastDigits;
         rest /= 16)
        digits.insert(0, 1, "0123456789ABCDEF"[rest % 16]);
    return "$" + digits;
}
