#include "samples/SampleImage.h"

#include <cstddef>
#include <random>

namespace {

// The standard fixes mt19937's raw output for a seed; its distributions are left to the library, so
// they are not used here.
using TRandom = std::mt19937;

constexpr std::uint8_t rpmRamLocation = 0x4A;
constexpr std::uint8_t loadRamLocation = 0x4C;
constexpr int rpmTop = 256;
constexpr int loadTop = 250;
constexpr int firstRpm = 15;  // 600 rpm
constexpr int lastRpm = 190;  // 7,600 rpm
constexpr int firstLoad = 10; // 4 %
constexpr std::uint32_t vectorBytes = 32;

int Below(TRandom &random, int limit) {
    return static_cast<int>(random() % static_cast<std::uint32_t>(limit));
}

std::uint8_t Byte(int value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}

struct TOpcode {
    std::uint8_t code;
    char operand; // 'n' none, 'i' constant, 'd' RAM cell, 'b' short branch, 'e' bus address
};

// Opcodes of a small 8-bit accumulator machine, the commoner ones more than once.
constexpr TOpcode opcodes[] = {
    {0x86, 'i'}, {0x96, 'd'}, {0x96, 'd'}, {0xB6, 'e'}, {0xC6, 'i'}, {0xD6, 'd'}, {0x97, 'd'},
    {0x97, 'd'}, {0xD7, 'd'}, {0xCE, 'e'}, {0xDE, 'd'}, {0xDF, 'd'}, {0x4F, 'n'}, {0x5F, 'n'},
    {0x8B, 'i'}, {0x80, 'i'}, {0x81, 'i'}, {0x84, 'i'}, {0x26, 'b'}, {0x27, 'b'}, {0x20, 'b'},
    {0x24, 'b'}, {0x25, 'b'}, {0xBD, 'e'}, {0xBD, 'e'}, {0x39, 'n'}, {0x08, 'n'}, {0x09, 'n'},
    {0x48, 'n'}, {0x16, 'n'}, {0x3D, 'n'}, {0x7E, 'e'}, {0xEE, 'i'}, {0xA6, 'i'},
};

void PutWord(std::vector<std::uint8_t> &bytes, std::size_t at, std::uint32_t word) {
    bytes[at] = Byte(static_cast<int>(word >> 8));
    bytes[at + 1] = Byte(static_cast<int>(word));
}

void AppendInstruction(std::vector<std::uint8_t> &code, const TSamplePlan &plan, TRandom &random) {
    const TOpcode &opcode = opcodes[Below(random, static_cast<int>(std::size(opcodes)))];
    code.push_back(opcode.code);
    if (opcode.operand == 'i')
        code.push_back(Byte(Below(random, 256)));
    else if (opcode.operand == 'd')
        code.push_back(Byte(0x40 + Below(random, 0xC0)));
    else if (opcode.operand == 'b')
        code.push_back(Byte(Below(random, 64) - 32));
    else if (opcode.operand == 'e') {
        const int address = Below(random, static_cast<int>(plan.codeEnd));
        code.resize(code.size() + 2);
        PutWord(code, code.size() - 2, plan.cpuBase + static_cast<std::uint32_t>(address));
    }
}

// Routines and, now and then, a short rising table such as a sensor's linearisation.
std::vector<std::uint8_t> Code(const TSamplePlan &plan, TRandom &random) {
    std::vector<std::uint8_t> code;
    while (code.size() < plan.codeEnd) {
        if (Below(random, 80) != 0) {
            AppendInstruction(code, plan, random);
            continue;
        }
        const int count = 8 + Below(random, 9);
        int value = Below(random, 40);
        for (int i = 0; i < count; ++i, value += 1 + Below(random, 12))
            code.push_back(Byte(value));
    }
    code.resize(plan.codeEnd);
    return code;
}

// Moves inner points a little, so that no two maps share an axis; the steps stay positive.
void Jitter(std::vector<int> &points, TRandom &random) {
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        points[i] += Below(random, 3) - 1;
}

std::vector<int> RpmPoints(TRandom &random) {
    constexpr int steps[sampleRpmPoints - 1] = {5,  5,  8,  10, 10, 12, 12, 12,
                                                13, 13, 13, 14, 14, 16, 18};
    std::vector<int> points{firstRpm};
    for (const int step : steps)
        points.push_back(points.back() + step);
    Jitter(points, random);
    return points;
}

std::vector<int> LoadPoints(int count, TRandom &random) {
    std::vector<int> points;
    points.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        points.push_back(firstLoad + (loadTop - firstLoad) * i / (count - 1));
    Jitter(points, random);
    return points;
}

// Trim is a factor on the injected fuel: more at high load and a little more at mid speed.
int FuelCell(int rpm, int load, TRandom &random) {
    const int byLoad = 22 * load / loadTop;
    const int bySpeed = 8 * (rpm - firstRpm) * (lastRpm - rpm) / 7656;
    return 111 + byLoad + bySpeed + Below(random, 2);
}

// Advance grows with speed and is taken back at high load.
int TimingCell(int rpm, int load, TRandom &random) {
    const int bySpeed = 34 * (rpm - firstRpm) / (lastRpm - firstRpm);
    const int byLoad = 12 * load / loadTop;
    return 38 + bySpeed - byLoad + Below(random, 2);
}

std::size_t PutAxis(std::vector<std::uint8_t> &bytes, std::size_t at, std::uint8_t ramLocation,
                    const std::vector<int> &points, int top) {
    bytes[at++] = ramLocation;
    bytes[at++] = Byte(static_cast<int>(points.size()));
    for (std::size_t i = 0; i < points.size(); ++i)
        bytes[at++] = Byte((i + 1 < points.size() ? points[i + 1] : top) - points[i]);
    return at;
}

void PutMap(std::vector<std::uint8_t> &bytes, const TSamplePlan &plan, int map, TRandom &random) {
    const bool isFuel = map < smTimingPT;
    const bool isPartThrottle = map == smFuelPT || map == smTimingPT;
    const bool isIdle = map == smFuelIdle || map == smTimingIdle;

    std::size_t at = plan.maps[static_cast<std::size_t>(map)];
    const std::vector<int> rpms = RpmPoints(random);
    at = PutAxis(bytes, at, rpmRamLocation, rpms, rpmTop);
    std::vector<int> loads{isIdle ? 0 : loadTop};
    if (isPartThrottle) {
        loads = LoadPoints(isFuel ? plan.fuelLoadPoints : plan.timingLoadPoints, random);
        at = PutAxis(bytes, at, loadRamLocation, loads, loadTop);
    }
    for (const int rpm : rpms)
        for (const int load : loads)
            bytes[at++] =
                Byte(isFuel ? FuelCell(rpm, load, random) : TimingCell(rpm, load, random));
}

void PutVectors(std::vector<std::uint8_t> &bytes, const TSamplePlan &plan, TRandom &random) {
    for (std::uint32_t at = plan.size - vectorBytes; at < plan.size; at += 2) {
        const int address = Below(random, static_cast<int>(plan.codeEnd));
        PutWord(bytes, at, plan.cpuBase + static_cast<std::uint32_t>(address));
    }
}

} // namespace

