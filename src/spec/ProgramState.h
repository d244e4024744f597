// What the main window says of the state of the work: what is edited and not committed, what is
// committed and in no file, which mapping is in force, and what a save would do that nobody wants.
// Who looks at the program is StateOfWork.h; what shows the texts is StateButton.h.
#pragma once

#include "model/Workspace.h"
#include "spec/MappingChoice.h"

#include <cstddef>
#include <string>
#include <vector>

/// An edited map, or the rev limiter, and the tab of the page on which it can be committed.
struct TUncommitted {
    std::string name;
    int tab;
};

/// Cells of the six maps whose bytes "Save ROM" would change in the image although nobody has
/// committed them: without a mapping the cells stand at 0, and a pasted map stays in memory.
struct TUncommittedCells {
    std::size_t zeros = 0;  ///< that would become 0
    std::size_t others = 0; ///< that would become something else
};

/// Those of `workspace` whose bytes are part of the file.
TUncommittedCells UncommittedCells(const TWorkspace &workspace);

/// Whether "Save ROM" would write another rev limiter than that of the image.
bool RevLimiterIsUnsaved(const TFuelMapSet &maps);

struct TProgramState {
    bool loaded = false; ///< without an image nothing else counts
    std::vector<TUncommitted> edited = {};
    std::size_t unsavedBytes = 0; ///< of the image in memory that differ from its file
    bool unsavedRevLimiter = false;
    TUncommittedCells cells = {};
    TMappingType mapping = TMappingType::None;
    std::string spec = {};      ///< name of the spec file in force, without its folder
    std::string elsewhere = {}; ///< the spec's folder, where that is not the image's
};

/// In place of a tab: the page "Changes", which is added when it is called for.
inline constexpr int changesTab = -1;

/// One piece of the state.
struct TStateText {
    std::string brief;    ///< for the bottom line; may be empty
    std::string sentence; ///< for the list
    int tab = 0;          ///< of the page where something can be done about it
    bool warning = false;
};

/// Warnings come first, the mapping last.
std::vector<TStateText> StateTexts(const TProgramState &state);

/// The brief pieces on one line.
std::string StateLine(const std::vector<TStateText> &texts);
