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

class TFilePlacing {
    Q_DECLARE_TR_FUNCTIONS(TFilePlacing)
public:
    /// Of `page`; that and `workspace` outlive this.
    TFilePlacing(TfrmFileContents &page, TWorkspace &workspace)
        : page_(page), workspace_(workspace) {}

    /// Moves one map of the workspace to the grid's current cell.
    void UpdateNotebookMap(TMapContents contents, TMapKind kind);
    /// Moves it to `address`, reads the maps of its set anew and says so; 0 moves none.
    void MoveNotebookMap(TMapContents contents, TMapKind kind, std::int32_t address);

    /// "Add Notebook Map": a page in the notebook for every cell that carries the colour of a map's
    /// start, unless an added page shows that map already. Making many can be cancelled; those made
    /// by then are added.
    void AllHighlighted1Click();
    /// The pages that were added so and not closed since, in order of creation.
    const std::vector<QPointer<TfrmMaps>> &AddedPages();

    /// A chart of the map at the recorded cell, or at the address that stands there.
    void QuickMap(TMapShape shape, bool throughPointer);
    /// A chart of the map at an offset of the image.
    void QuickMapAt(TMapShape shape, std::size_t offset);

private:
    TShownMaps ShownMaps();
    void AddPage(std::unique_ptr<TfrmMaps> page, const TMapToAdd &map);

    TfrmFileContents &page_;
    TWorkspace &workspace_;
    std::vector<QPointer<TfrmMaps>> addedPages_; ///< for AddedPages, closed ones included
};