const TSamplePlan &Sample32K() {
    static const TSamplePlan plan{
        .seed = 32768,
        .size = 0x8000,
        .cpuBase = 0x8000,
        .codeEnd = 0x7400,
        .pointerTable = 0x0210,
        .revLimiter = 0x01F0,
        .revLimit = 170, // 6,800 rpm
        .maps = {0x6000, 0x6100, 0x6140, 0x6200, 0x6300, 0x6340},
        .fuelLoadPoints = 12,
        .timingLoadPoints = 10,
    };
    return plan;
}

const TSamplePlan &Sample64K() {
    static const TSamplePlan plan{
        .seed = 65536,
        .size = 0x10000,
        .cpuBase = 0x0000,
        .codeEnd = 0xF000,
        .pointerTable = 0x2C40,
        .revLimiter = 0x2C38,
        .revLimit = 180, // 7,200 rpm
        .maps = {0xB2C6, 0xB406, 0xB43D, 0xC91A, 0xC8D0, 0xCA04},
        .fuelLoadPoints = 12,
        .timingLoadPoints = 8,
    };
    return plan;
}

std::vector<std::uint8_t> BuildSampleImage(const TSamplePlan &plan) {
    TRandom random(plan.seed);
    std::vector<std::uint8_t> bytes = Code(plan, random);
    bytes.resize(plan.size, 0xFF);
    for (int map = 0; map < sampleMapCount; ++map) {
        const auto index = static_cast<std::size_t>(map);
        PutWord(bytes, plan.pointerTable + 2 * index, plan.cpuBase + plan.maps[index]);
        PutMap(bytes, plan, map, random);
    }
    bytes[plan.revLimiter] = plan.revLimit;
    PutVectors(bytes, plan, random);
    return bytes;
}
