// Makes images with the truth about them, fits how maps are found to them, and reports how well
// they are found. What for: docs/discovery.md.
#include "discovery/FindTexts.h"
#include "system/ReadFile.h"
#include "truth/Fit.h"
#include "truth/Moved.h"
#include "truth/Report.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

namespace {

constexpr const char *usage = "usage: ferrolyn_truth fit IMAGES > ScorecardPoints.cpp\n"
                              "       ferrolyn_truth report training|held-out IMAGES\n"
                              "       ferrolyn_truth moved training|held-out IMAGES\n"
                              "       ferrolyn_truth show training|held-out NUMBER\n"
                              "       ferrolyn_truth write training|held-out IMAGES FOLDER\n"
                              "       ferrolyn_truth find FILE...\n";

TCorpusHalf HalfOf(const std::string &name) {
    return name == "training" ? TCorpusHalf::Training : TCorpusHalf::HeldOut;
}

std::uint32_t NumberOf(const char *text) {
    return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

/// NUMBER.BIN, and NUMBER.TXT with a line for each map: offset, contents, kind, points.
void Write(TCorpusHalf half, std::uint32_t images, const std::filesystem::path &folder) {
    for (std::uint32_t i = 0; i < images; ++i) {
        const TTruthImage image = MakeTruthImage(half, i);
        const std::filesystem::path file = folder / std::to_string(i);
        std::ofstream bytes(file.string() + ".BIN", std::ios::binary);
        for (const std::uint8_t byte : image.bytes)
            bytes.put(static_cast<char>(byte));
        std::ofstream truth(file.string() + ".TXT");
        truth << "# " << image.name << ": " << FlavourName(image.flavour) << ", " << image.filler
              << "\n";
        for (const TTrueMap &map : image.maps)
            truth << KindText({.place = map.place, .contents = map.contents, .kind = map.kind})
                  << ", $" << std::hex << map.place.offset << std::dec << ", "
                  << ShapeText(map.place) << "\n";
        if (!bytes.flush() || !truth.flush())
            throw std::runtime_error("cannot write " + file.string());
    }
}

void Find(const char *file) {
    constexpr std::uint64_t most = 0x100000; // bytes; what lies behind them is left out
    TTruthImage image{file, TFlavour::NoMaps, "", {}, {}, {}, {}};
    image.bytes = ReadWholeFile(file, std::uint64_t{1} << 32);
    image.bytes.resize(std::min<std::size_t>(image.bytes.size(), most));
    WriteFinds(std::cout, image);
}

int Run(int argc, char **argv) {
    const std::string command = argc > 2 ? argv[1] : "";
    if (command == "fit")
        WriteFit(std::cout, NumberOf(argv[2]));
    else if (command == "report" && argc == 4)
        WriteReport(std::cout, HalfOf(argv[2]), NumberOf(argv[3]));
    else if (command == "moved" && argc == 4)
        WriteMovedReport(std::cout, HalfOf(argv[2]), NumberOf(argv[3]));
    else if (command == "show" && argc == 4)
        WriteFinds(std::cout, MakeTruthImage(HalfOf(argv[2]), NumberOf(argv[3])));
    else if (command == "write" && argc == 5)
        Write(HalfOf(argv[2]), NumberOf(argv[3]), argv[4]);
    else if (command == "find")
        for (int i = 2; i < argc; ++i)
            Find(argv[i]);
    else {
        std::cerr << usage;
        return 2;
    }
    return std::cout.good() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception &error) {
        std::cerr << "ferrolyn_truth: " << error.what() << "\n";
        return 1;
    }
}
