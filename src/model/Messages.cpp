#include "model/Messages.h"

#include "system/ThreadEnd.h"

#include <utility>

namespace {
TMessageHook &MessageHook() {
    thread_local TMessageHook *own = nullptr;
    return OfThread(own);
}
} // namespace

TMessageHook SetMessageHook(TMessageHook hook) {
    return std::exchange(MessageHook(), std::move(hook));
}

void ShowModelMessage(const std::string &text) {
    if (const TMessageHook &hook = MessageHook())
        hook(text);
}
