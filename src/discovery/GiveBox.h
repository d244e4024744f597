// The buttons of the page "Find Maps" that give what was found to the notebook's maps, and the
// menu of the same with its keys.
#pragma once

#include "discovery/NotebookMaps.h"

#include <array>
#include <functional>

#include <QGroupBox>

class QPushButton;

class TGiveBox : public QGroupBox {
    Q_OBJECT
public:
    explicit TGiveBox(QWidget *parent);

    /// Also runs by key for a map that the place cannot be.
    std::function<void(const TNotebookMap &)> OnGive;
    std::function<void()> OnGiveSix;

    /// Adds the menu "Give to" to the commands of `pane`; `can` is whether there is something to
    /// give.
    void AddCommandsTo(QWidget &pane, const std::function<bool()> &can);

    /// Enables the buttons of the maps that the chosen place, if there is one, can be; the hints of
    /// the others say why not.
    void Allow(const TMapPlace *chosen);
    void AllowSix(bool allow);

    /// Why the place cannot be a map of which Takes is false.
    static QString WhyNot(const TMapPlace &place);

private:
    std::array<QPushButton *, notebookMaps.size()> buttons_{};
    QPushButton *btnGiveSix_ = nullptr;
};
