#include "model/ROMImage.h"

#include "system/ReadFile.h"
#include "system/SafeFile.h"
#include "system/ThreadEnd.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace {
struct TInForce {
    std::unique_ptr<TROMImage> image = std::make_unique<TROMImage>();
};

std::unique_ptr<TROMImage> &ImageInForce() {
    thread_local TInForce *own = nullptr;
    return OfThread(own).image;
}
} // namespace

void TROMImage::LoadFromFile(const std::filesystem::path &file) {
    file_ = ReadWholeFile(file, capacity);
    std::copy(file_.begin(), file_.end(), data.begin());
    size = static_cast<std::int32_t>(file_.size());
    modified = false;
}

void TROMImage::SaveToFile(const std::filesystem::path &file) {
    const std::int32_t length = std::clamp(size, 0, capacity);
    const auto bytes = std::span(data).first(static_cast<std::size_t>(length));
    WriteFileSafely(file, bytes);
    file_.assign(bytes.begin(), bytes.end());
    modified = false;
}

std::size_t TROMImage::BytesNotInFile() const noexcept {
    std::size_t differing = 0;
    for (std::size_t i = 0; i < file_.size(); ++i)
        differing += file_[i] != data[i];
    return differing;
}

std::uint8_t TROMImage::Peek(std::int64_t offset) const noexcept {
    return Contains(offset) ? data[static_cast<std::size_t>(offset)] : std::uint8_t{0};
}

bool TROMImage::Poke(std::int64_t offset, std::uint8_t value) noexcept {
    if (!Contains(offset))
        return false;
    data[static_cast<std::size_t>(offset)] = value;
    return true;
}

TROMImage *ROMImage() noexcept {
    return ImageInForce().get();
}

std::unique_ptr<TROMImage> ExchangeROMImage(std::unique_ptr<TROMImage> image) noexcept {
    return std::exchange(ImageInForce(), std::move(image));
}

std::uint8_t PeekROM(std::int64_t offset) noexcept {
    const TROMImage *image = ROMImage();
    return image ? image->Peek(offset) : std::uint8_t{0};
}

std::int32_t OffsetBehind(std::int32_t offset, std::int32_t length) noexcept {
    const std::int64_t sum = std::int64_t{offset} + length;
    return static_cast<std::int32_t>(
        std::min<std::int64_t>(sum, std::numeric_limits<std::int32_t>::max()));
}
