// Base of tests of what the main window adds to its pages: the window with an image and its spec
// file in the current folder, and the gestures of the user.
#pragma once

#include "forms/Aligrid.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "forms/baseform.h"
#include "pages/PageFixture.h"
#include "spec/ROMInfo.h"
#include "spec/main.h"

#include <fstream>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

class TWindowTest : public TPageTest {
protected:
    static constexpr int romTab = 0;
    static constexpr int fuelTab = 1;
    static constexpr int timingTab = 2;
    static constexpr int contentsTab = 5;

    TWindowTest() {
        TfrmBaseForm::ProgRegKey = "key";
        window.show();
        window.tmrSplashTimer(); // what the first tick does
        window.resize(1000, 760);
        QApplication::setActiveWindow(&window);
        SetMessageHook(
            [this](const std::string &text) { dialogs.ShowMessage(QString::fromStdString(text)); });
    }
    ~TWindowTest() override { TfrmBaseForm::ProgRegKey.clear(); }

    /// Writes an image with the planted maps below the test's folder.
    QString MakeImage(const std::string &name, std::uint8_t mark = 1) {
        PlantMaps();
        Image().Poke(0x7000, mark);
        std::filesystem::create_directories((folder / name).parent_path());
        PutFile(folder / name, Get(0, Image().size));
        Image().data.fill(0);
        Image().size = 0;
        return QString::fromStdString((folder / name).make_preferred().string());
    }
    void MakeSpec(const std::string &name) {
        std::filesystem::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary)
            << "; Direct\n[Fuel Maps]\npt_offset=$1000\nidle_offset=$1200\nwot_offset=$1300\n"
               "[Timing Maps]\npt_offset=$2000\nidle_offset=$2200\nwot_offset=$2300\n"
               "[Other Maps]\nrevlimit_offset=$40\n";
    }

    TfrmROMInformation &ROMPage() {
        return dynamic_cast<TfrmROMInformation &>(*window.Page(romTab));
    }
    template <class Control>
    Control &On(int tab, const QString &name) {
        return FindControl<Control>(*window.Page(tab), name);
    }
    void Click(int tab, const QString &name) { On<QPushButton>(tab, name).click(); }
    void Load(const QString &file) {
        dialogs.opens.push_back(file);
        Click(romTab, "btnLoad");
    }
    /// The item of the list of spec files.
    void Choose(int index) {
        On<QRadioButton>(romTab, "rdoROMtemplate" + QString::number(index)).click();
    }
    /// An image and its spec file, chosen.
    void LoadAndPlace() {
        MakeSpec("A.SPC");
        Load(MakeImage("A.BIN"));
        Choose(0);
    }
    void Enter(int tab) { window.PageControl1->SelectByUser(tab); }
    int Current() { return window.PageControl1->currentIndex(); }
    /// Types into a cell of a page's grid and ends the edit.
    void Type(int tab, const QString &gridName, int column, int row, const QString &text) {
        auto &grid = On<TStringAlignGrid>(tab, gridName);
        grid.SetCurrent(column, row);
        QTest::keyClick(grid.viewport(), Qt::Key_F2);
        auto *editor = grid.viewport()->findChild<QLineEdit *>();
        ASSERT_TRUE(editor);
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Enter);
        QTest::qWait(0);
    }
    /// A key in whatever has the focus.
    void Press(Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QApplication::setActiveWindow(&window);
        if (!QApplication::focusWidget())
            window.CurrentPage()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), key, held);
    }

    TfrmNotebook window;
};
