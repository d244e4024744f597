// Saves the same ROM image and spec file over and over, with two contents in turn, to be killed.
//   kills_saver FOLDER ROUNDS    ROUNDS 0: until it is killed, or until nobody reads its output
// Writes one byte to its output after each round, and the error, with exit code 1, when a save
// fails.
#include "Alternating.h"
#include "spec/SpecFile.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>

namespace {

void SaveRound(const std::filesystem::path &folder, TROMImage &image, int turn) {
    const std::vector<std::uint8_t> bytes = ImageOf(turn);
    std::copy(bytes.begin(), bytes.end(), image.data.begin());
    image.size = static_cast<std::int32_t>(bytes.size());
    image.SaveToFile(folder / savedImage);
    SaveNewSpecFile(folder / savedSpec, LabelOf(turn), TFuelMapSet(), TTimingMapSet());
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3)
        return 2;
    const int rounds = std::atoi(argv[2]);
    const auto image = std::make_unique<TROMImage>();
    try {
        for (int round = 0; rounds == 0 || round < rounds; ++round) {
            SaveRound(argv[1], *image, round % 2);
            if (!(std::cout << '.' << std::flush))
                return 1; // nobody reads any more
        }
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
