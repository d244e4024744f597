// What a command of the program is made of. Which there are: Commands.h; how one is run: RunCli.h.
#pragma once

#include "cli/Console.h"

#include <CLI/CLI.hpp>
#include <functional>

/// How a command ended: the program's exit code.
enum class TExit {
    Done = 0,
    Found = 1, ///< differences, findings, a patch that does not fit: what was asked for is so
    Wrong = 2  ///< wrong use or bad input; nothing was written
};

using TRun = std::function<TExit(TConsole &)>;

struct TCommand {
    const char *name;
    const char *summary; ///< a sentence for the list of commands
    const char *example; ///< a line to type, shown by --help
    /// Adds the command's arguments to `app`, and says what runs once they are read. That throws
    /// EWrongUse, or an error of the core, for bad input.
    TRun (*declare)(CLI::App &app);
};
