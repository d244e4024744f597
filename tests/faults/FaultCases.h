// What can go wrong with a file call, and the loop that lets it go wrong in the first call of an
// operation, then in the second, until the operation ends without meeting the fault.
#pragma once

#include "inject/FaultInjection.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

struct TFaultCase {
    const char *name;
    TFault fault;
    /// Must not be seen by the user at all.
    bool harmless = false;
};

inline std::vector<TFaultCase> FaultCases() {
    using enum TCall;
    using enum TEffect;
    constexpr TCalls taking{Create, Write, Flush, Truncate, Rename, Link, Copy, MakeFolder};
    constexpr TCalls names{Open,   OpenToWrite, Create, Status, ReadLink,  Access,
                           Rename, Link,        Unlink, List,   MakeFolder};
    constexpr TCalls rights{OpenToWrite, Create, Permissions, Owner, Rename, Link, Unlink, Lock};
    constexpr TCalls changing{OpenToWrite, Create, Access, Permissions,
                              Rename,      Link,   Unlink, MakeFolder};
    constexpr TCalls waiting{Open,     OpenToWrite, Create,      Read,  Write, Flush,
                             Truncate, Lock,        Permissions, Owner, Close};
    constexpr TCalls late{Truncate, Flush, Permissions, Owner, Close, Rename, Link, Unlink};
    return {
        {"io_error", {Fails, EIO}},
        {"io_error_for_good", {Fails, EIO, TCalls::All(), true}},
        {"stale_handle", {Fails, ESTALE}},
        {"disk_full", {Fails, ENOSPC, taking}},
        {"disk_full_for_good", {Fails, ENOSPC, taking, true}},
        {"over_quota", {Fails, EDQUOT, taking | TCalls{Close}}},
        {"over_quota_for_good", {Fails, EDQUOT, taking | TCalls{Close}, true}},
        {"no_permission", {Fails, EACCES, names}},
        {"no_permission_for_good", {Fails, EACCES, names, true}},
        {"not_allowed", {Fails, EPERM, rights}},
        {"not_allowed_for_good", {Fails, EPERM, rights, true}},
        {"read_only", {Fails, EROFS, changing}},
        {"read_only_for_good", {Fails, EROFS, changing, true}},
        {"too_many_files", {Fails, EMFILE, {Open, OpenToWrite, Create, List}}},
        {"no_memory", {Fails, ENOMEM}},
        {"interrupted", {Fails, EINTR, waiting}, true},
        {"half_moves", {Half, 0, {Read, Write}}, true},
        {"half_moves_for_good", {Half, 0, {Read, Write}, true}, true},
        {"no_moves", {Nothing, 0, {Read, Write}}},
        {"no_moves_for_good", {Nothing, 0, {Read, Write}, true}},
        {"done_but_failed", {DoneButFails, EIO, late}},
        {"done_but_failed_for_good", {DoneButFails, EIO, late, true}},
    };
}

inline std::string ReasonOf(int code) {
    return std::generic_category().message(code);
}

/// One run of an operation with a fault.
struct TOutcome {
    int hits = 0;
    TCalls calls; ///< kinds that were hit
    bool failed = false;
};

struct TSweep {
    int faults = 0;
    TCalls calls;   ///< kinds that were hit in any run
    TCalls failing; ///< kinds that were hit in a run that failed
};

/// Calls `attempt(fault)`, which returns a TOutcome, with the fault in the first call, the second
/// and so on. The runs stop at the first one without a hit, which must be without a failure too.
template <class TAttempt>
TSweep Sweep(TFault fault, TAttempt attempt) {
    constexpr int mostCalls = 1000;
    TSweep sweep;
    for (fault.first = 1; fault.first <= mostCalls; ++fault.first) {
        SCOPED_TRACE("fault in call " + std::to_string(fault.first));
        const TOutcome outcome = attempt(fault);
        if (outcome.hits == 0) {
            EXPECT_FALSE(outcome.failed) << "an error without a fault";
            testing::Test::RecordProperty("faults", sweep.faults);
            return sweep;
        }
        sweep.faults += outcome.hits;
        sweep.calls = sweep.calls | outcome.calls;
        if (outcome.failed)
            sweep.failing = sweep.failing | outcome.calls;
    }
    ADD_FAILURE() << "the operation does not come to an end";
    return sweep;
}
