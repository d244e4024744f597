// Makes images with the truth about them, fits how maps are found to them, and reports how well
// they are found. What for: docs/discovery.md.
#include "truth/Fit.h"
#include "truth/Report.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

constexpr const char *usage = "usage: ferrolyn_truth fit IMAGES > ScorecardPoints.cpp\n"
                              "       ferrolyn_truth report training|held-out IMAGES\n"
                              "       ferrolyn_truth show training|held-out NUMBER\n"
                              "       ferrolyn_truth find FILE...\n";

TCorpusHalf HalfOf(const std::string &name) {
    return name == "training" ? TCorpusHalf::Training : TCorpusHalf::HeldOut;
}

std::uint32_t NumberOf(const char *text) {
    return static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

void Find(const char *file) {
    std::ifstream in(file, std::ios::binary);
    TTruthImage image{file, TFlavour::NoMaps, "", {}, {}, {}, {}};
    image.bytes.assign(std::istreambuf_iterator<char>(in), {});
    image.bytes.resize(std::min<std::size_t>(image.bytes.size(), 0x100000));
    WriteFinds(std::cout, image);
}

} // namespace

int main(int argc, char **argv) {
    const std::string command = argc > 2 ? argv[1] : "";
    if (command == "fit")
        WriteFit(std::cout, NumberOf(argv[2]));
    else if (command == "report" && argc == 4)
        WriteReport(std::cout, HalfOf(argv[2]), NumberOf(argv[3]));
    else if (command == "show" && argc == 4)
        WriteFinds(std::cout, MakeTruthImage(HalfOf(argv[2]), NumberOf(argv[3])));
    else if (command == "find")
        for (int i = 2; i < argc; ++i)
            Find(argv[i]);
    else {
        std::cerr << usage;
        return 2;
    }
    return std::cout.good() ? 0 : 1;
}
