#include "forms/UndoCommands.h"

#include "forms/Commands.h"

#include <QCoreApplication>
#include <QUndoStack>

namespace {
/// For the texts of this file.
struct TUndoCommands {
    Q_DECLARE_TR_FUNCTIONS(TUndoCommands)
};

QString Words(const QString &step) {
    return QString(step).replace('&', "&&");
}
} // namespace

void AddUndoCommands(QWidget &pane, const QUndoStack &steps, const std::function<void()> &undo,
                     const std::function<void()> &redo) {
    const auto undoWords = [&steps] {
        return steps.canUndo() ? TUndoCommands::tr("&Undo %1").arg(Words(steps.undoText()))
                               : TUndoCommands::tr("&Undo");
    };
    const auto redoWords = [&steps] {
        return steps.canRedo() ? TUndoCommands::tr("&Redo %1").arg(Words(steps.redoText()))
                               : TUndoCommands::tr("&Redo");
    };
    AddCommand(pane, {"actUndo",
                      TUndoCommands::tr("&Undo"),
                      {Qt::CTRL | Qt::Key_Z},
                      undo,
                      [&steps] { return steps.canUndo(); },
                      undoWords});
    AddCommand(pane, {"actRedo",
                      TUndoCommands::tr("&Redo"),
                      {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y},
                      redo,
                      [&steps] { return steps.canRedo(); },
                      redoWords});
}
