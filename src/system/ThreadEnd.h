// Objects that each thread has one of. A thread_local object with a destructor will not do: for
// Windows the compiler frees its memory before it is destroyed.
#pragma once

#include <memory>

/// Calls `remove` with `object` when the calling thread ends; what was asked for last comes first.
void AtThreadEnd(void (*remove)(void *object), void *object);

/// The calling thread's own object, which goes with the thread.
/// @param own  a thread_local pointer, null at first; the object is made when it still is
template <class T>
T &OfThread(T *&own) {
    if (!own) {
        auto made = std::make_unique<T>();
        AtThreadEnd([](void *object) { delete static_cast<T *>(object); }, made.get());
        own = made.release();
    }
    return *own;
}
