#include "truth/Fillers.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

// What follows an opcode: nothing, a constant, a RAM cell, a short branch, an address (high byte
// first or low byte first), a constant of two bytes.
struct TOpcode {
    std::uint8_t code;
    char operand; // 'n' 'i' 'd' 'b' 'e' 'l' 'w'
    int weight;
};

const std::vector<TOpcode> code6800{
    {0x86, 'i', 6}, {0x96, 'd', 9}, {0xB6, 'e', 6}, {0xC6, 'i', 4}, {0xD6, 'd', 6}, {0x97, 'd', 9},
    {0xD7, 'd', 4}, {0xB7, 'e', 5}, {0xCE, 'e', 4}, {0xDE, 'd', 4}, {0xDF, 'd', 3}, {0x4F, 'n', 3},
    {0x5F, 'n', 2}, {0x8B, 'i', 2}, {0x80, 'i', 3}, {0x81, 'i', 5}, {0x84, 'i', 4}, {0x85, 'i', 3},
    {0x26, 'b', 7}, {0x27, 'b', 7}, {0x20, 'b', 4}, {0x24, 'b', 3}, {0x25, 'b', 3}, {0xBD, 'e', 8},
    {0x39, 'n', 5}, {0x08, 'n', 2}, {0x09, 'n', 1}, {0x48, 'n', 3}, {0x44, 'n', 2}, {0x16, 'n', 2},
    {0x3D, 'n', 1}, {0x7E, 'e', 3}, {0xEE, 'i', 2}, {0xA6, 'i', 5}, {0xA7, 'i', 3}, {0x7F, 'e', 2}};
const std::vector<TOpcode> code6502{
    {0xA9, 'i', 9}, {0x85, 'd', 9}, {0xA5, 'd', 9}, {0x8D, 'l', 6}, {0xAD, 'l', 6}, {0x20, 'l', 8},
    {0x60, 'n', 5}, {0xD0, 'b', 8}, {0xF0, 'b', 7}, {0x90, 'b', 4}, {0xB0, 'b', 4}, {0x18, 'n', 3},
    {0x38, 'n', 3}, {0x69, 'i', 3}, {0xE9, 'i', 3}, {0x65, 'd', 3}, {0xE5, 'd', 3}, {0xC9, 'i', 6},
    {0xA2, 'i', 4}, {0xA0, 'i', 4}, {0xBD, 'l', 3}, {0xB1, 'd', 3}, {0x29, 'i', 4}, {0x4C, 'l', 4},
    {0xE6, 'd', 3}, {0xC6, 'd', 2}, {0x0A, 'n', 3}, {0x4A, 'n', 3}, {0xCA, 'n', 2}, {0xC8, 'n', 2}};
const std::vector<TOpcode> code8051{
    {0xE5, 'd', 9}, {0xF5, 'd', 9}, {0x74, 'i', 6}, {0x75, 'w', 6}, {0x12, 'e', 9}, {0x22, 'n', 6},
    {0x60, 'b', 5}, {0x70, 'b', 5}, {0x80, 'b', 5}, {0x90, 'e', 5}, {0xE0, 'n', 5}, {0xF0, 'n', 4},
    {0x93, 'n', 2}, {0xA3, 'n', 3}, {0x20, 'w', 4}, {0x30, 'w', 4}, {0xD2, 'd', 4}, {0xC2, 'd', 4},
    {0x54, 'i', 3}, {0x44, 'i', 2}, {0x24, 'i', 3}, {0x94, 'i', 3}, {0xC3, 'n', 3}, {0x40, 'b', 3},
    {0x50, 'b', 3}, {0xFF, 'n', 2}, {0xEF, 'n', 2}, {0xFE, 'n', 1}, {0x02, 'e', 4}, {0xB4, 'w', 2}};
