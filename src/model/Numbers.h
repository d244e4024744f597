// Numbers as text and back, and the one rounding rule. Sibling: Values.h, which decides what a
// number means.
//
// One decimal separator rules every real number that is read or shown; each thread has its own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// Sets the decimal separator (UTF-8, one character); "." until set. Returns the old one.
std::string SetDecimalSeparator(std::string separator);

/// A decimal separator that holds while it lives.
class TSeparatorInForce {
public:
    explicit TSeparatorInForce(std::string separator)
        : before_(SetDecimalSeparator(std::move(separator))) {}
    TSeparatorInForce(const TSeparatorInForce &) = delete;
    TSeparatorInForce &operator=(const TSeparatorInForce &) = delete;
    ~TSeparatorInForce() { SetDecimalSeparator(std::move(before_)); }

private:
    std::string before_;
};

/// Rounds to the nearest integer, ties to even, on the value as given (162.5 gives 162).
/// Nothing when the result does not fit 32 bits, or for NaN.
std::optional<std::int32_t> TryRound(double value);

/// As TryRound; throws ERangeError where that gives nothing.
std::int32_t Round(double value);

/// Reads a real number: blanks around, sign, digits with at most one decimal separator, exponent.
/// No "nan", "inf", hexadecimal or grouped digits. One too small for a double is 0. Nothing for any
/// other text, one too large for a double included.
std::optional<double> TryParseReal(std::string_view text);

/// As TryParseReal; throws EConvertError "'abc' is not a valid floating point value".
double ParseReal(std::string_view text);

/// Strict integer: leading blanks, sign, decimal digits or "$" and 1 to 8 hexadecimal digits
/// (wrapping to signed 32 bits). Throws EConvertError "'abc' is not a valid integer value" for
/// anything else.
std::int32_t ParseInteger(std::string_view text);

/// As ParseInteger without the throw: nothing for what is no integer.
std::optional<std::int32_t> TryParseInteger(std::string_view text);

/// Lenient integer: as ParseInteger and "0x" hexadecimal; `fallback` for anything else.
std::int32_t ParseIntegerOr(std::string_view text, std::int32_t fallback);

/// Formats with a picture of '#' and '0' and at most one '.', for example "###0.00". The digits
/// behind the point are rounded half away from zero on the decimal value (0.125 shows 0.13); never
/// "-0". The sign comes first.
std::string FormatReal(std::string_view picture, double value);

/// "$" and the offset in at least four upper-case hexadecimal digits; negative ones as 32-bit two's
/// complement.
std::string FormatOffset(std::int32_t offset);

/// The sum, wrapped to 32 bits.
std::int32_t WrappingSum(std::int32_t a, std::int32_t b);
