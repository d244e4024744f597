// Lets the calls by which this process touches files fail on purpose. The library that this belongs
// to stands between the process (the toolkit and the standard library included) and the C library;
// without an injection in force every call passes untouched. Interposed.cpp holds the calls.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// What a call does to a file or folder.
enum class TCall {
    Open,
    OpenToWrite,
    Create,
    Status,
    ReadLink,
    Access,
    Read,
    Write,
    Seek,
    Truncate,
    Flush,
    Permissions,
    Owner,
    Close,
    Rename,
    Link,
    Unlink,
    List,
    Lock,
    Copy,
    MakeFolder,
};
inline constexpr std::size_t callCount = 21;

/// A set of kinds of calls.
class TCalls {
public:
    constexpr TCalls() = default;
    constexpr TCalls(std::initializer_list<TCall> calls) {
        for (const TCall call : calls)
            bits_ |= Bit(call);
    }
    static constexpr TCalls All() {
        TCalls all;
        all.bits_ = (1U << callCount) - 1;
        return all;
    }

    constexpr bool Has(TCall call) const { return (bits_ & Bit(call)) != 0; }
    constexpr bool Empty() const { return bits_ == 0; }
    constexpr void Add(TCall call) { bits_ |= Bit(call); }
    constexpr TCalls operator&(TCalls other) const { return FromBits(bits_ & other.bits_); }
    constexpr TCalls operator|(TCalls other) const { return FromBits(bits_ | other.bits_); }
    constexpr bool operator==(const TCalls &) const = default;

    /// Names with blanks between them, in the order of TCall.
    std::string Text() const;

private:
    static constexpr std::uint32_t Bit(TCall call) {
        return std::uint32_t{1} << static_cast<unsigned>(call);
    }
    static constexpr TCalls FromBits(std::uint32_t bits) {
        TCalls calls;
        calls.bits_ = bits;
        return calls;
    }

    std::uint32_t bits_ = 0;
};

/// What becomes of a call.
enum class TEffect {
    Fails,        ///< nothing is done; the error is `code`
    DoneButFails, ///< everything is done, yet the error is `code`, as over a network that breaks
                  ///< off
    Half,         ///< a read or write of half the bytes, at least one
    Nothing,      ///< a read or write of no bytes, without an error
    DiesBefore,   ///< the process is killed before the call,
    DiesAfter,    ///< behind it,
    DiesHalfWay,  ///< or, for a write, when half of the bytes are written
    ComesLate,    ///< `meanwhile` runs before the call; no call inside it is hit or counted
};

struct TFault {
    TEffect effect = TEffect::Fails;
    int code = 0; ///< errno
    TCalls calls = TCalls::All();
    bool lasting = false; ///< every later call of those kinds too
    int first = 1;        ///< which of the calls of those kinds is the first to be hit
    std::function<void()> meanwhile = {};
};

/// Whose calls count.
enum class TThreads { Own, All };

/// In force from construction to destruction, one at a time, for the calls that the constructing
/// thread, or any, makes on a file or on anything below a folder, by name or through a descriptor
/// that was opened while it was in force. Flushes of such files do not wait for the disk.
class TFaultInjection {
public:
    /// @param where   a file or folder: absolute, without symbolic links on the way
    /// @param faults  the first that hits a call counts; none: calls are only counted
    TFaultInjection(const std::filesystem::path &where, std::vector<TFault> faults,
                    TThreads threads = TThreads::Own);
    TFaultInjection(const TFaultInjection &) = delete;
    TFaultInjection &operator=(const TFaultInjection &) = delete;
    ~TFaultInjection();

    /// Kinds of the calls that were made.
    TCalls Made() const;
    /// How often the fault of that index was injected, and into which kinds of calls.
    int Hits(std::size_t fault = 0) const;
    TCalls HitCalls(std::size_t fault = 0) const;
};