const std::vector<TOpcode> codeZ80{
    {0x3E, 'i', 7}, {0x32, 'l', 6}, {0x3A, 'l', 6}, {0x21, 'l', 7}, {0x22, 'l', 3}, {0x2A, 'l', 4},
    {0x7E, 'n', 5}, {0x77, 'n', 5}, {0x23, 'n', 4}, {0xCD, 'l', 8}, {0xC9, 'n', 5}, {0x20, 'b', 6},
    {0x28, 'b', 6}, {0x18, 'b', 4}, {0xFE, 'i', 5}, {0xE6, 'i', 4}, {0xB7, 'n', 3}, {0x47, 'n', 3},
    {0x78, 'n', 3}, {0xCB, 'i', 4}, {0xDD, 'w', 3}, {0xFD, 'w', 3}, {0x06, 'i', 3}, {0x10, 'b', 2},
    {0xC5, 'n', 2}, {0xC1, 'n', 2}, {0xE5, 'n', 2}, {0xE1, 'n', 2}, {0x11, 'l', 3}, {0x19, 'n', 2}};

void AppendAddress(TBytes &bytes, bool highFirst, TChance &chance) {
    const auto high = static_cast<std::uint8_t>(chance.Percent(70) ? 0x80 + chance.Below(128) : 0);
    const std::uint8_t low = chance.Byte();
    bytes.push_back(highFirst ? high : low);
    bytes.push_back(highFirst ? low : high);
}

/// Constants of programs are small more often than not, or masks of bits.
std::uint8_t Constant(TChance &chance) {
    const int kind = chance.Below(4);
    if (kind == 0)
        return static_cast<std::uint8_t>(1 << chance.Below(8));
    return kind == 1 ? static_cast<std::uint8_t>(chance.Below(24)) : chance.Byte();
}

/// Some RAM cells are used far more often than others.
std::uint8_t RamCell(TChance &chance) {
    return static_cast<std::uint8_t>(chance.Percent(60) ? 0x40 + chance.Below(24)
                                                        : chance.Below(256));
}

void AppendOperand(TBytes &bytes, char operand, TChance &chance) {
    switch (operand) {
    case 'i':
        bytes.push_back(Constant(chance));
        break;
    case 'd':
        bytes.push_back(RamCell(chance));
        break;
    case 'b':
        bytes.push_back(static_cast<std::uint8_t>(chance.Between(-40, 40)));
        break;
    case 'w':
        bytes.push_back(RamCell(chance));
        bytes.push_back(Constant(chance));
        break;
    case 'e':
    case 'l':
        AppendAddress(bytes, operand == 'e', chance);
        break;
    default:
        break;
    }
}

/// A short rising table, as programs have them between routines.
void AppendRisingTable(TBytes &bytes, TChance &chance) {
    int value = chance.Below(40);
    for (int left = chance.Between(8, 16); left > 0; --left) {
        bytes.push_back(static_cast<std::uint8_t>(value));
        value += chance.Between(1, 12);
    }
}

TBytes Code(const std::vector<TOpcode> &opcodes, std::size_t size, TChance &chance) {
    std::vector<TOpcode> urn; // each opcode as often as its weight says
    for (const TOpcode &opcode : opcodes)
        urn.insert(urn.end(), static_cast<std::size_t>(opcode.weight), opcode);
    TBytes bytes;
    while (bytes.size() < size) {
        if (chance.Below(90) == 0)
            AppendRisingTable(bytes, chance);
        const TOpcode opcode = chance.OneOf(urn);
        bytes.push_back(opcode.code);
        AppendOperand(bytes, opcode.operand, chance);
    }
    return bytes;
}

TBytes Scalars(std::size_t size, TChance &chance) {
    TBytes bytes;
    while (bytes.size() < size) {
        const int kind = chance.Below(6);
        const int count = chance.Between(1, 12);
        const std::uint8_t byte = chance.Byte();
        for (int i = 0; i < count; ++i) {
            if (kind == 0) // switches and small counts
                bytes.push_back(static_cast<std::uint8_t>(chance.Below(32)));
            else if (kind == 1) // one value, again and again
                bytes.push_back(byte);
            else if (kind == 2) // words that resemble each other
                bytes.insert(bytes.end(), {byte, chance.Byte()});
            else if (kind == 3) // a slope
                bytes.push_back(static_cast<std::uint8_t>(byte + i * chance.Between(1, 6)));
            else
                bytes.push_back(chance.Byte());
        }
    }
    return bytes;
}

