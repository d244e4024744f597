// The streams that a process is given: whether a person reads what it writes, and in which form.
#pragma once

enum class TStream { Output, Error };

/// False for files, pipes and a stream that is closed.
bool IsTerminal(TStream stream);

/// From here on what is written reaches files and pipes byte for byte, and terminals as UTF-8.
void WriteBytes();
