// Every page and window of the program at once, each with its first state, and what a row of a list
// of controls says.
#pragma once

#include "forms/PageControl.h"
#include "maps/Maps.h"
#include "maps/QuickChart.h"
#include "maps/ToolWindow.h"
#include "pages/PageFixture.h"
#include "spec/main.h"
#include "spec/offsetentry.h"
#include "spec/splash.h"

#include <memory>

#include <QPushButton>

enum class TForm {
    ROM,
    Fuel,
    Timing,
    FuelChart,
    TimingChart,
    QuickChart,
    Contents,
    Key,
    Tools,
    Window,
    Changes,
    Compare,
    Earlier,
    FindMaps,
    MovedMaps,
    Offsets,
    Splash
};

/// First states that are not the usual ones (enabled, visible, unchecked, writable), as letters:
/// d disabled, h hidden, c checked, r read-only.
struct TControl {
    TForm form;
    const char *name;
    const char *kind;
    const char *text;
    const char *hint;
    const char *states;
};

class TControlsTest : public TPageTest {
protected:
    TControlsTest() {
        TfrmBaseForm::ProgRegKey = "key";
        offsets = std::make_unique<TfrmOffsetEntry>(nullptr, window.workspace);
        quickChart = std::make_unique<TfrmQuickChart>(nullptr);
        for (int mapPage = 1; mapPage <= 4; ++mapPage)
            window.Page(mapPage)->ShowPage();
        window.Page(5)->ShowPage();
        FindControl<QPushButton>(*window.Page(5), "Button1").click();
        window.ShowChanges();
        dialogs.opens.push_back({});
        window.ShowCompare({});
        window.ShowEarlier();
        window.ShowFindMaps();
        dialogs.opens.push_back({});
        window.ShowMovedMaps({});
    }
    ~TControlsTest() override { TfrmBaseForm::ProgRegKey.clear(); }

    QObject &Form(TForm form) {
        switch (form) {
        case TForm::ROM:
            return *window.Page(0);
        case TForm::Fuel:
            return *window.Page(1);
        case TForm::Timing:
            return *window.Page(2);
        case TForm::FuelChart:
            return *window.Page(3);
        case TForm::TimingChart:
            return *window.Page(4);
        case TForm::QuickChart:
            return *quickChart;
        case TForm::Contents:
            return *window.Page(5);
        case TForm::Key:
            return FindControl<QWidget>(window, "frmKey");
        case TForm::Tools:
            return *dynamic_cast<TfrmMaps &>(*window.Page(1)).ToolWindow;
        case TForm::Window:
            return window;
        case TForm::Changes:
            return *window.Page(6);
        case TForm::Compare:
            return *window.Page(7);
        case TForm::Earlier:
            return *window.Page(8);
        case TForm::FindMaps:
            return *window.Page(9);
        case TForm::MovedMaps:
            return *window.Page(10);
        case TForm::Offsets:
            return *offsets;
        case TForm::Splash:
            return splash;
        }
        throw std::logic_error("no such form");
    }
    /// The window's own controls, not those of the same name on its pages.
    QObject *Control(const TControl &wanted) {
        for (QObject *found : Form(wanted.form).findChildren<QObject *>(wanted.name))
            if (wanted.form != TForm::Window || !InPage(found))
                return found;
        return nullptr;
    }
    bool InPage(const QObject *object) {
        for (; object; object = object->parent())
            if (qobject_cast<const TEmbeddedForm *>(object) ||
                qobject_cast<const TfrmToolWindow *>(object))
                return true;
        return false;
    }
    TfrmNotebook window;
    std::unique_ptr<TfrmOffsetEntry> offsets;
    std::unique_ptr<TfrmQuickChart> quickChart;
    TfrmSplash splash;
};
