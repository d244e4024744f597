// The page "Earlier Versions": what saves have replaced of the loaded file, to be looked at or
// brought back into the image in memory. Keeping it is EarlierVersions.h's.
#pragma once

#include "changes/EarlierVersions.h"
#include "changes/ImageEdits.h"
#include "forms/TEmbedFm.h"

#include <functional>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QTreeWidget;

class TfrmEarlier : public TEmbeddedForm {
    Q_OBJECT
public:
    /// `workspace` outlives the page.
    TfrmEarlier(QWidget *parent, TWorkspace &workspace);

    using TShow = std::function<void(const std::string &title, std::vector<std::uint8_t> bytes)>;
    /// Lets the button "Show", which is hidden until then, call `show` with a version and its name.
    void LetShow(TShow show);

    /// Reads the versions anew. Throws EFileError when they cannot be read; there are none then.
    void ShowPage() override;
    int GuideChapter() const override { return 17; }

    /// Shows the chosen version, if one is chosen and may be shown.
    void btnShowVersionClick();
    /// The bytes of the chosen version become those of the image in memory; a message when their
    /// lengths differ. Nothing when none is chosen.
    void btnBringBackVersionClick();

protected:
    /// Versions take memory only while the page is there to be seen.
    void FormHide() override;

private:
    void LayOut();
    void ReadVersions();
    void FillList();
    QString Headline() const;
    const TEarlier *Chosen() const;
    void UpdateButtons();

    TWorkspace &workspace_;
    TShow show_;
    TImageEdits edits_;
    std::vector<TEarlier> versions_; ///< one for each line of the list
    QLabel *lblVersions_;
    QTreeWidget *lstVersions_;
    QPushButton *btnShowVersion_;
    QPushButton *btnBringBackVersion_;
};
