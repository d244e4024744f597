// What the fuzz targets share: an input that is taken apart from its front, and the way to say that
// something has been found.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

/// Ends the process, which makes the input that is being run a finding.
[[noreturn]] inline void Finding(const std::string &what) {
    std::fprintf(stderr, "finding: %s\n", what.c_str());
    std::abort();
}

/// A finding unless `holds`.
inline void Demand(bool holds, const std::string &what) {
    if (!holds)
        Finding(what);
}

/// Bytes as choices and texts. What the input lacks is 0, or an empty text.
class TFuzzInput {
public:
    /// The bytes are lent and must live as long as this.
    TFuzzInput(const std::uint8_t *data, std::size_t size) : next_(data), left_(size) {}

    bool Empty() const { return left_ == 0; }
    std::uint8_t Byte() {
        if (Empty())
            return 0;
        --left_;
        return *next_++;
    }
    /// 16 bits without a sign, the low byte first.
    int Word() {
        const int low = Byte();
        return low | Byte() << 8;
    }
    /// 32 bits, the low word first.
    std::int32_t Long() {
        const auto low = static_cast<std::uint32_t>(Word());
        return static_cast<std::int32_t>(low | static_cast<std::uint32_t>(Word()) << 16);
    }
    /// 0 to limit - 1; one byte is taken.
    int Below(int limit) { return Byte() % limit; }
    bool Flag() { return (Byte() & 1) != 0; }
    /// The next `most` bytes, or as many as there are.
    std::string Text(std::size_t most) {
        std::string text;
        while (text.size() < most && !Empty())
            text += static_cast<char>(Byte());
        return text;
    }
    std::string Rest() { return Text(left_); }

private:
    const std::uint8_t *next_;
    std::size_t left_;
};
