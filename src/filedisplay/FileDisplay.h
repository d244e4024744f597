// The page "File Contents": the whole ROM image as a grid of bytes, on which the searches of
// Searches.h and MapSearch.h leave coloured marks. The menu that starts them is FileMenu.h's.
#pragma once

#include "filedisplay/MapSearch.h"
#include "filedisplay/MapStarts.h"
#include "filedisplay/Searches.h"
#include "forms/Aligrid.h"
#include "forms/Printing.h"
#include "forms/TEmbedFm.h"
#include "model/Workspace.h"

#include <filesystem>
#include <functional>
#include <vector>

#include <QCheckBox>
#include <QMenu>
#include <QPointer>
#include <QTextEdit>

class TfrmKey;

class TfrmFileContents : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `workspace` and `printing` outlive the page.
    TfrmFileContents(QWidget *parent, TWorkspace &workspace, IPrinting &printing);
    ~TfrmFileContents() override;

    TSearchParameters parameters; ///< set back to their defaults by each rebuild
    TMapCounters counters;        ///< maps marked; set back by "Clear All Markers" alone
    TGridCell selected;           ///< as recorded last; (0, 0) after a scan of the whole image
    QPoint mouseAnchor{-1, -1};   ///< no command reads these two
    QPoint mouseExtent{-1, -1};

    /// Rebuilds the grid when the image's file name is another one than that shown; shows the page.
    void ShowPage() override;

    void chkDisplayHexClick();
    void Button1Click();
    void grdFileSelectCell(int column, int row);
    void grdFileMouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void grdFileMouseUp(Qt::MouseButton button);
    void grdFileDblClick();
    void Copy1Click();
    void CopySelected1Click();
    /// @throws EFileError when there is no printer
    void Print1Click();
    void PrintSetup1Click();
    void btnHelpClick() { Help(); }

    /// Asks for one search parameter; what is no number stores -1.
    void EnterParamClick(std::int32_t TSearchParameters::*parameter, const QString &prompt);
    void FindConsecutivePossFuelValsClick();
    void FindConsecutivePossTimeValsClick();
    void HighlightAValue1Click();
    void FindMapPointers1Click();
    void ClearAllMarkers1Click();

    // "Highlight Map From Current Cell"
    void Fuel3Click() { HighlightFromSelected(TMapShape::TwoD, TMapContents::Fuel); }
    void Fuel4Click() { HighlightFromSelected(TMapShape::Linear, TMapContents::Fuel); }
    void Timing3Click() { HighlightFromSelected(TMapShape::TwoD, TMapContents::Timing); }
    void Timing4Click() { HighlightFromSelected(TMapShape::Linear, TMapContents::Timing); }

    // "Search and Highlight Maps"
    void Fuel5Click() { HighlightAll(TMapShape::TwoD, TMapContents::Fuel); }
    void Fuel6Click() { HighlightAll(TMapShape::Linear, TMapContents::Fuel); }
    void Timing5Click() { HighlightAll(TMapShape::TwoD, TMapContents::Timing); }
    void Timing6Click() { HighlightAll(TMapShape::Linear, TMapContents::Timing); }
    void Any1Click() { HighlightAll(TMapShape::TwoD, TMapContents::Any); }
    void Any2Click() { HighlightAll(TMapShape::Linear, TMapContents::Any); }

    // "Update Notebook Map": moves one map of the workspace to the grid's current cell.
    void Fuel1Click() { UpdateNotebookMap(workspace_.fuelMapSet, TMapKind::PT); }
    void Fuel2Click() { UpdateNotebookMap(workspace_.fuelMapSet, TMapKind::Idle); }
    void WOTFuel1Click() { UpdateNotebookMap(workspace_.fuelMapSet, TMapKind::WOT); }
    void Timing1Click() { UpdateNotebookMap(workspace_.timingMapSet, TMapKind::PT); }
    void Timing2Click() { UpdateNotebookMap(workspace_.timingMapSet, TMapKind::Idle); }
    void WOTTiming1Click() { UpdateNotebookMap(workspace_.timingMapSet, TMapKind::WOT); }

    /// "Add Notebook Map": a page in the notebook for every cell that carries the colour of a map's
    /// start, unless an added page shows that map already.
    void AllHighlighted1Click();

    // "Quick Map": a chart of the map at the recorded cell, or at the address that stands there.
    void SelectedCellisMapOffset1Click() { QuickMap(TMapShape::TwoD, false); }
    void SelectedCellisLinearMapOffset1Click() { QuickMap(TMapShape::Linear, false); }
    void SelectedCellisMapPointerOffset1Click() { QuickMap(TMapShape::TwoD, true); }
    void SelectedCellisLinearMapPointer1Click() { QuickMap(TMapShape::Linear, true); }

protected:
    /// Creates and frees the key window.
    void FormShow() override;
    void FormHide() override;
    void resizeEvent(QResizeEvent *event) override;

private:
    using TSearch = std::function<void(const TSearchGrid &)>;

    void LayOut();
    void ConnectGrid();
    void Rebuild();
    /// Runs a search on the cells and gives the grid the colours that it changed.
    void Run(const TSearch &search);
    /// A search of the whole image, which leaves no cell selected.
    void ScanAll(const TSearch &search);
    /// Marks the map that starts at the selected cell and moves that on; nothing without one.
    void HighlightFromSelected(TMapShape shape, TMapContents contents);
    void HighlightAll(TMapShape shape, TMapContents contents);
    /// What the headers of a cell's row and column say as a hexadecimal number; only three digits
    /// of the row count, so that beyond 64 KiB it is another address. Intended.
    std::int32_t AddressOf(TGridCell cell) const;
    void UpdateNotebookMap(TMapSet &set, TMapKind kind);
    void AddMapPage(const TMapStart &start, std::int32_t address);
    void QuickMap(TMapShape shape, bool throughPointer);
    /// Where a cell is, in the words for screen readers.
    QString PlaceOf(TGridCell cell) const;

    TWorkspace &workspace_;
    IPrinting &printing_;
    std::filesystem::path shownFile_;
    std::vector<TCellValue> values_; ///< of the cells as shown
    std::vector<TColor> colors_;     ///< of the data cells as the grid has them
    TStringAlignGrid *grdFile_;
    QCheckBox *chkDisplayHex_;
    QTextEdit *redPrint_;
    QMenu *PopupMenu1_;
    QPointer<TfrmKey> key_;
};
