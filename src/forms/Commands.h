// Commands of a page beyond its buttons and context menus: each has a name, a shortcut, and a place
// in the notebook's menu (CommandMenu.h), where it is greyed while it cannot be done.
#pragma once

#include <functional>

#include <QAction>
#include <QKeySequence>
#include <QList>

class QMenu;
class QWidget;

struct TCommand {
    const char *name; ///< object name of its action
    QString text;     ///< with a mnemonic
    QList<QKeySequence> keys;
    std::function<void()> run; ///< guarded
    /// Whether it can be done now; empty: always.
    std::function<bool()> can = {};
    /// Its words now, where they change; empty: `text`.
    std::function<QString()> words = {};
    /// For one that is on or off: which it is now.
    std::function<bool()> isOn = {};
};

/// Adds a command behind those that `pane` has. Its keys work while `pane` is on the screen and its
/// window has the keyboard; while it cannot be done they do nothing.
QAction *AddCommand(QWidget &pane, const TCommand &command);

/// Adds a menu, itself a pane for commands.
QMenu *AddCommandMenu(QWidget &pane, const char *name, const QString &text);

/// Adds a line between commands.
void AddCommandLine(QWidget &pane);

/// Greys the commands of `pane` that cannot be done, and gives all of them their words and ticks of
/// now.
void UpdateCommands(const QWidget &pane);

/// Ends what UpdateCommands has greyed: a shortcut asks anew whether its command can be done.
void EnableCommands(const QWidget &pane);
