#include "maps/MapCommands.h"

#include "forms/Commands.h"
#include "forms/Dialogs.h"
#include "maps/MapClipboard.h"
#include "maps/MapSelection.h"
#include "maps/Maps.h"
#include "model/Numbers.h"

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

/// A command for the cells of the grids. Its keys work in the grids, and on the page itself, where
/// "Commit" and "Reset" leave the keyboard; boxes, charts and cell editors keep these keys.
void AddForCells(QWidget &pane, TfrmMaps &page, TCommand command) {
    command.can = [&page] {
        const TMapGrid &grid = page.Panel(page.CurrentKind()).gridView;
        return grid.Visible() && grid.ColCount() > 1 && grid.RowCount() > 1;
    };
    QAction *action = AddCommand(pane, command);
    action->setShortcutContext(Qt::WidgetShortcut);
    for (const TMapKind kind : allMapKinds)
        page.Panel(kind).grid->addAction(action);
}

void AddClipboard(TfrmMaps &page) {
    AddForCells(page, page,
                {.name = "actCopy",
                 .text = TMapCommands::tr("&Copy"),
                 .keys = {Qt::CTRL | Qt::Key_C},
                 .run = [&page] { CopyCells(page, false); }});
    AddForCells(page, page,
                {.name = "actCopyWithHeaders",
                 .text = TMapCommands::tr("Copy with &Headers"),
                 .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_C},
                 .run = [&page] { CopyCells(page, true); }});
    AddForCells(page, page,
                {.name = "actPaste",
                 .text = TMapCommands::tr("&Paste"),
                 .keys = {Qt::CTRL | Qt::Key_V},
                 .run = [&page] { PasteCells(page); }});
}

/// A key that empties cells in spreadsheets. It is no command, and so in no menu.
void AddDelete(TfrmMaps &page) {
    const auto say = [&page] {
        page.Say(TMapCommands::tr("Delete does nothing: a byte always has a value"));
    };
    AddForCells(*page.Panel(TMapKind::PT).grid, page,
                {.name = "actDelete", .text = {}, .keys = {Qt::Key_Delete}, .run = say});
}

/// A command that changes the selected numbers, in the menu "Selection".
void AddChange(QMenu &menu, TfrmMaps &page, const char *name, const QString &text,
               QKeyCombination keys, const TBlockChange &change) {
    const QString step = QString(text).remove('&');
    AddForCells(menu, page,
                {.name = name, .text = text, .keys = {keys}, .run = [&page, step, change] {
                     ChangeSelection(page, step, change);
                 }});
}

/// As AddChange, with a number that is asked for first; an empty answer changes nothing.
void AddAskingChange(QMenu &menu, TfrmMaps &page, const char *name, const QString &text,
                     QKeyCombination keys, const QString &prompt,
                     std::string (*change)(TNumberBlock &, double)) {
    const QString step = QString(text).remove('&');
    const auto ask = [&page, step, prompt, change] {
        const QString answer = Dialogs().InputBox(step, prompt, {});
        if (answer.isEmpty())
            return;
        const double number = ParseReal(answer.toStdString());
        ChangeSelection(page, step, [=](TNumberBlock &block) { return change(block, number); });
    };
    AddForCells(menu, page, {.name = name, .text = text, .keys = {keys}, .run = ask});
}

void AddSelection(TfrmMaps &page) {
    using T = TMapCommands;
    QMenu &menu = *AddCommandMenu(page, "mnuSelection", T::tr("S&election"));
    const auto byUnits = [](int units) {
        return [units](TNumberBlock &block) { return AddUnits(block, units); };
    };
    constexpr auto control = Qt::CTRL;
    constexpr auto both = Qt::CTRL | Qt::SHIFT;
    AddChange(menu, page, "actUp", T::tr("&Up by One Unit"), control | Qt::Key_Up, byUnits(1));
    AddChange(menu, page, "actDown", T::tr("&Down by One Unit"), control | Qt::Key_Down,
              byUnits(-1));
    AddChange(menu, page, "actUpTen", T::tr("Up by &Ten Units"), both | Qt::Key_Up, byUnits(10));
    AddChange(menu, page, "actDownTen", T::tr("Down by Te&n Units"), both | Qt::Key_Down,
              byUnits(-10));
    AddCommandLine(menu);
    AddAskingChange(menu, page, "actSetTo", T::tr("&Set to"), control | Qt::Key_E,
                    T::tr("Number for the selected cells"), SetTo);
    AddAskingChange(menu, page, "actAdd", T::tr("&Add"), control | Qt::Key_D,
                    T::tr("Number to add to the selected cells"), Add);
    AddAskingChange(menu, page, "actMultiply", T::tr("&Multiply by Percent"), control | Qt::Key_M,
                    T::tr("Percent of each selected cell, such as 105"), MultiplyBy);
    AddCommandLine(menu);
    AddChange(menu, page, "actInterpolateRows", T::tr("Interpolate along &Rows"), both | Qt::Key_R,
              InterpolateRows);
    AddChange(menu, page, "actInterpolateColumns", T::tr("Interpolate along Co&lumns"),
              both | Qt::Key_L, InterpolateColumns);
    AddChange(menu, page, "actInterpolateBoth", T::tr("Interpolate along &Both"), both | Qt::Key_B,
              InterpolateBoth);
    AddChange(menu, page, "actSmooth", T::tr("Smoot&h"), both | Qt::Key_S, Smooth);
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
        AddClipboard(page);
        AddDelete(page);
        AddSelection(page);
        AddCommandLine(page);
    }
    AddShades(page);
}
