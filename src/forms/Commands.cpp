#include "forms/Commands.h"

#include "forms/Guard.h"

#include <utility>

#include <QMenu>

namespace {
class TCommandAction : public QAction {
public:
    TCommandAction(QWidget &pane, TCommand command)
        : QAction(command.text, &pane), command_(std::move(command)) {
        setObjectName(command_.name);
        setShortcuts(command_.keys);
        setCheckable(static_cast<bool>(command_.isOn));
        ConnectGuarded(this, &QAction::triggered, this, [this] {
            if (Can())
                command_.run();
        });
    }

    void Update() {
        setEnabled(Can());
        if (command_.words)
            setText(command_.words());
        if (command_.isOn)
            setChecked(command_.isOn());
    }

private:
    bool Can() const { return !command_.can || command_.can(); }

    TCommand command_;
};

template <class TVisit>
void ForEachCommand(const QWidget &pane, TVisit visit) {
    for (QAction *action : pane.actions())
        if (auto *command = dynamic_cast<TCommandAction *>(action))
            visit(*command);
        else if (const QMenu *menu = action->menu())
            ForEachCommand(*menu, visit);
}
} // namespace

QAction *AddCommand(QWidget &pane, const TCommand &command) {
    auto *action = new TCommandAction(pane, command);
    pane.addAction(action);
    return action;
}

QMenu *AddCommandMenu(QWidget &pane, const char *name, const QString &text) {
    auto *menu = new QMenu(text, &pane);
    menu->setObjectName(name);
    menu->setAccessibleName(QString(text).remove('&'));
    pane.addAction(menu->menuAction());
    return menu;
}

void AddCommandLine(QWidget &pane) {
    auto *line = new QAction(&pane);
    line->setSeparator(true);
    pane.addAction(line);
}

void UpdateCommands(const QWidget &pane) {
    ForEachCommand(pane, [](TCommandAction &command) { command.Update(); });
}

void EnableCommands(const QWidget &pane) {
    ForEachCommand(pane, [](TCommandAction &command) { command.setEnabled(true); });
}
