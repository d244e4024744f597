// What the user may set for the searches of the contents view; the key window shows it.
#pragma once

#include <algorithm>
#include <cstdint>

/// Bytes from a minimum to a maximum. An unset minimum is no lower bound, an unset maximum and
/// crossed limits leave no byte.
class TByteRange {
public:
    TByteRange(std::int32_t minimum, std::int32_t maximum)
        : lowest_(static_cast<std::int16_t>(std::clamp(minimum, 0, 256))),
          highest_(static_cast<std::int16_t>(std::clamp(maximum, -1, 255))) {}

    /// Without a branch, which no processor could foresee on the bytes of an image.
    bool Has(std::int16_t value) const { return (value >= lowest_) & (value <= highest_); }

private:
    std::int16_t lowest_;
    std::int16_t highest_;
};

/// -1 stands for "not specified".
struct TSearchParameters {
    std::int32_t fuelMinimum = 90;
    std::int32_t fuelMaximum = 200;
    std::int32_t timingMinimum = 10;
    std::int32_t timingMaximum = 90;
    std::int32_t rpmLocation = -1;  ///< RAM cell of the RPM reading, the first header byte of a map
    std::int32_t loadLocation = -1; ///< RAM cell of the % load reading, the second header byte
    std::uint8_t pointerMask = 15;  ///< bits of a pointer's high byte that are compared

    TByteRange Fuel() const { return {fuelMinimum, fuelMaximum}; }
    TByteRange Timing() const { return {timingMinimum, timingMaximum}; }
};
