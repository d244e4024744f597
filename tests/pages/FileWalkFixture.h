// Base of the tests that find their way in the contents view: its page in the notebook's window, on
// the screen, with the keyboard in the grid.
#pragma once

#include "filedisplay/Overview.h"
#include "pages/FilePlacingFixture.h"

#include <QStatusBar>

class TFileWalkTest : public TPlacingTest {
protected:
    TFileWalkTest() {
        window.show();
        window.setWindowState(Qt::WindowNoState); // it comes up minimised
        window.resize(800, 570);                  // what a window manager leaves of 800 x 600
    }
    /// Shows an image of `size` bytes of 255 with these planted, and gives its grid the keyboard.
    void Enter(int size, const std::map<int, TBytes> &planted = {}) {
        Show(size, planted);
        window.activateWindow();
        QTest::qWait(0);
        // The screenless platform tells nothing of a window that was active while minimised.
        QApplication::setActiveWindow(&window);
        Grid().setFocus();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void ShowHexadecimal() { FindControl<QCheckBox>(*page, "chkDisplayHex").click(); }
    std::string Said() const { return window.StatusBar1->currentMessage().toStdString(); }
    /// Of the current cell.
    int Offset() { return 16 * (Grid().Row() - 1) + Grid().Col() - 1; }
    /// Whether the current cell can be seen.
    bool Seen() {
        return Grid().viewport()->rect().contains(Grid().visualRect(Grid().currentIndex()));
    }
    TOverview &Overview() { return FindControl<TOverview>(*page, "ovwFile"); }
};
