// What the user may set for the searches of the contents view; the key window shows it.
#pragma once

#include <cstdint>

/// -1 stands for "not specified".
struct TSearchParameters {
    std::int32_t fuelMinimum = 90;
    std::int32_t fuelMaximum = 200;
    std::int32_t timingMinimum = 10;
    std::int32_t timingMaximum = 90;
    std::int32_t rpmLocation = -1;  ///< RAM cell of the RPM reading, the first header byte of a map
    std::int32_t loadLocation = -1; ///< RAM cell of the % load reading, the second header byte
    std::uint8_t pointerMask = 15;  ///< bits of a pointer's high byte that are compared
};
