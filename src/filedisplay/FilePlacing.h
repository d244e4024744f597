// What the page "File Contents" does with found maps: moves a map of the workspace to a cell, opens
// pages for all that is highlighted, and charts the map at a cell. Finding them is
// FileSearches.h's.
#pragma once

#include "filedisplay/MapStarts.h"
#include "model/Workspace.h"

#include <memory>
#include <vector>

#include <QCoreApplication>
#include <QPointer>

class TfrmFileContents;
class TfrmMaps;

/// The handlers are named after the menu's items, which FileMenu.cpp lists with their captions.
class TFilePlacing {
    Q_DECLARE_TR_FUNCTIONS(TFilePlacing)
public:
    /// Of `page`; that and `workspace` outlive this.
    TFilePlacing(TfrmFileContents &page, TWorkspace &workspace)
        : page_(page), workspace_(workspace) {}

    // "Update Notebook Map": moves one map of the workspace to the grid's current cell. 1 is the
    // part throttle map, 2 the idle map, WOT the full throttle map.
    void Fuel1Click() { UpdateNotebookMap(TMapContents::Fuel, TMapKind::PT); }
    void Fuel2Click() { UpdateNotebookMap(TMapContents::Fuel, TMapKind::Idle); }
    void WOTFuel1Click() { UpdateNotebookMap(TMapContents::Fuel, TMapKind::WOT); }
    void Timing1Click() { UpdateNotebookMap(TMapContents::Timing, TMapKind::PT); }
    void Timing2Click() { UpdateNotebookMap(TMapContents::Timing, TMapKind::Idle); }
    void WOTTiming1Click() { UpdateNotebookMap(TMapContents::Timing, TMapKind::WOT); }

    /// "Add Notebook Map": a page in the notebook for every cell that carries the colour of a map's
    /// start, unless an added page shows that map already. Making many can be cancelled; those made
    /// by then are added.
    void AllHighlighted1Click();
    /// The pages that were added so and not closed since, in order of creation.
    const std::vector<QPointer<TfrmMaps>> &AddedPages();

    // "Quick Map": a chart of the map at the recorded cell, or at the address that stands there.
    void SelectedCellisMapOffset1Click() { QuickMap(TMapShape::TwoD, false); }
    void SelectedCellisLinearMapOffset1Click() { QuickMap(TMapShape::Linear, false); }
    void SelectedCellisMapPointerOffset1Click() { QuickMap(TMapShape::TwoD, true); }
    void SelectedCellisLinearMapPointer1Click() { QuickMap(TMapShape::Linear, true); }

private:
    void UpdateNotebookMap(TMapContents contents, TMapKind kind);
    TShownMaps ShownMaps();
    std::vector<std::unique_ptr<TfrmMaps>> MakePages(const std::vector<TMapToAdd> &maps);
    void AddPage(std::unique_ptr<TfrmMaps> page, const TMapToAdd &map);
    void QuickMap(TMapShape shape, bool throughPointer);

    TfrmFileContents &page_;
    TWorkspace &workspace_;
    std::vector<QPointer<TfrmMaps>> addedPages_; ///< for AddedPages, closed ones included
};
