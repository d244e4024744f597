// The page that shows and edits one map set: part throttle, idle and full throttle map, each as a
// grid beside its chart. Never used by itself: FuelMaps.h, TimingMaps.h and MapsGraphical.h derive
// from it. All editing happens on the grids' texts; the maps are touched when a grid is loaded,
// committed or reset.
#pragma once

#include "forms/TEmbedFm.h"
#include "maps/MapHistory.h"
#include "maps/MapPageControls.h"
#include "maps/StoredValue.h"
#include "model/Workspace.h"

#include <memory>
#include <optional>

#include <QPointer>

class TfrmToolWindow;

/// A text for a cell of a grid.
struct TCellText {
    int column;
    int row;
    QString text;
};

class TfrmMaps : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `mapSet` and `workspace` outlive the page.
    TfrmMaps(QWidget *parent, TWorkspace &workspace, TMapSet &mapSet);
    ~TfrmMaps() override;

    TMapSet *MapSet;          ///< the set shown
    bool PTChanged = false;   ///< the part throttle grid holds uncommitted edits
    bool IdleChanged = false; ///< the idle grid does
    bool FTChanged = false;   ///< the full throttle grid does
    long double EditOldValue =
        0; ///< the number in the cell whose edit began last; nothing reads it
    QPointer<TfrmToolWindow> ToolWindow; ///< while the page is shown; otherwise none

    /// Makes the page's controls, unless they are made: at their first use at the latest. The
    /// constructor does not, so that the program's window need not wait for pages that nobody sees
    /// yet.
    void Prepare();
    /// Hides the rows of the two other maps for good, whatever the fit rule says of them.
    void ShowOnly(TMapKind kind);
    int GuideChapter() const override { return 8; }
    /// Loads the three maps and shows the page.
    void ShowPage() override;
    /// The part throttle grid, or the first one that is shown.
    QWidget *FirstControl() override;
    /// Asks "Commit Changes?" when edits are uncommitted, hides the page; always true.
    bool QueryClose() override;
    // Read one map again from the ROM image and show it.
    void LoadPTMap() { LoadMap(TMapKind::PT); }
    void LoadIdleMap() { LoadMap(TMapKind::Idle); }
    void LoadFTMap() { LoadMap(TMapKind::WOT); }

    // Write one grid's edits into its map and the map into the ROM image, then fill the grid again.
    // A failure shows "Error saving new data" and leaves the changed flag set.
    void CommitPT() { Commit(TMapKind::PT); }
    void CommitIdle() { Commit(TMapKind::Idle); }
    void CommitFT() { Commit(TMapKind::WOT); }

    void grdPTMapBeforeEdit(int column, int row) { BeforeEdit(TMapKind::PT, column, row); }
    void grdIdMapBeforeEdit(int column, int row) { BeforeEdit(TMapKind::Idle, column, row); }
    void grdFTMapBeforeEdit(int column, int row) { BeforeEdit(TMapKind::WOT, column, row); }
    void grdPTMapAfterEdit(int column, int row) { AfterEdit(TMapKind::PT, column, row); }
    void grdIdMapAfterEdit(int column, int row) { AfterEdit(TMapKind::Idle, column, row); }
    void grdFTMapAfterEdit(int column, int row) { AfterEdit(TMapKind::WOT, column, row); }
    virtual void btnSavePTClick() { CommitPT(); }
    void btnSaveIdleClick() { CommitIdle(); }
    void btnSaveFTClick() { CommitFT(); }
    virtual void btnResetPTClick() { Reset(TMapKind::PT); }
    void btnResetIdleClick() { Reset(TMapKind::Idle); }
    void btnResetFTClick() { Reset(TMapKind::WOT); }
    void btnRecalculateClick();
    void chkInterpretClick();
    void edtPTOffsetExit() { OffsetExit(TMapKind::PT); }
    void edtIdOffsetExit() { OffsetExit(TMapKind::Idle); }
    void edtFTOffsetExit() { OffsetExit(TMapKind::WOT); }
    void edtOffsetDblClick(TOffsetEdit &box) { box.SetWritable(true); }
    void UnlockAxis1Click() { UnlockAxis(TMapKind::PT); }
    void UnlockAxis2Click() { UnlockAxis(TMapKind::Idle); }
    void UnlockAxis3Click() { UnlockAxis(TMapKind::WOT); }

    void Copy1Click() { CopyMap(TMapKind::PT); }
    void Copy2Click() { CopyMap(TMapKind::Idle); }
    void Copy3Click() { CopyMap(TMapKind::WOT); }
    void Paste1Click() { PasteMap(TMapKind::PT); }
    void Paste2Click() { PasteMap(TMapKind::Idle); }
    void Paste3Click() { PasteMap(TMapKind::WOT); }

    /// The map whose grid has the keyboard, or had it last.
    TMapKind CurrentKind() const { return only_.value_or(currentKind_); }
    /// Whether the page shows its grids: without them there are no commands for cells.
    virtual bool ShowsGrids() const { return true; }
    /// Undo and redo of what is done on the page since it was shown.
    TMapHistory history{*this};
    /// Enters texts that are numbers as if each were typed, but as one step, drawing once.
    /// The bottom line says what fits no byte, as after each edit.
    void EnterTexts(TMapKind kind, const std::vector<TCellText> &texts, const QString &step);
    /// Lets the page's map of `kind` take over the values and axes of another one as the step
    /// `step`, not committed; a message says why not, and false comes back. None is an empty slot.
    bool Paste(const TMap *map, TMapKind kind, const QString &step);
    /// Accepts and closes the open edit of a cell, if there is one.
    void CloseEditors();
    /// What the bottom line says of these cells: the StoredNote of the first that has one, and how
    /// many more have; empty when none has.
    QString StoredNotes(TMapKind kind, const std::vector<TGridCell> &cells,
                        TNoteTime time = TNoteTime::Before);
    /// Colours the cells by their values, or no longer, as the user has chosen.
    void ShowShades();
    /// The page as it stands; shares with `last` what has not changed since then.
    TMapPageState State(const TMapPageState &last);
    void Restore(const TMapPageState &state);

    TMapPanel &Panel(TMapKind kind) { return Controls().maps.Row(kind); }
    TMap &Map(TMapKind kind) { return MapSet->Map(kind); }
    bool &Changed(TMapKind kind);
    /// Draws the chart of `kind` again from its grid, when the grid is marked visible.
    void RedrawMapChart(TMapKind kind);

