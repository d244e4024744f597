// A map to look at, beside another one: a line that says which it is, and its grid with its axes,
// the cells coloured by value.
#pragma once

#include "changes/TextGrid.h"
#include "forms/Aligrid.h"
#include "maps/ValueShades.h"

#include <QLabel>
#include <QWidget>

class TMapSide : public QWidget {
    Q_OBJECT
public:
    struct TNames {
        const char *label;
        const char *grid;
        QString accessible; ///< the grid, for screen readers
        QString hint;
    };
    TMapSide(QWidget *parent, const TNames &names);

    /// A map that is not there has no cells; its grid is hidden.
    void Show(const QString &title, const TTextGrid &map);

    TStringAlignGrid *Grid() const { return grid_; }

private:
    QLabel *title_;
    TStringAlignGrid *grid_;
    TValueShades shades_;
};
