#include "system/ThreadEnd.h"

#include <utility>
#include <vector>

namespace {
struct TRemovals {
    std::vector<std::pair<void (*)(void *), void *>> list;
    ~TRemovals() {
        while (!list.empty()) {
            const auto [remove, object] = list.back();
            list.pop_back();
            remove(object);
        }
    }
};
} // namespace

void AtThreadEnd(void (*remove)(void *object), void *object) {
    thread_local TRemovals removals;
    removals.list.emplace_back(remove, object);
}