protected:
    /// Creates and destroys the bulk adjust window.
    void FormShow() override;
    void FormHide() override;

    // Copy and paste get their meaning from the derived pages; here they do nothing.
    virtual void CopyMap(TMapKind) {}
    virtual void PasteMap(TMapKind) {}
    /// Puts a copy of a map into its slot; the copy of a one-axis map gets its one load point anew.
    static void CopyTo(TPasteSlots &buffer, TMapSet &from, TMapKind kind);
    /// "Fuel" or "Timing".
    virtual QString SetName() const { return {}; }
    /// Whether anything is uncommitted, which is what QueryClose asks about.
    virtual bool AnyChanged() const { return PTChanged || IdleChanged || FTChanged; }
    /// Commits the three maps; derived pages what else is uncommitted, behind them.
    virtual void CommitAll();
    /// Makes the controls; derived pages begin with it.
    virtual void MakeControls();
    virtual TRevState RevState() { return {}; }
    virtual void SetRevState(const TRevState &) {}
    /// The title of the charts' load axis.
    virtual QString DepthTitle() const = 0;
    /// The line of controls below the maps; derived pages add theirs in front.
    QHBoxLayout &BottomLine() { return Controls().bottomLine.Start(); }
    /// "Interpret Byte Values".
    QCheckBox &InterpretBox() { return Controls().interpret; }

    TWorkspace &workspace;

private:
    TMapPageControls &Controls();
    void ConnectPanel(TMapPanel &row);
    void LoadMap(TMapKind kind);
    void ShapeRow(TMapKind kind);
    void FillMap(TMapKind kind);
    void Commit(TMapKind kind);
    void Reset(TMapKind kind);
    void BeforeEdit(TMapKind kind, int column, int row);
    void AfterEdit(TMapKind kind, int column, int row);
    void MarkEdited(TMapKind kind, int column, int row);
    void OffsetExit(TMapKind kind);
    void UnlockAxis(TMapKind kind);
    QString CellNote(TMapKind kind, int column, int row, TNoteTime time = TNoteTime::Before);
    std::vector<TGridCell> EditedCells(TMapKind kind);
    /// Lets a grid's cells tell their notes by tool tip and to screen readers.
    void TellNotes(TMapPanel &row);

    std::unique_ptr<TMapPageControls> controls_; ///< for Controls() and Prepare() alone
    TMapKind currentKind_ = TMapKind::PT;
    std::optional<TMapKind> only_; ///< the one map that is shown, when the page shows but one
};
