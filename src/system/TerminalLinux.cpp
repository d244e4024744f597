#include "system/Terminal.h"

#include <unistd.h>

bool IsTerminal(TStream stream) {
    return isatty(stream == TStream::Output ? STDOUT_FILENO : STDERR_FILENO) == 1;
}

void WriteBytes() {} // nothing else is known here
