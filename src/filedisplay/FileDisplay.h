// The page "File Contents": the whole ROM image as a grid of bytes, on which searches leave
// coloured marks. What it holds of the image is ContentsSession.h's, the menu of its commands
// FileMenu.h's.
#pragma once

#include "filedisplay/ContentsSession.h"
#include "forms/Aligrid.h"
#include "forms/Printing.h"
#include "forms/TEmbedFm.h"
#include "model/Workspace.h"

#include <filesystem>

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

    TContentsSession session;
    QPoint mouseAnchor{-1, -1}; ///< no command reads these two
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
    void Fuel1Click() { UpdateNotebookMap(TMapContents::Fuel, TMapKind::PT); }
    void Fuel2Click() { UpdateNotebookMap(TMapContents::Fuel, TMapKind::Idle); }
    void WOTFuel1Click() { UpdateNotebookMap(TMapContents::Fuel, TMapKind::WOT); }
    void Timing1Click() { UpdateNotebookMap(TMapContents::Timing, TMapKind::PT); }
    void Timing2Click() { UpdateNotebookMap(TMapContents::Timing, TMapKind::Idle); }
    void WOTTiming1Click() { UpdateNotebookMap(TMapContents::Timing, TMapKind::WOT); }

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
    void LayOut();
    void ConnectGrid();
    void Rebuild();
    /// Shows what an operation of the session did: colours in the grid, its text below.
    void ShowOutcome(const std::string &text);
    /// Shows a text in the notebook's bottom line until the next hint.
    void Say(const std::string &text);
    void HighlightFromSelected(TMapShape shape, TMapContents contents);
    void HighlightAll(TMapShape shape, TMapContents contents);
    /// The grid's current cell, which is not the session's recorded one.
    std::int32_t CurrentAddress() const;
    void UpdateNotebookMap(TMapContents contents, TMapKind kind);
    void AddMapPage(const TMapToAdd &map);
    void QuickMap(TMapShape shape, bool throughPointer);
    /// Where a cell is, in the words for screen readers.
    QString PlaceOf(TGridCell cell) const;

    TWorkspace &workspace_;
    IPrinting &printing_;
    std::filesystem::path shownFile_;
    TStringAlignGrid *grdFile_;
    QCheckBox *chkDisplayHex_;
    QTextEdit *redPrint_;
    QMenu *PopupMenu1_;
    QPointer<TfrmKey> key_;
};
