// The page "Moved Maps": where the maps of a known image lie in the image in memory. It lists what
// FindMovedMaps proposes, with its reasons, shows both maps side by side, and gives the proposals
// to the notebook's maps.
#pragma once

#include "changes/OtherImageLine.h"
#include "discovery/MovedMaps.h"
#include "forms/TEmbedFm.h"

#include <QPointer>
#include <QPushButton>

class QLabel;
class QPlainTextEdit;
class QTreeWidget;
class TMapSide;

class TfrmMovedMaps : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `workspace` outlives the page. There is no known image yet.
    TfrmMovedMaps(QWidget *parent, TWorkspace &workspace);

    /// Lets "Save Spec" press that button of another page; until then it is disabled.
    void LetSaveSpec(QPushButton &stated);

    /// Looks for the maps anew.
    void ShowPage() override;
    int GuideChapter() const override { return 18; }

    bool HasKnown() const { return line_->Other().has_value(); }
    /// Looks for the maps of this image, by the spec file that is named as it is, if there is one.
    void LookFrom(TOtherImage known);
    /// Asks for a file and looks for its maps. Throws EFileError; what was there before stays.
    void btnOtherClick();
    /// Moves the notebook's maps to all places that are sure, and Max RPM; the others stay.
    void btnPlaceSureClick();
    /// Moves what is chosen in the list, sure or not.
    void btnPlaceClick();
    void btnSaveMovedClick();

private:
    /// What was looked for, and in what.
    struct TOutcome {
        TMappedImage known;
        TMappedImage here; ///< with the maps where they are proposed
        TMovedMaps moved;
    };

    static constexpr int limiterLine = 6; ///< of the list, behind the maps

    void MakeControls();
    void LayOut();
    void Look();
    TOutcome LookedFor() const;
    /// Why nothing can be looked for; empty when it can.
    QString Missing() const;
    QString Headline() const;
    QString NoteOnTiming() const;
    void FillList();
    void TellPlaced();
    void TellChosen();
    void ShowMap(std::size_t map);
    void ShowLimiter();
    int Chosen() const;
    /// The place proposed for a line of the list; none: nothing to place.
    std::optional<std::uint32_t> Proposed(int line) const;
    bool IsSure(int line) const;
    bool IsPlaced(int line) const;
    /// Moves these lines' maps and says so.
    void Place(const std::vector<int> &lines);

    TWorkspace &workspace_;
    std::optional<TOutcome> outcome_;
    TOtherImageLine *line_;
    QLabel *lblMoved_;
    QTreeWidget *lstMoved_;
    QPlainTextEdit *memReasons_;
    TMapSide *there_;
    TMapSide *here_;
    QLabel *lblTiming_;
    QPushButton *btnPlaceSure_;
    QPushButton *btnPlaceMap_;
    QPushButton *btnSaveMoved_;
    QPointer<QPushButton> statedSave_;
};
