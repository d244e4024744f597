#include "model/Messages.h"

#include <utility>

namespace {
thread_local TMessageHook messageHook;
}

TMessageHook SetMessageHook(TMessageHook hook) {
    return std::exchange(messageHook, std::move(hook));
}

void ShowModelMessage(const std::string &text) {
    if (messageHook)
        messageHook(text);
}
