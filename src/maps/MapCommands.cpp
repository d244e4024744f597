#include "maps/MapCommands.h"

#include "forms/Commands.h"
#include "forms/UndoCommands.h"
#include "maps/CellCommands.h"
#include "maps/Maps.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TMapCommands {
    Q_DECLARE_TR_FUNCTIONS(TMapCommands)
};

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
    AddUndoCommands(
        page, page.history.Stack(), [&page] { page.history.Undo(); },
        [&page] { page.history.Redo(); });
    AddCommandLine(page);
    if (page.ShowsGrids()) {
        AddCellCommands(page);
        AddCommandLine(page);
    }
    AddShades(page);
}
