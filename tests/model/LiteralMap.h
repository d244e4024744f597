// One map as plain integers, taken from plain bytes and put back into them. It follows the stored
// form alone and shares no code with the model, so that tests can tell what the model is to do.
//
// A map at L: an axis over RPM, for two axes one over load behind it, then the body, RPM by RPM. An
// axis at A: [RAM location][n][n steps]. A grid takes counts modulo 32.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// The byte at `place`; 0 beyond both ends.
std::uint8_t ByteAt(const std::vector<std::uint8_t> &image, std::int64_t place);

/// Puts the low byte of `value` there; nothing beyond both ends.
void PutByte(std::vector<std::uint8_t> &image, std::int64_t place, std::int64_t value);

struct TLiteralAxis {
    explicit TLiteralAxis(int baseValue) : base(baseValue) {}

    int base;                         ///< in raw counts
    std::int64_t offset = 0;          ///< 0: not placed, never written
    int count = 0;                    ///< as stored
    std::vector<std::int32_t> points; ///< in raw counts, count modulo 32 of them

    void Load(const std::vector<std::uint8_t> &image, std::int64_t at);
    /// Writes the steps; nothing for a count of 0, of 32 or more, or when the axis has no place or
    /// runs over the image's end.
    void Write(std::vector<std::uint8_t> &image) const;
    std::int64_t Behind() const { return offset + count + 2; }
};

struct TLiteralMap {
    explicit TLiteralMap(bool withTwoAxes) : twoAxes(withTwoAxes) {}

    bool twoAxes;
    TLiteralAxis rpm{256};
    TLiteralAxis load{250}; ///< with two axes; else a single point that is not stored
    std::int64_t body = 0;
    int rows = 0;                    ///< RPM points of the body's grid
    int columns = 0;                 ///< load points
    std::vector<std::int32_t> cells; ///< raw counts, RPM by RPM
    bool converted = false;          ///< whether the cells are shown in engineering units

    /// Everything from the bytes at `at`, shown raw.
    void Load(const std::vector<std::uint8_t> &image, std::int64_t at);
    void Write(std::vector<std::uint8_t> &image) const;
    /// A body that has cells but starts beyond the image is never written.
    bool CannotBeWritten(const std::vector<std::uint8_t> &image) const;
    /// Takes points and cells of another map; both keep their places.
    void Paste(const TLiteralMap &copied);
    std::int32_t *Cell(int rpmPoint, int loadPoint);
    bool Fits() const { return rpm.count < 32 && load.count < 21; }
};
