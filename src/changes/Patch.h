// The differences of two images as a text file that people can read, and what applies one. Its
// form:
//
//   Ferrolyn patch 1
//   name FERRO32K.BIN
//   size 32768
//   sha256 64 hexadecimal digits, of the image that the patch belongs to
//   $1A2B 01 02 03 -> 04 05 06
//   end 1
//
// A line has at most bytesOfALine bytes; a longer run goes on in the next one.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// A patch that cannot be read, or does not fit an image; what() says what is wrong and where.
class EPatchError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct TPatchRun {
    std::uint32_t offset;
    std::vector<std::uint8_t> before;
    std::vector<std::uint8_t> after; ///< as many as before
    bool operator==(const TPatchRun &) const = default;
};

struct TPatch {
    std::string name;       ///< file name of the image, UTF-8, for people
    std::uint32_t size = 0; ///< of the image, in bytes
    std::string sha256;     ///< of the image before the patch: 64 lower-case hexadecimal digits
    std::vector<TPatchRun> runs; ///< from low to high offsets, not overlapping
    bool operator==(const TPatch &) const = default;
};

inline constexpr std::size_t bytesOfALine = 16;

/// What turns `before` into `after`. Both have the same length.
TPatch MakePatch(std::string name, std::string sha256, std::span<const std::uint8_t> before,
                 std::span<const std::uint8_t> after);

/// The whole file. Control characters of the name become blanks.
std::string PatchText(const TPatch &patch);

/// Reads a file; line ends may be CRLF. Throws EPatchError, naming the line, for anything that
/// PatchText does not write, a file that ends early included.
TPatch ParsePatch(std::string_view text);

/// Changes the image. Throws EPatchError and changes nothing when the image has another size, or
/// another byte than the patch expects: it names the first. Whether the image is the one whose
/// digest the patch has is for the caller to look at.
void ApplyPatch(const TPatch &patch, std::span<std::uint8_t> image);

/// What takes the patch back. It keeps the digest, which is that of its result.
TPatch Reversed(TPatch patch);
