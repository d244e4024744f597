// A fresh model for each test: an empty ROM image in the process's place, the timing constants
// unset, "." as decimal separator, and a recorder for the model's messages. All is put back after.
#pragma once

#include "model/ROMTypes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

inline constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
/// What the model says when it gets no memory.
inline const std::string memoryText = "Out of memory allocating data map data";

/// Swaps the model's process-wide state for a fresh one while it lives.
class TFreshModel {
public:
    TFreshModel() : oldImage_(ExchangeROMImage(std::make_unique<TROMImage>())) {
        oldHook_ = SetMessageHook([this](const std::string &text) { messages.push_back(text); });
        oldConstants_ = std::exchange(TimingConstants(), {});
        oldSeparator_ = SetDecimalSeparator(".");
    }
    TFreshModel(const TFreshModel &) = delete;
    TFreshModel &operator=(const TFreshModel &) = delete;
    ~TFreshModel() {
        ExchangeROMImage(std::move(oldImage_));
        SetMessageHook(std::move(oldHook_));
        TimingConstants() = oldConstants_;
        SetDecimalSeparator(oldSeparator_);
    }

    /// What the model has shown, in order.
    std::vector<std::string> messages;

private:
    std::unique_ptr<TROMImage> oldImage_;
    TMessageHook oldHook_;
    TTimingConstants oldConstants_;
    std::string oldSeparator_;
};

/// Base of tests that work on the model.
class TModelTest : public testing::Test {
protected:
    using TBytes = std::vector<std::uint8_t>;

    TROMImage &Image() { return *ROMImage(); }
    std::vector<std::string> &Messages() { return fresh_.messages; }

    /// Puts bytes into the image at `offset`.
    void Put(std::int32_t offset, const TBytes &bytes) {
        std::copy(bytes.begin(), bytes.end(), Image().data.begin() + offset);
    }
    /// Bytes of the image from `offset` on.
    TBytes Get(std::int32_t offset, std::int32_t count) {
        return TBytes(Image().data.begin() + offset, Image().data.begin() + offset + count);
    }
    /// Whether every byte of the image is `value`.
    bool ImageIsAll(std::uint8_t value) {
        const auto &data = Image().data;
        return data[0] == value && std::memcmp(&data[0], &data[1], data.size() - 1) == 0;
    }
    /// Writes a map: an RPM axis, a load axis when `loadSteps` has any, and a body that counts up.
    /// Returns the body's offset.
    std::int32_t PutMap(std::int32_t offset, const TBytes &rpmSteps, const TBytes &loadSteps) {
        std::int32_t place = PutAxis(offset, rpmSteps);
        if (!loadSteps.empty())
            place = PutAxis(place, loadSteps);
        const std::size_t cells = rpmSteps.size() * std::max<std::size_t>(loadSteps.size(), 1);
        for (std::size_t i = 0; i < cells; ++i)
            Image().Poke(place + static_cast<std::int32_t>(i), static_cast<std::uint8_t>(i + 1));
        return place;
    }
    /// Writes an axis with RAM location 0xA5 and returns the offset behind it.
    std::int32_t PutAxis(std::int32_t offset, const TBytes &steps) {
        TBytes bytes{0xA5, static_cast<std::uint8_t>(steps.size())};
        bytes.insert(bytes.end(), steps.begin(), steps.end());
        Put(offset, bytes);
        return offset + static_cast<std::int32_t>(bytes.size());
    }
    /// The raw counts of a block's grid, row by row.
    static std::vector<std::int32_t> RawOf(const TBlockData &block) {
        std::vector<std::int32_t> raw;
        for (std::int32_t r = 0; r < block.values->Rows(); ++r)
            for (std::int32_t c = 0; c < block.values->Columns(); ++c)
                raw.push_back(block.values->GetItem(r, c)->raw);
        return raw;
    }
    /// Takes the process's image away until the test ends.
    void RemoveImage() { ExchangeROMImage(nullptr); }

private:
    TFreshModel fresh_;
};
