// The main window: a notebook of six pages that owns the workspace, shows the splash while it
// appears, and puts itself back to the normal state at every tick of its timer. The program's entry
// is ferrolyn.cpp.
#pragma once

#include "changes/OtherImage.h"
#include "changes/Recovery.h"
#include "forms/KelvaneNotebook.h"
#include "forms/Printing.h"
#include "model/Workspace.h"
#include "spec/SplashScreen.h"
#include "spec/ThdTimer.h"

#include <memory>
#include <optional>

class TfrmROMInformation;
class TStateButton;

/// How the window comes up: minimised, so that the splash stands alone; maximised, as it would not
/// fit, on a screen of at most 600 pixels. The first tick of tmrSplash makes either normal.
Qt::WindowState StateAtFirstShow(int screenHeight);

/// The size in which that first tick leaves the window: 800 x 600, on a screen of at most 600
/// pixels the size of its making; less where `available`, the screen without panels, has no room
/// for that and a frame. On larger screens it is always 800 wide.
QSize NormalSize(int screenHeight, QSize available);

class TfrmNotebook : public TfrmKelvaneNotebook {
    Q_OBJECT
public:
    /// Creates the map sets and all pages (FormCreate); shows nothing.
    TfrmNotebook();
    /// Frees the pages, then the map sets; at any moment, also before the first tick.
    ~TfrmNotebook() override;

    TWorkspace workspace; ///< the pages refer to it

    /// A page by the index of its tab; throws EFormNotfound when there is none.
    TEmbeddedForm *Page(int index) const { return GetPage(index); }

    /// A tick of tmrSplash: ends the splash and makes the window normal, whatever the user did to
    /// it. The timer is never switched off, so that this goes on (docs/peculiarities.md).
    void tmrSplashTimer();
    /// Loads an image file that was dropped on the window as "Load ROM Image" does, from the page
    /// "ROM Information", if the current page may be left.
    void LoadDropped(const QString &fileName);
    /// The page "Changes"; adds it unless it is there.
    void ShowChanges();
    /// The page "Compare", likewise. `with` is the other image; none asks for a file, unless the
    /// page is there already.
    void ShowCompare(std::optional<TOtherImage> with);
    /// The page "Earlier Versions"; adds it unless it is there.
    void ShowEarlier();
    /// The page "Find Maps", likewise, with the keyboard in its list.
    void ShowFindMaps();
    /// The page "Moved Maps", likewise. None asks for the known image, unless there is one already.
    void ShowMovedMaps(std::optional<TOtherImage> known);
    void StateChanged() override;
    TRecovery &Recovery() { return recovery_; }
    /// The page "ROM Information" has no use for the notebook's own buttons.
    void tabROMInfoShow();

protected:
    void FormShow() override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void FormCreate();
    void AddCommands();
    /// Leaves the current page as a choice of the first tab does; false when that is refused.
    bool GoToROMPage();
    /// Presses a button of that page, if it is enabled there.
    void Press(const char *button);
    /// Whether "Save ROM" is enabled on its page, or will be once that page is entered.
    bool MaySave() const;
    /// Goes to the page of a class that has at most one; a new one gets this tab. None when the
    /// current page is not left.
    template <class TPage>
    TPage *GoToOnly(const QString &tabName, const QString &caption);
    void ShowAbout();
    /// Gives the map pages their controls once the window is up, so that it comes up sooner.
    void PreparePages();

    /// Compares with the image that a patch which was never saved makes. Throws EPatchError when it
    /// does not fit what is in memory.
    void ShowOffer(const TKeptPatch &offer);
    /// Shows what recovery has found, and says its problems.
    void TellRecovery();

    TPrinting printing_;
    TRecovery recovery_;
    TfrmROMInformation *rom_ = nullptr;
    TStateButton *btnState_ = nullptr; ///< none before it is made and while all is freed
    std::unique_ptr<TSplashScreen> splashThread_;
    TThreadedTimer tmrSplash_{this};
};
