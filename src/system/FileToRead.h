// A file that is open for reading, for ReadFile.cpp, which says what a failure means.
#pragma once

#include "system/Refusal.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

/// Open as long as this object lives. All operations throw TRefusal.
class TFileToRead {
public:
    /// Never waits for a pipe. A folder is refused.
    explicit TFileToRead(const std::filesystem::path &path);
    TFileToRead(const TFileToRead &) = delete;
    TFileToRead &operator=(const TFileToRead &) = delete;
    ~TFileToRead();

    bool IsRegular() const;
    std::uint64_t Length() const;
    /// Reads on until `room` is full or the file ends; the number of bytes.
    std::size_t Read(std::span<std::uint8_t> room) const;

private:
    std::intptr_t handle_; ///< the system's
};
