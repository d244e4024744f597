// The page "Compare": the image in memory against another file, whose maps may lie elsewhere.
// Values can be taken over from there as edits.
#pragma once

#include "changes/DifferencesPage.h"
#include "changes/OtherImageLine.h"

#include <utility>

class TfrmMaps;

class TfrmCompare : public TfrmDifferences {
    Q_OBJECT
public:
    /// `workspace` outlives the page. There is no other image yet.
    TfrmCompare(QWidget *parent, TWorkspace &workspace);

    int GuideChapter() const override { return 17; }

    /// Compares with another image, its maps placed as those in force.
    void CompareWith(TOtherImage other) { line_->Take(std::move(other)); }
    bool HasOther() const override { return line_->Other().has_value(); }
    /// Asks for a file and compares with it. Throws EFileError; what was compared before stays.
    void btnOtherClick();
    /// Enters values of the other image into the map page: of the selected cells, or the whole map
    /// or the rev limiter that is chosen in the list.
    void btnTakeCellsClick();
    void btnTakeAllClick();

protected:
    TMappedImage There() override;
    std::string FileThere() const override { return line_->Other()->Name(); }
    bool ThereIsBefore() const override { return false; }
    void UpdateButtons() override;

private:
    /// Goes to the page that edits the maps of a set; none when the user stays here.
    TfrmMaps *GoToMaps(TMapSetKind set);

    TOtherImageLine *line_;
    QPushButton *btnTakeCells_;
    QPushButton *btnTakeAll_;
};
