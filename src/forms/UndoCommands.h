// The commands "Undo" and "Redo" of a page that keeps its steps.
#pragma once

#include <functional>

class QUndoStack;
class QWidget;

/// Adds them to `pane`, greyed while `steps` has none and worded by its next one. `steps` lives as
/// long as `pane`; what is done is `undo` and `redo`.
void AddUndoCommands(QWidget &pane, const QUndoStack &steps, const std::function<void()> &undo,
                     const std::function<void()> &redo);
