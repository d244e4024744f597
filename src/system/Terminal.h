// Whether a person reads what the process writes.
#pragma once

enum class TStream { Output, Error };

/// False for files, pipes and a stream that is closed.
bool IsTerminal(TStream stream);
