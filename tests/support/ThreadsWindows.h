// The threads of this process, as Windows tells them.
#pragma once

#include <vector>

// The second wants the first one's types.
// clang-format off
#include <windows.h>
#include <tlhelp32.h>
// clang-format on

/// Their ids.
inline std::vector<DWORD> ThreadsOfThisProcess() {
    std::vector<DWORD> ids;
    const HANDLE threads = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(threads, &entry); more; more = Thread32Next(threads, &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId())
            ids.push_back(entry.th32ThreadID);
    }
    CloseHandle(threads);
    return ids;
}
