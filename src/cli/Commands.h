// The table of all commands. Each is in a file of its own, Command...cpp.
#pragma once

#include "cli/Command.h"

#include <span>

/// In the order of the help.
std::span<const TCommand> Commands();

// What declares each; see TCommand.
TRun DeclareInfo(CLI::App &app);
TRun DeclareShow(CLI::App &app);
TRun DeclareSet(CLI::App &app);
TRun DeclareAdjust(CLI::App &app);
TRun DeclareExport(CLI::App &app);
TRun DeclareImport(CLI::App &app);
TRun DeclareCopy(CLI::App &app);
TRun DeclareDiff(CLI::App &app);
TRun DeclarePatch(CLI::App &app);
TRun DeclareFind(CLI::App &app);
TRun DeclareMove(CLI::App &app);
TRun DeclareCheck(CLI::App &app);
TRun DeclareDraw(CLI::App &app);
