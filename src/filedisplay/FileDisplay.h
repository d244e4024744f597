// The page "File Contents": the whole ROM image as a grid of bytes, on which searches leave
// coloured marks. What it holds of the image is ContentsSession.h's, the menu of its commands
// FileMenu.h's; what runs its searches and what places found maps are FileSearches.h's and
// FilePlacing.h's.
#pragma once

#include "filedisplay/FilePlacing.h"
#include "filedisplay/FileSearches.h"
#include "filedisplay/FileWalk.h"
#include "forms/Aligrid.h"
#include "forms/Printing.h"
#include "forms/TEmbedFm.h"

#include <filesystem>

#include <QCheckBox>
#include <QMenu>
#include <QPointer>
#include <QTextEdit>

class TOverview;
class TfrmKey;

class TfrmFileContents : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `workspace` and `printing` outlive the page.
    TfrmFileContents(QWidget *parent, TWorkspace &workspace, IPrinting &printing);
    ~TfrmFileContents() override;

    TContentsSession session;
    TFileSearches searches{*this};
    TFilePlacing placing;
    TFileWalk walk{*this};
    QPoint mouseAnchor{-1, -1}; ///< no command reads these two
    QPoint mouseExtent{-1, -1};

    /// Rebuilds the grid when the image's file name is another one than that shown.
    void ShowFile();
    /// ShowFile; shows the page.
    void ShowPage() override;

    int GuideChapter() const override { return 11; }

    void chkDisplayHexClick() { Rebuild(); }
    void Button1Click(); ///< "Key"
    void grdFileSelectCell(int column, int row);
    void grdFileMouseDown(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint at);
    void grdFileMouseUp(Qt::MouseButton button);
    void grdFileDblClick();
    void Copy1Click();
    void CopySelected1Click() { grdFile_->CopyRectangle(grdFile_->Selection(), ','); }
    /// @throws EFileError when there is no printer
    void Print1Click();
    void PrintSetup1Click() { printing_.RunSetup(); }
    void btnHelpClick() { Help(); }
    /// The selected cells as rows for a spreadsheet.
    void CopyCells() { grdFile_->CopyRectangle(grdFile_->Selection(), '\t'); }
    void CopyCellsWithHeaders();

    /// Makes the cell at an offset of the image the current one, as a click does, and shows it.
    void GoTo(std::size_t offset);
    /// Goes to a map that was found elsewhere and marks it as the searches do.
    void ShowMap(std::size_t offset, TMapShape shape, TMapContents contents);

    /// Shows what an operation of the session did: colours in the grid, its text below.
    void ShowOutcome(const std::string &text);
    /// Shows a text in the notebook's bottom line until the next hint.
    void Say(const std::string &text);
    /// What the bottom line says of a cell.
    std::string CellTold(std::size_t offset) const;
    TSeenColors SeenMarks() const;
    // Of the grid's current cell, which is not the session's recorded one.
    std::size_t CurrentOffset() const;
    std::int32_t CurrentAddress() const; ///< as its headers give it

protected:
    /// Creates and frees the key window.
    void FormShow() override;
    void FormHide() override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void LayOut();
    void ConnectGrid();
    void Rebuild();
    /// Where a cell is, in the words for screen readers.
    QString PlaceOf(TGridCell cell) const;

    TWorkspace &workspace_;
    IPrinting &printing_;
    std::filesystem::path shownFile_;
    TStringAlignGrid *grdFile_;
    TOverview *ovwFile_;
    QCheckBox *chkDisplayHex_;
    QTextEdit *redPrint_;
    QMenu *PopupMenu1_;
    QPointer<TfrmKey> key_;
};
