// The page "File Contents": the whole ROM image as a grid of bytes, on which the searches of
// Searches.h and MapSearch.h leave coloured marks. The menu that starts them is FileMenu.h's.
#pragma once

#include "filedisplay/MapSearch.h"
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
    void EnterParam(std::int32_t TSearchParameters::*parameter, const QString &prompt);
    void FindConsecutivePossFuelValsClick();
    void FindConsecutivePossTimeValsClick();
    void HighlightAValue1Click();
    void FindMapPointers1Click();
    void ClearAllMarkers1Click();
    /// Marks the map that starts at the selected cell and moves that on; nothing without one.
    void HighlightFromSelected(TMapShape shape, TMapContents contents);
    void HighlightAll(TMapShape shape, TMapContents contents);

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
    void ScanAll(const TSearch &search);
    void PopUpMenu();

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
