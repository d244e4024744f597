#include "access/Scenes.h"

#include "changes/EarlierVersions.h"
#include "changes/RecoveryBar.h"
#include "forms/Help.h"
#include "forms/PageControl.h"
#include "forms/RadioGroup.h"
#include "maps/Maps.h"
#include "maps/QuickChart.h"
#include "maps/ToolWindow.h"
#include "spec/ROMInfo.h"
#include "spec/offsetentry.h"
#include "system/StateFolder.h"

#include <fstream>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

namespace {
constexpr auto helpFile = "access-test.txt";
constexpr int contentsTab = 5;

const std::vector<std::pair<TScene, const char *>> scenes{
    {TScene::FreshROM, "FreshROM"},
    {TScene::ROM, "ROM"},
    {TScene::Offer, "Offer"},
    {TScene::Fuel, "Fuel"},
    {TScene::Timing, "Timing"},
    {TScene::FuelChart, "FuelChart"},
    {TScene::TimingChart, "TimingChart"},
    {TScene::Contents, "Contents"},
    {TScene::AddedPage, "AddedPage"},
    {TScene::Changes, "Changes"},
    {TScene::Compare, "Compare"},
    {TScene::Earlier, "Earlier"},
    {TScene::FindMaps, "FindMaps"},
    {TScene::MovedMaps, "MovedMaps"},
    {TScene::Tools, "Tools"},
    {TScene::DockedTools, "DockedTools"},
    {TScene::Key, "Key"},
    {TScene::QuickChart, "QuickChart"},
    {TScene::Offsets, "Offsets"},
    {TScene::Help, "Help"},
};

int TabOf(TScene scene) {
    switch (scene) {
    case TScene::FreshROM:
    case TScene::ROM:
    case TScene::Offer:
        return 0;
    case TScene::Timing:
        return 2;
    case TScene::FuelChart:
        return 3;
    case TScene::TimingChart:
        return 4;
    case TScene::Contents:
    case TScene::AddedPage:
    case TScene::Key:
    case TScene::QuickChart:
        return contentsTab;
    default:
        return 1;
    }
}
} // namespace

std::vector<TScene> AllScenes() {
    std::vector<TScene> all;
    for (const auto &[scene, name] : scenes)
        all.push_back(scene);
    return all;
}

std::string SceneName(TScene scene) {
    for (const auto &[known, name] : scenes)
        if (known == scene)
            return name;
    return "unknown";
}

TSceneTest::TSceneTest() {
    TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
    window.setWindowTitle("Ferrolyn");
    window.show();
    window.tmrSplashTimer(); // what the first tick does; nobody waits for it here
    window.resize(1000, 760);
    Activate(window);
}

TSceneTest::~TSceneTest() {
    QFile::remove(ProgramDirectory() + helpFile);
    TfrmBaseForm::ProgRegKey.clear();
}

void TSceneTest::LoadImage() {
    PlantMaps();
    Put(0x4000, {1, 2, 5, 6, 1, 2, 7, 8, 100, 100, 100, 100}); // found by the fuel search
    PutFile(folder / "A.BIN", Get(0, Image().size));
    std::ofstream(folder / "DIRECT.SPC")
        << "; Direct\n[Fuel Maps]\npt_offset=$1000\nidle_offset=$1200\nwot_offset=$1300\n"
           "[Timing Maps]\npt_offset=$2000\nidle_offset=$2200\nwot_offset=$2300\n"
           "[Other Maps]\nrevlimit_offset=$40\n";
    dialogs.opens.push_back(QString::fromStdString((folder / "A.BIN").string()));
    OnPage<QPushButton>("btnLoad").click();
    OnPage<QRadioButton>("rdoROMtemplate0").click();
    ASSERT_EQ(window.workspace.fuelMapSet.PTMap->GetLocation(), fuelPT);
}

QWidget &TSceneTest::Activate(QWidget &opened) {
    opened.activateWindow();
    QTest::qWait(0);
    // The screenless platform tells nothing of a window that was active while it was minimised.
    if (QApplication::activeWindow() != &opened)
        QApplication::setActiveWindow(&opened);
    return opened;
}

void TSceneTest::SelectTab(int index) {
    window.PageControl1->setFocus();
    window.PageControl1->SelectByUser(index);
    QTest::qWait(0);
}

QWidget &TSceneTest::Open(TScene scene) {
    if (scene != TScene::FreshROM)
        LoadImage();
    SelectTab(TabOf(scene));
    return Activate(OpenOwnWindow(scene));
}

QWidget &TSceneTest::OpenOwnWindow(TScene scene) {
    const auto show = [this](QWidget *made) -> QWidget & {
        opened_.emplace_back(made);
        made->show();
        return *made;
    };
    switch (scene) {
    case TScene::Offer: {
        Image().Poke(0x7000, 99);
        window.StateChanged();
        OnPage<QRadioButton>("rdoROMtemplate0").click(); // reads the image anew
        TRecoveryBar &bar = dynamic_cast<TfrmROMInformation &>(Page()).RecoveryBar();
        bar.OnShow = [](const TKeptPatch &) {};
        window.Recovery().Finish();
        window.StateChanged();
        return window;
    }
    case TScene::AddedPage:
        OnPage<QAction>("Fuel5").trigger();
        OnPage<QAction>("AllHighlighted1").trigger();
        SelectTab(contentsTab + 1);
        return window;
    case TScene::Changes:
        ROMImage()->Poke(fuelPT + 11, 128);
        window.ShowChanges();
        return window;
    case TScene::Compare:
        ROMImage()->Poke(fuelPT + 11, 128);
        window.ShowCompare(TOtherImage(folder / "A.BIN"));
        return window;
    case TScene::Earlier:
        for (const char *day : {"20261120", "20261121"})
            KeepEarlier(*StateFolder(), folder / "A.BIN", TBytes(0x8000, 1), day);
        window.ShowEarlier();
        return window;
    case TScene::FindMaps:
        window.ShowFindMaps();
        return window;
    case TScene::MovedMaps:
        window.ShowMovedMaps(TOtherImage(folder / "A.BIN"));
        OnPage<QComboBox>("cboSpec").setCurrentIndex(1);
        return window;
    case TScene::Tools:
    case TScene::DockedTools: {
        OnPage<QPushButton>("btnRecalculate").click();
        TfrmToolWindow &tools = *dynamic_cast<TfrmMaps &>(Page()).ToolWindow;
        tools.setFloating(scene == TScene::Tools);
        return *tools.window();
    }
    case TScene::Key:
        OnPage<QPushButton>("Button1").click();
        return FindControl<QWidget>(window, "frmKey");
    case TScene::QuickChart: {
        auto *chart = new TfrmQuickChart(&window);
        chart->setAttribute(Qt::WA_DeleteOnClose, false);
        chart->SetMapOffset(fuelPT);
        return show(chart);
    }
    case TScene::Offsets:
        return show(new TfrmOffsetEntry(nullptr, window.workspace));
    case TScene::Help:
        std::ofstream(ProgramDirectory().toStdString() + helpFile) << "A line\nanother\n";
        return show(new TfrmHelp(helpFile));
    default:
        return window;
    }
}

void TSceneTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    ASSERT_TRUE(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

QString TSceneTest::FocusName() {
    const QWidget *focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QString("(none)");
}

std::vector<QWidget *> VisibleWidgets(const QWidget &root) {
    std::vector<QWidget *> visible;
    for (QWidget *widget : root.findChildren<QWidget *>())
        if (widget->isVisible() && widget->window() == root.window())
            visible.push_back(widget);
    return visible;
}
