#include "system/ThreadEnd.h"

#include <new>
#include <utility>
#include <windows.h>

namespace {
/// One of a thread's objects, and those before it.
struct TRemoval {
    void (*remove)(void *);
    void *object;
    TRemoval *before;
};

void WINAPI RemoveAll(void *last) {
    auto *removal = static_cast<TRemoval *>(last);
    while (removal) {
        removal->remove(removal->object);
        delete std::exchange(removal, removal->before);
    }
}
} // namespace

void AtThreadEnd(void (*remove)(void *object), void *object) {
    static const DWORD slot = FlsAlloc(RemoveAll);
    auto *before = static_cast<TRemoval *>(FlsGetValue(slot));
    std::unique_ptr<TRemoval> removal(new TRemoval{remove, object, before});
    if (!FlsSetValue(slot, removal.get()))
        throw std::bad_alloc();
    removal.release();
}
