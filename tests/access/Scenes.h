// Every page and window of the program, each brought up as the user meets it, with a ROM image
// loaded and its maps placed.
#pragma once

#include "forms/TEmbedFm.h"
#include "pages/PageFixture.h"
#include "spec/main.h"

#include <functional>
#include <memory>
#include <vector>

enum class TScene {
    FreshROM, ///< nothing loaded
    ROM,
    Offer, ///< the same page with changes that were never saved
    Fuel,
    Timing,
    FuelChart,
    TimingChart,
    Contents,
    AddedPage,
    Changes,
    Compare,
    Earlier,
    FindMaps,
    MovedMaps,
    Tools,
    DockedTools,
    Key,
    QuickChart,
    Offsets,
    Help
};

/// In the order of the program's tabs, then its other windows.
std::vector<TScene> AllScenes();
/// As part of a test's name.
std::string SceneName(TScene scene);

class TSceneTest : public TPageTest {
protected:
    TSceneTest();
    ~TSceneTest() override;

    /// Brings the scene up, once in a test, and returns its window, which is the active one.
    QWidget &Open(TScene scene);

    /// The page of the current tab.
    TEmbeddedForm &Page() { return *window.CurrentPage(); }
    template <class Control>
    Control &OnPage(const QString &name) {
        return FindControl<Control>(Page(), name);
    }
    /// Makes it the active window.
    static QWidget &Activate(QWidget &opened);
    /// Enters a tab as the keyboard does.
    void SelectTab(int index);
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    static QString FocusName();

    TfrmNotebook window;

private:
    void LoadImage();
    QWidget &OpenOwnWindow(TScene scene);

    std::vector<std::unique_ptr<QWidget>> opened_;
};

/// All widgets of `root` on the screen, `root` itself not among them.
std::vector<QWidget *> VisibleWidgets(const QWidget &root);
