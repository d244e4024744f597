// Calls a handler of the grid, if there is one, with its errors shown and swallowed.
#pragma once

#include "forms/Guard.h"

#include <functional>

/// False when the handler ended with an error.
template <class... Parameters, class... Arguments>
bool Fire(const std::function<void(Parameters...)> &handler, Arguments &&...arguments) {
    return !handler || Guarded([&] { handler(std::forward<Arguments>(arguments)...); });
}
