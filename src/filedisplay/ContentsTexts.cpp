#include "filedisplay/ContentsTexts.h"

#include "system/Texts.h"

#include <array>
#include <cstdio>

namespace {
/// "$" and at least four digits.
std::string Address(std::size_t offset) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "$%04zX", offset);
    return text.data();
}

std::string Counted(const TFound &found, const std::string &none, const std::string &one,
                    const std::string &many) {
    if (found.count == 0)
        return none;
    return Filled(found.count == 1 ? one : many,
                  {Address(found.first), std::to_string(found.count)});
}
} // namespace

std::string HexByte(TCellValue value) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "$%02X", static_cast<unsigned>(value));
    return text.data();
}

std::string FoundCells(const TFound &found) {
    return Counted(found, Translated("ContentsTexts", "No cell found"),
                   Translated("ContentsTexts", "1 cell, at %1"),
                   Translated("ContentsTexts", "%2 cells, first at %1"));
}

std::string FoundPointers(const TFound &found) {
    return Counted(found, Translated("ContentsTexts", "No pointer found"),
                   Translated("ContentsTexts", "1 pointer, at %1"),
                   Translated("ContentsTexts", "%2 pointers, first at %1"));
}

std::string FoundMaps(const TFound &found) {
    return Counted(found, Translated("ContentsTexts", "No map found"),
                   Translated("ContentsTexts", "1 map, at %1"),
                   Translated("ContentsTexts", "%2 maps, first at %1"));
}

std::string MarkedInAll(std::size_t cells, const TMapCounters &counters) {
    return Filled(
        Translated("ContentsTexts",
                   "Marked cells in all: %1; 2-D maps counted: %2, linear maps: %3"),
        {std::to_string(cells), std::to_string(counters.twoD), std::to_string(counters.linear)});
}

std::string NoMapAt(std::size_t offset, std::size_t next) {
    return Filled(Translated("ContentsTexts", "No map begins at %1; the next try is at %2"),
                  {Address(offset), Address(next)});
}

std::string NoCellIsSelected() {
    return Translated("ContentsTexts", "No cell is selected: click the cell where the map begins");
}

std::string NoImageIsLoaded() {
    return Translated("ContentsTexts", "No ROM image is loaded");
}

std::string AllMarkersAreCleared() {
    return Translated("ContentsTexts", "All markers are cleared");
}

std::string CellText(std::size_t offset, TCellValue value, const std::string &meaning) {
    const std::string text =
        value < 0 ? Translated("ContentsTexts", "Offset %1 (%2): behind the end of the image")
        : meaning.empty() ? Translated("ContentsTexts", "Offset %1 (%2), value %3 (%4)")
                          : Translated("ContentsTexts", "Offset %1 (%2), value %3 (%4): %5");
    return Filled(text, {Address(offset), std::to_string(offset), HexByte(value),
                         std::to_string(value), meaning});
}

std::string WentRound(TWay way, const std::string &cell) {
    return Filled(way == TWay::Forward ? Translated("ContentsTexts", "From the beginning again: %1")
                                       : Translated("ContentsTexts", "From the end again: %1"),
                  {cell});
}

std::string NoCellIsMarked() {
    return Translated("ContentsTexts", "No cell is marked");
}

std::string NoOffset(const std::string &text) {
    return Filled(Translated("ContentsTexts", "'%1' is no offset: type a decimal number, or $ and "
                                              "a hexadecimal one"),
                  {text});
}

std::string OutsideTheImage(const std::string &text, std::size_t size) {
    return Filled(Translated("ContentsTexts", "%1 is outside the image: offsets are %2 to %3 (%4)"),
                  {text, Address(0), Address(size - 1), std::to_string(size - 1)});
}

std::string NothingIsChangedHere() {
    return Translated("ContentsTexts",
                      "Nothing can be pasted or deleted here: this page only shows the image");
}

std::string MapName(TMapContents contents, TMapKind kind) {
    const bool fuel = contents == TMapContents::Fuel;
    switch (kind) {
    case TMapKind::PT:
        return fuel ? Translated("TFileMenu", "Fuel Maps - Part Throttle")
                    : Translated("TFileMenu", "Timing Maps - Part Throttle");
    case TMapKind::Idle:
        return fuel ? Translated("TFileMenu", "Fuel Maps - Idle")
                    : Translated("TFileMenu", "Timing Maps - Idle");
    case TMapKind::WOT:
        break;
    }
    return fuel ? Translated("TFileMenu", "Fuel Maps - WOT")
                : Translated("TFileMenu", "Timing Maps - WOT");
}

std::string MovedTo(TMapContents contents, TMapKind kind, std::int32_t address) {
    const std::string place = Address(static_cast<std::size_t>(address));
    if (address == 0)
        return Filled(Translated("ContentsTexts", "%1 was not moved: no map begins at %2"),
                      {MapName(contents, kind), place});
    return Filled(Translated("ContentsTexts", "%1 is at %2 now"), {MapName(contents, kind), place});
}
