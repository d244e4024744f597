// The page "Changes": the image in memory against the file as it was loaded or saved last. What was
// committed can be put back from here.
#pragma once

#include "changes/DifferencesPage.h"
#include "changes/ImageEdits.h"

class TfrmChanges : public TfrmDifferences {
    Q_OBJECT
public:
    /// `workspace` outlives the page.
    TfrmChanges(QWidget *parent, TWorkspace &workspace);

    void ShowPage() override;
    int GuideChapter() const override { return 17; }

    /// The file's bytes come back into the image in memory: of the selected cells, or of all that
    /// is chosen in the list.
    void btnPutBackCellsClick();
    void btnPutBackClick();

protected:
    TMappedImage There() override;
    std::string FileThere() const override { return workspace.romFileName.string(); }
    bool ThereIsBefore() const override { return true; }
    void UpdateButtons() override;

private:
    std::vector<TByteRun> ChosenRuns();

    TImageEdits edits_;
    QPushButton *btnPutBackCells_;
    QPushButton *btnPutBack_;
};
