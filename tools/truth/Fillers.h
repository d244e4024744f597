// What stands in an image beside its maps, and in files that are no images: bytes with the
// statistics of programs, tables, texts and so on, made by chance.
#pragma once

#include "truth/Chance.h"

#include <string>

/// The kinds of filler. The last two processors stand in held-out images alone.
enum class TFiller {
    Code6800,
    Code6502,
    Code8051,
    CodeZ80,
    Scalars,     ///< single bytes and words of a calibration
    OtherTables, ///< tables with axes of their own, over temperatures and voltages
    Text,
    Constant,
    Random,
    Compressed, ///< nearly random, with copies of what stands before
    Count
};

std::string FillerName(TFiller filler);

/// `size` bytes of it.
TBytes Fill(TFiller filler, std::size_t size, TChance &chance);

/// A sensor table in the form of a map: header, count, steps, values, of chance's making.
TBytes SensorTable(std::uint8_t header, TChance &chance);
