#include "system/Terminal.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

bool IsTerminal(TStream stream) {
    DWORD mode = 0;
    return GetConsoleMode(
               GetStdHandle(stream == TStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE),
               &mode) != 0;
}

void WriteBytes() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);
}
