#include "spec/main.h"

#include "filedisplay/FileDisplay.h"
#include "forms/FrameRoom.h"
#include "forms/PageControl.h"
#include "maps/FuelMaps.h"
#include "maps/FuelMapsGraphical.h"
#include "maps/TimingMaps.h"
#include "maps/TimingMapsGraphical.h"
#include "spec/ROMInfo.h"

#include <algorithm>

#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace {
constexpr std::uint16_t splashInterval = 2500; // milliseconds
constexpr int smallScreenHeight = 600;
constexpr QSize sizeAsMade(956, 538);
constexpr QSize usualSize(800, 600);
} // namespace

Qt::WindowState StateAtFirstShow(int screenHeight) {
    return screenHeight <= smallScreenHeight ? Qt::WindowMaximized : Qt::WindowMinimized;
}

QSize NormalSize(int screenHeight, QSize available) {
    const QSize room = available - frameRoom;
    if (StateAtFirstShow(screenHeight) == Qt::WindowMaximized)
        return sizeAsMade.boundedTo(room);
    return {usualSize.width(), std::min(usualSize.height(), room.height())};
}

TfrmNotebook::TfrmNotebook() {
    setObjectName("frmNotebook");
    resize(sizeAsMade);
    tmrSplash_.setObjectName("tmrSplash");
    tmrSplash_.SetEnabled(false);
    tmrSplash_.SetInterval(splashInterval);
    tmrSplash_.SetOnTimer([this] { tmrSplashTimer(); });
    FormCreate();
}

TfrmNotebook::~TfrmNotebook() {
    delete PageControl1; // and the pages with it, which refer to the workspace
}

void TfrmNotebook::FormCreate() {
    connect(PageControl1, &QTabWidget::currentChanged, this, [this](int index) {
        if (index == 0)
            tabROMInfoShow();
    });
    AddPage(std::make_unique<TfrmROMInformation>(nullptr, workspace), "tabROMInfo",
            tr("ROM Information"));
    AddPage(std::make_unique<TfrmFuelMaps>(nullptr, workspace, workspace.fuelMapSet), "tabFuelMaps",
            tr("Fuel Maps"));
    AddPage(std::make_unique<TfrmTimingMaps>(nullptr, workspace, workspace.timingMapSet),
            "tabTimingMaps", tr("Timing Maps"));
    AddPage(std::make_unique<TfrmFuelMapsGraphical>(nullptr, workspace), "tabFuelMapGraphical",
            tr("Graphical Fuel Maps"));
    AddPage(std::make_unique<TfrmTimingMapsGraphical>(nullptr, workspace), "tabGraphicalTimingMaps",
            tr("Graphical Timing Maps"));
    // TabSheet1 is the tab of the contents view.
    AddPage(std::make_unique<TfrmFileContents>(nullptr, workspace, printing_), "TabSheet1",
            tr("File Contents"));
}

void TfrmNotebook::FormShow() {
    TfrmKelvaneNotebook::FormShow();
    const int screenHeight = screen()->geometry().height();
    // The size first: a window that is resized on its way to the screen comes up in normal state.
    resize(NormalSize(screenHeight, screen()->availableGeometry().size()));
    setWindowState(StateAtFirstShow(screenHeight));
    splashThread_ = std::make_unique<TSplashScreen>();
    tmrSplash_.SetEnabled(true);
    QTimer::singleShot(0, this, [this] { PreparePages(); });
}

void TfrmNotebook::PreparePages() {
    for (TfrmMaps *page : findChildren<TfrmMaps *>())
        page->Prepare();
}

void TfrmNotebook::tmrSplashTimer() {
    splashThread_->Terminate();
    const Qt::WindowStates normal = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
    if (normal != windowState())
        setWindowState(normal);
}

void TfrmNotebook::tabROMInfoShow() {
    for (QPushButton *button : {btnPrint, btnClose, btnSave, btnCancel})
        button->hide();
}
