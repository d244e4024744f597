// The controls of a map page, made at once, and where they stand: the maps, one below the other,
// and a line of buttons below them. What they do is the page's, in Maps.h.
#pragma once

#include "forms/TEmbedFm.h"
#include "maps/FoldingLine.h"
#include "maps/MapRows.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPushButton>

class TMapPageControls {
    Q_DECLARE_TR_FUNCTIONS(TMapPageControls)
public:
    /// The controls belong to `page`, which outlives this.
    explicit TMapPageControls(TEmbeddedForm &page);

    QCheckBox &interpret;
    TFoldingLine &bottomLine;
    TMapRows &maps;
    QPushButton &recalculate;
    QPushButton &close;
};
