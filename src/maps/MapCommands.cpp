#include "maps/MapCommands.h"

#include "forms/Commands.h"
#include "maps/CellCommands.h"
#include "maps/Maps.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TMapCommands {
    Q_DECLARE_TR_FUNCTIONS(TMapCommands)
};

void AddHistory(TfrmMaps &page) {
    const QUndoStack &steps = page.history.Stack();
    const auto undoWords = [&steps] {
        return steps.canUndo()
                   ? TMapCommands::tr("&Undo %1").arg(steps.undoText().replace('&', "&&"))
                   : TMapCommands::tr("&Undo");
    };
    const auto redoWords = [&steps] {
        return steps.canRedo()
                   ? TMapCommands::tr("&Redo %1").arg(steps.redoText().replace('&', "&&"))
                   : TMapCommands::tr("&Redo");
    };
    AddCommand(page, {"actUndo",
                      TMapCommands::tr("&Undo"),
                      {Qt::CTRL | Qt::Key_Z},
                      [&page] { page.history.Undo(); },
                      [&steps] { return steps.canUndo(); },
                      undoWords});
    AddCommand(page, {"actRedo",
                      TMapCommands::tr("&Redo"),
                      {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y},
                      [&page] { page.history.Redo(); },
                      [&steps] { return steps.canRedo(); },
                      redoWords});
}

void AddShades(TfrmMaps &page) {
    const auto toggle = [&page] {
        TValueShades::Choose(!TValueShades::Chosen());
        page.ShowShades();
    };
    AddCommand(page, {.name = "actShades",
                      .text = TMapCommands::tr("Colour by &Value"),
                      .keys = {},
                      .run = toggle,
                      .isOn = TValueShades::Chosen});
}
} // namespace

void AddMapCommands(TfrmMaps &page) {
    AddHistory(page);
    AddCommandLine(page);
    if (page.ShowsGrids()) {
        AddCellCommands(page);
        AddCommandLine(page);
    }
    AddShades(page);
}
