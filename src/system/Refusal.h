// A call that the system refused, within this room: ReadFile.h and SafeFile.h say of which file.
#pragma once

#include <string>

struct TRefusal {
    std::string reason; ///< the system's words, UTF-8
};

/// The result of `call`, whose failures become refusals. Each system has its own TFailure.
template <class TFailure, class TCall>
auto Asking(TCall call) {
    try {
        return call();
    } catch (const TFailure &failure) {
        throw TRefusal{failure.Reason()};
    }
}