TBytes OtherTables(std::size_t size, TChance &chance) {
    TBytes bytes;
    const std::uint8_t header = chance.Byte();
    while (bytes.size() < size) {
        const TBytes table = SensorTable(chance.Percent(60) ? header : chance.Byte(), chance);
        bytes.insert(bytes.end(), table.begin(), table.end());
        const TBytes between = Scalars(static_cast<std::size_t>(chance.Below(24)), chance);
        bytes.insert(bytes.end(), between.begin(), between.end());
    }
    return bytes;
}

TBytes Text(std::size_t size, TChance &chance) {
    constexpr std::string_view letters = "eeeeeetttttaaaaooooiiiinnnnsssshhhrrrddllcumwfgypbvk";
    TBytes bytes;
    while (bytes.size() < size) {
        for (int left = chance.Between(2, 9); left > 0; --left)
            bytes.push_back(static_cast<std::uint8_t>(
                letters[static_cast<std::size_t>(chance.Below(static_cast<int>(letters.size())))]));
        const int end = chance.Below(12);
        bytes.push_back(static_cast<std::uint8_t>(end == 0 ? '\n' : end == 1 ? '.' : ' '));
    }
    return bytes;
}

TBytes Constant(std::size_t size, TChance &chance) {
    const std::vector<std::uint8_t> usual{0xFF, 0xFF, 0x00, 0x02, 0x10, 0x3F, 0xAA};
    return TBytes(size, chance.OneOf(usual));
}

TBytes Random(std::size_t size, TChance &chance) {
    TBytes bytes(size);
    for (std::uint8_t &byte : bytes)
        byte = chance.Byte();
    return bytes;
}

TBytes Compressed(std::size_t size, TChance &chance) {
    TBytes bytes = Random(64, chance);
    while (bytes.size() < size) {
        if (chance.Percent(90)) {
            bytes.push_back(chance.Byte());
            continue;
        }
        const auto from =
            static_cast<std::size_t>(chance.Below(static_cast<int>(bytes.size()) - 8));
        for (std::size_t i = 0; i < 8; ++i)
            bytes.push_back(bytes[from + i]);
    }
    return bytes;
}

struct TKind {
    const char *name;
    TBytes (*fill)(std::size_t size, TChance &chance);
};

constexpr std::array<TKind, static_cast<std::size_t>(TFiller::Count)> kinds{{
    {"code 6800", [](std::size_t size, TChance &chance) { return Code(code6800, size, chance); }},
    {"code 6502", [](std::size_t size, TChance &chance) { return Code(code6502, size, chance); }},
    {"code 8051", [](std::size_t size, TChance &chance) { return Code(code8051, size, chance); }},
    {"code Z80", [](std::size_t size, TChance &chance) { return Code(codeZ80, size, chance); }},
    {"scalars", Scalars},
    {"other tables", OtherTables},
    {"text", Text},
    {"constant", Constant},
    {"random", Random},
    {"compressed", Compressed},
}};

} // namespace

std::string FillerName(TFiller filler) {
    return kinds[static_cast<std::size_t>(filler)].name;
}

TBytes Fill(TFiller filler, std::size_t size, TChance &chance) {
    TBytes bytes = kinds[static_cast<std::size_t>(filler)].fill(size, chance);
    bytes.resize(size);
    return bytes;
}

TBytes SensorTable(std::uint8_t header, TChance &chance) {
    const int count = chance.Between(4, 16);
    TBytes bytes{header, static_cast<std::uint8_t>(count)};
    const int step = std::max(1, chance.Between(120, 255) / count);
    for (int i = 0; i < count; ++i) // a sensor's axis: often even steps
        bytes.push_back(static_cast<std::uint8_t>(
            chance.Percent(70) ? step : chance.Between(1, std::max(2, step))));
    int value = chance.Percent(60) ? chance.Between(120, 255) : chance.Below(120);
    const int slope = value > 119 ? -chance.Below(20) : chance.Below(20);
    for (int i = 0; i < count; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(std::clamp(value, 0, 255)));
        value += slope + chance.Between(-2, 2);
    }
    return bytes;
}
