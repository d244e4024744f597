#include "maps/CellCommands.h"

#include "forms/Commands.h"
#include "forms/Dialogs.h"
#include "maps/MapClipboard.h"
#include "maps/MapSelection.h"
#include "maps/Maps.h"
#include "model/Numbers.h"

#include <QCoreApplication>

namespace {
/// For the texts of this file.
struct TCellCommands {
    Q_DECLARE_TR_FUNCTIONS(TCellCommands)
};

/// A command that needs cells, with its keys in the grids.
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
                 .text = TCellCommands::tr("&Copy"),
                 .keys = {Qt::CTRL | Qt::Key_C},
                 .run = [&page] { CopyCells(page, false); }});
    AddForCells(page, page,
                {.name = "actCopyWithHeaders",
                 .text = TCellCommands::tr("Copy with &Headers"),
                 .keys = {Qt::CTRL | Qt::SHIFT | Qt::Key_C},
                 .run = [&page] { CopyCells(page, true); }});
    AddForCells(page, page,
                {.name = "actPaste",
                 .text = TCellCommands::tr("&Paste"),
                 .keys = {Qt::CTRL | Qt::Key_V},
                 .run = [&page] { PasteCells(page); }});
}

/// A key that empties cells in spreadsheets. It is no command, and so in no menu.
void AddDelete(TfrmMaps &page) {
    const auto say = [&page] {
        page.Say(TCellCommands::tr("Delete does nothing: a byte always has a value"));
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
    QMenu &menu = *AddCommandMenu(page, "mnuSelection", TCellCommands::tr("S&election"));
    const auto byUnits = [](int units) {
        return [units](TNumberBlock &block) { return AddUnits(block, units); };
    };
    constexpr auto control = Qt::CTRL;
    constexpr auto both = Qt::CTRL | Qt::SHIFT;
    AddChange(menu, page, "actUp", TCellCommands::tr("&Up by One Unit"), control | Qt::Key_Up,
              byUnits(1));
    AddChange(menu, page, "actDown", TCellCommands::tr("&Down by One Unit"), control | Qt::Key_Down,
              byUnits(-1));
    AddChange(menu, page, "actUpTen", TCellCommands::tr("Up by &Ten Units"), both | Qt::Key_Up,
              byUnits(10));
    AddChange(menu, page, "actDownTen", TCellCommands::tr("Down by Te&n Units"),
              both | Qt::Key_Down, byUnits(-10));
    AddCommandLine(menu);
    AddAskingChange(menu, page, "actSetTo", TCellCommands::tr("&Set to"), control | Qt::Key_E,
                    TCellCommands::tr("Number for the selected cells"), SetTo);
    AddAskingChange(menu, page, "actAdd", TCellCommands::tr("&Add"), control | Qt::Key_D,
                    TCellCommands::tr("Number to add to the selected cells"), Add);
    AddAskingChange(menu, page, "actMultiply", TCellCommands::tr("&Multiply by Percent"),
                    control | Qt::Key_M,
                    TCellCommands::tr("Percent of each selected cell, such as 105"), MultiplyBy);
    AddCommandLine(menu);
    AddChange(menu, page, "actInterpolateRows", TCellCommands::tr("Interpolate along &Rows"),
              both | Qt::Key_R, InterpolateRows);
    AddChange(menu, page, "actInterpolateColumns", TCellCommands::tr("Interpolate along Co&lumns"),
              both | Qt::Key_L, InterpolateColumns);
    AddChange(menu, page, "actInterpolateBoth", TCellCommands::tr("Interpolate along &Both"),
              both | Qt::Key_B, InterpolateBoth);
    AddChange(menu, page, "actSmooth", TCellCommands::tr("Smoot&h"), both | Qt::Key_S, Smooth);
}
} // namespace

void AddCellCommands(TfrmMaps &page) {
    AddClipboard(page);
    AddDelete(page);
    AddSelection(page);
}
