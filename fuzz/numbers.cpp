// Fuzz target: numbers as texts and back. Reading is compared with a plain reader of its own
// (strtod and strtoll behind a check of the characters), showing with what is read back.
//
// The input: one byte (which separator, which picture), eight bytes of a real number, of which the
// first four are an offset as well, then the text to read.
#include "model/Numbers.h"

#include "FuzzInput.h"
#include "system/Errors.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>

namespace {

struct TPicture {
    const char *text;
    int decimals;
};
constexpr std::array<TPicture, 6> pictures{
    {{"####0", 0}, {"##0", 0}, {"###0.00", 2}, {"###0.0", 1}, {"0.00", 2}, {"0.0", 1}}};
constexpr std::array separators{".", ",", "\u066B"};

bool Consists(const std::string &text, const char *of) {
    return text.find_first_not_of(of) == std::string::npos;
}

std::string WithoutBlanks(const std::string &text, bool behind) {
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    const std::size_t last = behind ? text.find_last_not_of(" \t") + 1 : text.size();
    return text.substr(first, std::max(first, last) - first);
}

std::optional<double> LiteralReal(const std::string &shown, const std::string &separator) {
    std::string text = WithoutBlanks(shown, true);
    if (separator != "." && text.find('.') != std::string::npos)
        return std::nullopt;
    if (const std::size_t at = text.find(separator); at != std::string::npos)
        text.replace(at, separator.size(), ".");
    if (text.empty() || !Consists(text, "+-.eE0123456789"))
        return std::nullopt;
    char *end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    const bool whole = *end == '\0' && !std::isinf(value);
    return whole ? std::optional(value) : std::nullopt;
}

std::optional<std::int32_t> LiteralInteger(const std::string &shown, bool lenient) {
    std::string text = WithoutBlanks(shown, false);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.erase(0, 1);
    const bool dollar = text.starts_with('$');
    const bool hex = dollar || (lenient && (text.starts_with("0x") || text.starts_with("0X")));
    if (hex)
        text.erase(0, dollar ? 1 : 2);
    const char *digits = hex ? "0123456789abcdefABCDEF" : "0123456789";
    if (text.empty() || !Consists(text, digits) || (hex && text.size() > 8))
        return std::nullopt;
    errno = 0;
    const long long value = std::strtoll(text.c_str(), nullptr, hex ? 16 : 10);
    const long long signedValue = negative ? -value : value;
    const auto stored = static_cast<std::int32_t>(signedValue);
    return errno == 0 && (hex || stored == signedValue) ? std::optional(stored) : std::nullopt;
}

/// `parse` throws the conversion error with its text exactly where there is nothing to give.
template <class TParse>
void DemandError(TParse parse, const std::string &text, bool readable, const std::string &kind) {
    try {
        parse(text);
        Demand(readable, "no error for what is no " + kind + " value");
    } catch (const EConvertError &error) {
        Demand(!readable, "an error for what is a valid " + kind + " value");
        const std::string shown = "'" + text + "' is not a valid " + kind + " value";
        Demand(std::strcmp(error.what(), shown.c_str()) == 0, "another text of the error");
    }
}

void Read(const std::string &text, const std::string &separator) {
    const std::optional<double> real = TryParseReal(text);
    const std::optional<double> expected = LiteralReal(text, separator);
    // What is too small for a real number may be 0 or none at all.
    const bool tiny = expected && std::fabs(*expected) < std::numeric_limits<double>::min();
    Demand(real == expected || (tiny && !real), "another real number");
    DemandError(ParseReal, text, real.has_value(), "floating point");

    const std::optional<std::int32_t> integer = TryParseInteger(text);
    Demand(integer == LiteralInteger(text, false), "another integer");
    DemandError(ParseInteger, text, integer.has_value(), "integer");
    for (const std::int32_t fallback : {-1, 7})
        Demand(ParseIntegerOr(text, fallback) == LiteralInteger(text, true).value_or(fallback),
               "another lenient integer");
}

void ShowReal(const TPicture &picture, double value) {
    const std::string text = FormatReal(picture.text, value);
    const std::optional<double> read = TryParseReal(text);
    // Rounded to 15 digits, the very largest numbers lie beyond what can be read.
    Demand(read || !(std::fabs(value) < 1e308), "a shown number does not read back");
    Demand(!read || std::isfinite(value), "infinity reads back as a number");
    if (!read)
        return;
    // Half a unit of the last decimal, and what 15 digits leave of the number.
    const double rounding = 0.5 * std::pow(10.0, -picture.decimals) + std::fabs(value) * 1e-14;
    Demand(std::fabs(*read - value) <= rounding, "shown further off than rounded: " + text);
    Demand(!std::signbit(*read) || *read < 0, "a negative zero is shown: " + text);
    if (std::fabs(value) < 1e12)
        Demand(FormatReal(picture.text, *read) == text, "shown again it differs: " + text);
}

void RoundIt(double value) {
    const std::optional<std::int32_t> rounded = TryRound(value);
    const bool fits = value >= -2147483648.5 && value < 2147483647.5;
    Demand(rounded.has_value() == fits, "another range of stored integers");
    if (!rounded)
        return;
    const double off = std::fabs(*rounded - value);
    Demand(off < 0.5 || (off == 0.5 && *rounded % 2 == 0), "not rounded to nearest, ties to even");
    Demand(Round(value) == *rounded, "the two roundings differ");
}

void ShowOffset(std::int32_t offset) {
    const std::string text = FormatOffset(offset);
    Demand(ParseInteger(text) == offset, "an offset does not read back: " + text);
    Demand(ParseIntegerOr("0x" + text.substr(1), 0) == offset, "nor with 0x: " + text);
    Demand(text.size() >= 5 && Consists(text.substr(1), "0123456789ABCDEF"),
           "an offset of another form: " + text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    TFuzzInput input(data, size);
    const std::uint8_t choice = input.Byte();
    const std::string separator = separators[choice % separators.size()];
    SetDecimalSeparator(separator);
    const std::int32_t offset = input.Long();
    const std::int32_t high = input.Long();
    const auto bits = static_cast<std::uint64_t>(static_cast<std::uint32_t>(high)) << 32 |
                      static_cast<std::uint32_t>(offset);
    const auto real = std::bit_cast<double>(bits);
    const TPicture &picture = pictures[choice / separators.size() % pictures.size()];
    ShowOffset(offset);
    // The bits as they are, and a number of the size that maps hold.
    for (const double value : {real, offset / 1000.0, high / 128.0}) {
        ShowReal(picture, value);
        RoundIt(value);
    }
    Read(input.Rest(), separator);
    return 0;
}
