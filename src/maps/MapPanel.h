// One map's row on a map page: on the left its panel (title, offset box, grid), on the right its
// chart with the buttons "Commit" and "Reset". The chart starts with the series that it has before
// any map is shown: twelve for part throttle, one for the others. Only the controls and their
// places; what they do is the page's, in Maps.h.
#pragma once

#include "maps/MapChart.h"
#include "maps/MapGrid.h"
#include "maps/OffsetEdit.h"
#include "model/MapSets.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

/// What tells the three rows of a page apart: the names of their controls, the words of the title,
/// and how much of the grid is shown without scroll bars.
struct TMapPanelTraits {
    TMapKind kind;
    const char *heading; ///< title; "%1" is the page caption
    int maxRows;
    int maxColumns;
    const char *panel;
    const char *title;
    const char *offset;
    const char *grid;
    const char *chart;
    const char *commit;
    const char *reset;
    const char *menu;
    const char *copy;
    const char *paste;
    const char *unlock;
};

/// The traits of the row that shows `kind`.
const TMapPanelTraits &PanelTraits(TMapKind kind);

class TMapPanel : public QWidget {
    Q_OBJECT
public:
    TMapPanel(QWidget *parent, const TMapPanelTraits &traits);

    const TMapPanelTraits &traits;
    QFrame *panel;
    QLabel *title;
    TOffsetEdit *offset;
    TStringAlignGrid *grid;
    TAreaChart *chart;
    QPushButton *commit;
    QPushButton *reset;
    QMenu *menu;
    QAction *copyAction;
    QAction *pasteAction;
    QAction *unlockAction;
    TMapGrid gridView; ///< the grid as the model sees it
    TMapChart chartView;

    /// Shows the map's title above the grid and names the controls after it for screen readers.
    void SetTitle(const QString &text);

    /// Hides panel and chart whatever the fit rule says later, and leaves their room to the others.
    void HideForGood();

    /// Narrow enough for the smallest window: the grid then shows fewer columns at once.
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void MakePanel();
    void MakeChart();
    void MakeMenu();
};
