// All windows of the program, running, and the texts that their controls carry.
#pragma once

#include "forms/Help.h"
#include "maps/QuickChart.h"
#include "pages/PageFixture.h"
#include "spec/main.h"
#include "spec/offsetentry.h"
#include "spec/splash.h"

#include <memory>
#include <utility>
#include <vector>

#include <QSet>
#include <QString>
#include <QStringList>
#include <QWidget>

struct TItem {
    QString window;
    QString name;
    QString text;
};

/// Controls that no window ever shows; they are built only to be complete.
extern const QStringList neverShown;

class TWindowsTest : public TPageTest {
protected:
    TWindowsTest();
    ~TWindowsTest() override;

    const QWidget &Key() { return FindControl<QWidget>(window, "frmKey"); }
    const QWidget &Tools();
    /// What a user reads on the controls of a window, without what the window hides: it shares its
    /// buttons with others.
    static std::vector<TItem> ShownItemsOf(const QWidget &window, const QString &name);
    /// The same of all windows, hidden controls too, and their titles.
    std::vector<TItem> AllItems();
    /// Everything that any control of any window carries: hints and names for screen readers too,
    /// and what is never shown.
    QSet<QString> AllCarried();

    TfrmNotebook window;
    std::unique_ptr<TfrmOffsetEntry> offsets;
    std::unique_ptr<TfrmQuickChart> quickChart;
    TfrmSplash splash;
    TfrmHelp help{"readme.txt"};

private:
    /// With a name for each.
    std::vector<std::pair<QString, const QWidget *>> AllWindows();
};
