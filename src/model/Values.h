// One number of the ROM image: the stored integer, where it lies, and the rule that turns it into
// an engineering value and back. Grids of values are in ValCollections.h.
//
// The conversions come from the control unit: one count is 40 rpm, 0.4 % of throttle or load, or
// 1/128 of lambda trim; ignition degrees follow the two constants of the spec file.
// Entries are never clamped: a value outside a byte is stored as its low byte.
#pragma once

#include <cstdint>
#include <memory>

/// The constants of the timing rule, degrees = (count - subtractor) * divider: those of the image
/// in force, and so of each thread. The "divider" multiplies on the way out; the name is the spec
/// files'. Both are 0 until one is read.
struct TTimingConstants {
    double divider = 0.0;
    double subtractor = 0.0;
};
TTimingConstants &TimingConstants();

class TVal;

/// A copy by the value's own class. It stands for an edit, so it starts modified.
template <class TValue>
std::unique_ptr<TVal> ModifiedCopy(const TValue &source) {
    auto copy = std::make_unique<TValue>(source);
    copy->modified = true;
    return copy;
}

/// A plain value, shown as it is stored; the base of all others.
class TVal {
public:
    TVal() = default;
    TVal(const TVal &) = default;
    TVal &operator=(const TVal &) = default;
    virtual ~TVal() = default;

    /// Set by every change, cleared by Save and by the owning block.
    bool modified = false;
    /// The stored integer; 0 to 255 after a load of a byte.
    std::int32_t raw = 0;
    /// Absolute offset in the ROM image; -1 means none.
    std::int32_t offset = -1;
    /// True: GetValue and SetValue work in engineering units; false: in stored counts.
    bool showConverted = false;

    /// The stored integer as a real number.
    virtual double GetRaw() const;
    /// Takes a number in the units that are shown, rounds it to counts (ties to even) and sets
    /// modified. Throws ERangeError outside 32 bits; nothing has changed then.
    virtual void SetValue(double value);
    /// The engineering value. Never fails.
    virtual double GetConverted() const;
    /// Takes an engineering value; as SetValue otherwise.
    virtual void SetConverted(double value);
    /// A new value of the same class with raw, offset and showConverted of this one, modified.
    virtual std::unique_ptr<TVal> CreateCopy() const { return ModifiedCopy(*this); }
    /// Gives raw and showConverted to `destination` and marks it modified; its offset stays.
    virtual void AssignTo(TVal &destination) const;
    /// Writes the value into the image by itself. False here: such values are written by their
    /// block or not at all.
    virtual bool Save() { return false; }

    /// The number in the units that are shown.
    double GetValue() const;
    /// Places the value and reads its byte, unless `newOffset` is -1 or there is no image. The
    /// modified flag stays as it was.
    void SetOffset(std::int32_t newOffset);

protected:
    /// A value of `newUnit` engineering units per count.
    explicit TVal(double newUnit) : unit_(newUnit) {}

private:
    double unit_ = 1.0;
};

/// A value of one byte that is shown converted and can write itself into the image.
class TByteVal : public TVal {
public:
    /// Writes the low byte and clears modified in any case. A place outside the buffer shows "Error
    /// saving rev limiter data", whatever the value is, and gives false; without an image false and
    /// no message.
    bool Save() override;

protected:
    explicit TByteVal(double newUnit) : TVal(newUnit) { showConverted = true; }
};

/// An engine speed: 40 rpm per count.
class TRPMVal : public TByteVal {
public:
    TRPMVal() : TByteVal(40.0) {}
    std::unique_ptr<TVal> CreateCopy() const override { return ModifiedCopy(*this); }
};

/// A throttle or load percentage: 0.4 % per count.
class TThrVal : public TByteVal {
public:
    TThrVal() : TByteVal(0.4) {}
    std::unique_ptr<TVal> CreateCopy() const override { return ModifiedCopy(*this); }
};

/// A lambda trim: 1/128 per count, 128 is 1.00.
class TFuelVal : public TVal {
public:
    TFuelVal() : TVal(1.0 / 128.0) {}
    std::unique_ptr<TVal> CreateCopy() const override { return ModifiedCopy(*this); }
};

/// An ignition angle in degrees, by the timing constants; 0.0 while the divider is 0.
class TTimingVal : public TVal {
public:
    double GetConverted() const override;
    /// Never throws: with a divider of 0 or a result outside 32 bits it shows "Timing Divider Not
    /// yet Set" and keeps raw. Modified is set in any case.
    void SetConverted(double value) override;
    std::unique_ptr<TVal> CreateCopy() const override { return ModifiedCopy(*this); }
};

/// Where a map begins: a 16-bit big-endian address in the image with a mask for its high byte, or,
/// while the offset is -1, the raw value itself.
class TMapPointerVal : public TVal {
public:
    /// ANDed to the high byte of the address.
    std::int32_t bitmask = 0;

    /// The address, read from the image at every call (0x0000 to 0xFFFF; bytes outside the buffer
    /// are 0); raw while the offset is -1.
    double GetRaw() const override;
    /// The copy keeps the bitmask and, unlike other copies, is unmodified.
    std::unique_ptr<TVal> CreateCopy() const override;
    /// Gives the bitmask too when `destination` is a map pointer.
    void AssignTo(TVal &destination) const override;
};
