// The images that the benchmark of the searches goes through: everyday ones, and the worst that the
// searches' way of working lets one think of. They are made, not loaded, and the same at each run.
#pragma once

#include "filedisplay/Marks.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

/// An image for a map search, with the search that finds it worst.
struct TSearchImage {
    const char *name;
    TMapShape shape;
    TMapContents contents;
    /// The byte at a position; called for 0, 1, ... in this order. Each call of `bytes` starts
    /// anew.
    std::function<std::function<std::uint8_t(std::size_t position)>()> bytes;
    TSearchParameters parameters = {};
    /// One cell of so many, chosen by chance, is marked before the search; 0: none.
    unsigned markedOneIn = 0;
};

/// Bytes by chance, the same at each run.
std::vector<TCellValue> RandomCells(std::size_t count);

/// The cells of an image of `count` bytes.
std::vector<TCellValue> CellsOf(const TSearchImage &image, std::size_t count);

/// The colours of `count` cells before the search.
std::vector<TColor> ColorsOf(const TSearchImage &image, std::size_t count);

/// Every image of the map searches.
const std::vector<TSearchImage> &SearchImages();
