#include "ProcessUse.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <malloc.h>
#include <unistd.h>

namespace {
int EntriesOf(const char *folder) {
    const std::filesystem::directory_iterator first(folder);
    return static_cast<int>(std::distance(begin(first), end(first)));
}
} // namespace

TUse Use() {
    const struct mallinfo2 heap = mallinfo2();
    TUse use{(heap.uordblks + heap.hblkhd) / 1024, 0, 0, 0}; // small blocks and large ones
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages; // the second number
    use.resident = pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) / 1024;
    use.files = EntriesOf("/proc/self/fd");
    use.threads = EntriesOf("/proc/self/task");
    return use;
}
