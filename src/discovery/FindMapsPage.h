// The page "Find Maps": what FindMaps finds in the image in memory as a list, and what can be done
// with it: draw it, show its bytes, give it to the maps of the notebook, use its RAM locations for
// the searches of "File Contents".
#pragma once

#include "discovery/FoundMaps.h"
#include "discovery/NotebookMaps.h"
#include "forms/TEmbedFm.h"

#include <vector>

#include <QPointer>
#include <QPushButton>

class QLabel;
class QPlainTextEdit;
class TFoundList;
class TGiveBox;
class TfrmFileContents;

class TfrmFindMaps : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `workspace` outlives the page.
    TfrmFindMaps(QWidget *parent, TWorkspace &workspace);

    /// Lets "Save Spec" press that button of another page; until then it is disabled.
    void LetSaveSpec(QPushButton &stated);

    /// Searches unless the list shows what the image in memory has.
    void ShowPage() override;
    int GuideChapter() const override { return 18; }
    /// The list.
    QWidget *FirstControl() override;

    void btnSearchClick();
    /// Draws the chosen map, if one is chosen.
    void DrawChosen();
    /// Moves a map of the notebook to the chosen place; says why it cannot be that map.
    void Give(const TNotebookMap &map);
    void btnGiveSixClick();
    /// What cannot be told stays as it is.
    void btnUseLocationsClick();
    void btnShowContentsClick();
    void btnSaveFoundClick();

private:
    void MakeControls();
    void Connect();
    void AddCommands();
    void LayOut();
    /// Lists what is in the image.
    void Search();
    bool ShowsImage() const;
    QString Headline() const;
    QString LocationsTold() const;
    /// Moves a map of the notebook to a place; false, and nothing moves, at offset 0, which stands
    /// for no place.
    bool Move(const TNotebookMap &map, const TMapPlace &place);
    /// After each move, and when the page is entered.
    void TellGiven();
    const TFoundMap *Chosen() const;
    void TellChosen();
    /// The page "File Contents"; none without a notebook.
    TfrmFileContents *Contents() const;

    TWorkspace &workspace_;
    std::vector<std::uint8_t> searched_; ///< the image that the list shows
    TFoundMaps found_;
    QLabel *lblFound_;
    QPushButton *btnSearch_;
    TFoundList *lstFound_;
    QPlainTextEdit *memReasons_;
    TGiveBox *grpGive_;
    QLabel *lblLocations_;
    QPushButton *btnUseLocations_;
    QPushButton *btnShowContents_;
    QPushButton *btnSaveFound_;
    QPointer<QPushButton> statedSave_;
};
