// A look at the running program: what ProgramState.h puts into words.
#pragma once

#include "spec/ProgramState.h"

class TfrmKelvaneNotebook;
class TfrmROMInformation;

/// As it stands now. `rom` is a page of `notebook`, whose pages work on `workspace`.
TProgramState StateOfWork(const TfrmKelvaneNotebook &notebook, const TfrmROMInformation &rom,
                          const TWorkspace &workspace);
