#include "ProcessUse.h"
#include "support/ThreadsWindows.h"

#include <array>
#include <cstdint>
#include <psapi.h>

namespace {
std::size_t UsedOf(HANDLE heap) {
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry))
        if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)
            bytes += entry.cbData;
    HeapUnlock(heap);
    return bytes;
}

std::size_t UsedOfAllHeaps() {
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count && i < heaps.size(); ++i)
        bytes += UsedOf(heaps[i]);
    return bytes;
}

std::size_t Resident() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.WorkingSetSize;
}

/// Handles are multiples of four.
int OpenFiles() {
    constexpr std::uintptr_t highest = 0x10000;
    int files = 0;
    for (std::uintptr_t handle = 4; handle < highest; handle += 4)
        files += GetFileType(reinterpret_cast<HANDLE>(handle)) == FILE_TYPE_DISK;
    return files;
}
} // namespace

TUse Use() {
    return {UsedOfAllHeaps() / 1024, Resident() / 1024, OpenFiles(),
            static_cast<int>(ThreadsOfThisProcess().size())};
}
