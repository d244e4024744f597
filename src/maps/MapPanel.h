// One map's controls on a map page: its panel (title, offset box, grid), its chart with the buttons
// "Commit" and "Reset", the line that stands in place of a map that cannot be shown, the grid's
// menu. The chart starts with the series that it has before any map is shown: twelve for part
// throttle, one for the others. Where the panels and charts stand is MapRows.h; what the controls
// do is the page's, in Maps.h.
#pragma once

#include "maps/MapChart.h"
#include "maps/MapGrid.h"
#include "maps/MapNote.h"
#include "maps/OffsetEdit.h"
#include "maps/ValueShades.h"
#include "model/MapSets.h"

#include <array>

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QPushButton>

inline constexpr std::array allMapKinds{TMapKind::PT, TMapKind::Idle, TMapKind::WOT};

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
    const char *note;
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

class TMapPanel : public QObject {
    Q_OBJECT
public:
    /// The controls are children of `rows`, which lays them out.
    TMapPanel(QWidget &rows, const TMapPanelTraits &traits);

    const TMapPanelTraits &traits;
    QFrame *panel;
    QLabel *title;
    TOffsetEdit *offset;
    TStringAlignGrid *grid;
    TMapNote *note;
    TAreaChart *chart;
    QPushButton *commit;
    QPushButton *reset;
    QMenu *menu;
    QAction *copyAction;
    QAction *pasteAction;
    QAction *unlockAction;
    TMapGrid gridView; ///< the grid as the model sees it
    TMapChart chartView;
    TValueShades shades;

    /// Shows the map's title, which holds the page's caption, above grid and chart, the caption
    /// beside the chart, and names the controls after it for screen readers.
    void SetCaption(const QString &caption);

    /// What title and offset box need above the grid, in pixels.
    int HeadWidth() const { return panel->layout()->itemAt(0)->minimumSize().width(); }

    /// Shows why the map cannot be shown; an empty text hides the line.
    void ShowNote(const QString &text);

    /// Hides panel, line and chart whatever the fit rule says later.
    void HideForGood();

private:
    void MakePanel();
    void MakeChart();
    void MakeMenu();

    bool hiddenForGood_ = false;
};
