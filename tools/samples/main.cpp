// Writes the sample ROM images and spec files into the folder given.

#include "samples/SampleFiles.h"

#include <iostream>

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: ferrolyn_samples FOLDER\n";
        return 2;
    }
    return WriteSampleFiles(argv[1], std::cout, std::cerr) ? 0 : 1;
}
