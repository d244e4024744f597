// The one in-memory copy of the control unit's EPROM contents: a fixed buffer, the length of the
// loaded file and a modified flag. What the bytes mean is the business of Values.h and Blocks.h.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

/// A ROM image. Bytes are addressed by absolute offset; offset 0 is the first byte of the file.
class TROMImage {
public:
    static constexpr std::int32_t capacity = 0x100000;
    /// The highest offset at which a typed view may start.
    static constexpr std::int32_t highestStart = capacity - 1;

    /// Set when a map is saved into the image, cleared by every file load and save.
    bool modified = false;
    std::array<std::uint8_t, capacity> data{};
    /// Length in bytes of the file last loaded; 0 at creation. Only the first `size` bytes are
    /// written to files, though views may lie behind them.
    std::int32_t size = 0;

    /// Reads a whole file to offset 0. Bytes behind a shorter file keep their contents.
    ///
    /// Throws EFileError for a file that cannot be read, is no regular file or is longer than
    /// `capacity`; image, size and modified flag are then as before.
    void LoadFromFile(const std::filesystem::path &file);

    /// Writes the first `size` bytes, safely (see WriteFileSafely).
    /// Throws EFileError; the modified flag then keeps its value.
    void SaveToFile(const std::filesystem::path &file);

    /// The byte at `offset`; 0 outside the buffer.
    std::uint8_t Peek(std::int64_t offset) const noexcept;

    /// Sets the byte at `offset`. False, and nothing changed, outside the buffer.
    bool Poke(std::int64_t offset, std::uint8_t value) noexcept;

    /// Whether the byte at `offset` is written to files.
    bool IsInFile(std::int64_t offset) const noexcept { return Contains(offset) && offset < size; }

    /// The file as it was loaded or saved last; empty before.
    std::span<const std::uint8_t> FileBytes() const noexcept { return file_; }
    /// The same bytes as they are now.
    std::span<const std::uint8_t> BytesNow() const noexcept {
        return std::span(data).first(file_.size());
    }

    /// How many bytes differ from those of the file that was loaded or saved last; 0 before.
    std::size_t BytesNotInFile() const noexcept;

    /// Whether a run of bytes may begin at `offset`, that is 0 to highestStart.
    static constexpr bool Contains(std::int64_t offset) noexcept {
        return offset >= 0 && offset < capacity;
    }

private:
    std::vector<std::uint8_t> file_; ///< its bytes, as loaded or saved last
};

/// The image in force, on which every typed view works: one for each thread, made when it is first
/// asked for; the window knows one alone. None only when a test has taken it away. The pointer is
/// good until the next ExchangeROMImage.
TROMImage *ROMImage() noexcept;

/// Puts another image, or none, in place and returns the old one; see ImageInForce.h.
std::unique_ptr<TROMImage> ExchangeROMImage(std::unique_ptr<TROMImage> image) noexcept;

/// The byte at `offset` of the image in force; 0 outside the buffer and without an image.
std::uint8_t PeekROM(std::int64_t offset) noexcept;

/// The byte that an integer is stored as: its value modulo 256.
constexpr std::uint8_t LowByte(std::int64_t value) noexcept {
    return static_cast<std::uint8_t>(value & 0xFF);
}

/// The sum of an offset and a length, at most the largest 32-bit offset.
std::int32_t OffsetBehind(std::int32_t offset, std::int32_t length) noexcept;
