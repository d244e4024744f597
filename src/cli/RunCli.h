// Runs the command that the arguments name.
#pragma once

#include "cli/Command.h"

#include <string>
#include <vector>

/// `arguments` are UTF-8, without the program's name. Every error ends in one line on the console
/// and TExit::Wrong.
TExit RunCli(const std::vector<std::string> &arguments, TConsole &console);
