// What screen readers are told of every control: its role, its name, and where the name alone is
// not enough, its description.
#include "access/Scenes.h"
#include "forms/PageControl.h"
#include "forms/QtDialogs.h"
#include "spec/splash.h"

#include <map>

#include <QAccessible>
#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QTabBar>
#include <QTimer>

namespace {
using TRole = QAccessible::Role;

constexpr int mostCells = 200; // of a table that are looked at

/// Roles of what a user works with, looks at or is led by; the others only lay out.
const std::map<TRole, const char *> namedRoles{
    {QAccessible::PushButton, "button"},
    {QAccessible::CheckBox, "check box"},
    {QAccessible::RadioButton, "radio button"},
    {QAccessible::EditableText, "edit"},
    {QAccessible::SpinBox, "spin edit"},
    {QAccessible::Slider, "strip"},
    {QAccessible::ComboBox, "combo box"},
    {QAccessible::Table, "table"},
    {QAccessible::Cell, "cell"},
    {QAccessible::RowHeader, "row header"},
    {QAccessible::ColumnHeader, "column header"},
    {QAccessible::Chart, "chart"},
    {QAccessible::Graphic, "picture"},
    {QAccessible::PageTab, "tab"},
    {QAccessible::PropertyPage, "page"},
    {QAccessible::Grouping, "group"},
    {QAccessible::StatusBar, "status bar"},
    {QAccessible::Dialog, "dialog"},
    {QAccessible::Window, "window"},
    {QAccessible::PopupMenu, "menu"},
    {QAccessible::MenuItem, "menu item"},
};

QString NameOf(QAccessibleInterface &control) {
    return control.text(QAccessible::Name);
}

QAccessibleInterface &InterfaceOf(QObject &object) {
    QAccessibleInterface *found = QAccessible::queryAccessibleInterface(&object);
    if (!found)
        throw std::runtime_error("nothing to tell of " + object.objectName().toStdString());
    return *found;
}

std::string Whose(QAccessibleInterface &control) {
    const QObject *object = control.object();
    return object ? object->objectName().toStdString() + " " + object->metaObject()->className()
                  : "part of another";
}

/// The toolkit's own parts: an edit inside a spin edit, say.
bool IsInner(QAccessibleInterface &control) {
    const QObject *object = control.object();
    return object && (object->objectName().startsWith("qt_") ||
                      object->metaObject()->className() == std::string("QTableCornerButton"));
}

/// Calls `look` for `root` and all that is in it and on the screen.
template <class Look>
void ForEach(QAccessibleInterface &root, Look look) {
    if (!root.isValid() || root.state().invisible)
        return;
    if (!IsInner(root))
        look(root);
    const int count = std::min(root.childCount(), mostCells);
    for (int i = 0; i < count; ++i)
        if (QAccessibleInterface *child = root.child(i))
            ForEach(*child, look);
}

class TNamesTest : public TSceneTest, public testing::WithParamInterface<TScene> {};

TEST_P(TNamesTest, EachControlHasARoleAndAName) {
    int named = 0;
    ForEach(InterfaceOf(Open(GetParam())), [&](QAccessibleInterface &control) {
        EXPECT_NE(control.role(), QAccessible::NoRole) << Whose(control);
        const auto wanted = namedRoles.find(control.role());
        if (wanted == namedRoles.end())
            return;
        ++named;
        EXPECT_NE(NameOf(control).trimmed(), "") << wanted->second << " " << Whose(control);
    });
    EXPECT_GE(named, 2);
}

/// A name may come twice on a page, "Commit" say: the group around it then tells which it is.
TEST_P(TNamesTest, NamesAreUniqueInTheirGroup) {
    QWidget &opened = Open(GetParam());
    std::map<QString, std::string> known;
    ForEach(InterfaceOf(opened), [&](QAccessibleInterface &control) {
        auto *widget = qobject_cast<QWidget *>(control.object());
        if (!widget || !namedRoles.count(control.role()) || widget->focusPolicy() == Qt::NoFocus)
            return;
        QString path = NameOf(control);
        for (QWidget *group = widget->parentWidget(); group; group = group->parentWidget())
            path.prepend(NameOf(InterfaceOf(*group)) + "/");
        const auto [first, isNew] = known.emplace(path, Whose(control));
        EXPECT_TRUE(isNew) << path.toStdString() << ": " << Whose(control) << ", " << first->second;
    });
    EXPECT_FALSE(known.empty());
}

INSTANTIATE_TEST_SUITE_P(Scenes, TNamesTest, testing::ValuesIn(AllScenes()),
                         [](const auto &tested) { return SceneName(tested.param); });

struct TTold {
    TScene scene;
    const char *control;
    TRole role;
    const char *name;
    const char *description;
};

void PrintTo(const TTold &told, std::ostream *out) {
    *out << SceneName(told.scene) << " " << told.control;
}

constexpr auto menuHint = "The Menu key or Shift+F10 copies, pastes and unlocks";
constexpr auto offsetHint = "A double-click or F2 makes it writable";
constexpr auto hexHint = "Decimal, or hexadecimal behind a $";

const TTold controls[] = {
    {TScene::ROM, "frmROMInformation", QAccessible::PropertyPage, "ROM Information", ""},
    {TScene::ROM, "grpLoadROM", QAccessible::Grouping, "ROM Information", ""},
    {TScene::ROM, "btnLoad", QAccessible::PushButton, "Load ROM Image",
     "Load a new ROM Image into the program"},
    {TScene::ROM, "btnOffsetEntry", QAccessible::PushButton, "Manual Offsets",
     "Open the offset dialog again; its OK reads the image anew"},
    {TScene::ROM, "rdoROMtemplate", QAccessible::Grouping, "Select Mapping Specification",
     "Say where the maps are: by a spec file of the image's folder, or by hand"},
    {TScene::Offer, "barRecovery", QAccessible::Grouping, "Changes that were never saved", ""},
    {TScene::Offer, "btnBringBack", QAccessible::PushButton, "Bring Back",
     "Make these changes again in the image in memory; choose the mapping first"},
    {TScene::ROM, "rdoROMtemplate0", QAccessible::RadioButton, "Direct", ""},
    {TScene::Fuel, "Panel1", QAccessible::Grouping, "Partial Throttle Lambda Trim Map", ""},
    {TScene::Fuel, "grdPTMap", QAccessible::Table, "Partial Throttle Lambda Trim Map", menuHint},
    {TScene::Fuel, "grdIdMap", QAccessible::Table, "Idle Lambda Trim Map", menuHint},
    {TScene::Fuel, "edtPTOffset", QAccessible::EditableText, "offset", offsetHint},
    {TScene::Fuel, "chtPTMap", QAccessible::Chart, "Partial Throttle Lambda Trim Map",
     "3 series of up to 4 points, values from 1 to 12"},
    {TScene::Fuel, "btnSavePT", QAccessible::PushButton, "Commit",
     "Writes the edits of \"Partial Throttle Lambda Trim Map\" into the image"},
    {TScene::Fuel, "btnResetFT", QAccessible::PushButton, "Reset",
     "Drops the edits of \"Full Throttle Lambda Trim Map\""},
    {TScene::Fuel, "spnRevLimiter", QAccessible::SpinBox, "Max RPM",
     "The engine speed of the rev limiter, in steps of 40 rpm"},
    {TScene::Fuel, "btnSaverev", QAccessible::PushButton, "Commit",
     "Of the rev limiter and of the part throttle map"},
    {TScene::Fuel, "chkInterpret", QAccessible::CheckBox, "Interpret Byte Values",
     "Show lambda trims or degrees in place of the stored bytes"},
    {TScene::Timing, "grdFTMap", QAccessible::Table, "Full Throttle Ign Timing Map", menuHint},
    {TScene::Timing, "chtFTMap", QAccessible::Chart, "Full Throttle Ign Timing Map",
     "1 series of up to 4 points, values from 1 to 4"},
    {TScene::FuelChart, "frmFuelMapsGraphical", QAccessible::PropertyPage, "Graphical Fuel Maps",
     "The arrow keys turn and tilt the chart"},
    {TScene::FuelChart, "udZoom", QAccessible::Grouping, "Zoom", ""},
    {TScene::FuelChart, "udZoomUp", QAccessible::PushButton, "Zoom in", "Zoom in"},
    {TScene::Contents, "grdFile", QAccessible::Table, "File Contents",
     "The Menu key or Shift+F10 opens the menu"},
    {TScene::Contents, "ovwFile", QAccessible::Slider, "Overview",
     "The whole image with its marks: a click or the arrow keys go there"},
    {TScene::Contents, "PopupMenu1", QAccessible::PopupMenu, "File Contents", ""},
    {TScene::AddedPage, "frmFuelMaps_4000", QAccessible::PropertyPage, "map at $4000", ""},
    {TScene::Tools, "rdoDataset", QAccessible::Grouping, "Data Set", "The map that is changed"},
    {TScene::Tools, "edtVal", QAccessible::EditableText, "Amount", "The amount, a whole number"},
    {TScene::QuickChart, "chtMap", QAccessible::Chart, "Map Offset: $1000",
     "3 series of up to 4 points, values from 1 to 12"},
    {TScene::QuickChart, "edtOffset", QAccessible::EditableText, "Offset", "Where the map begins"},
    {TScene::Offsets, "edtDataOffset", QAccessible::EditableText,
     "Main Data Offset (try $0 or $100)", hexHint},
    {TScene::Offsets, "edtTimingFTMapOffset", QAccessible::EditableText, "Timing WOT Offset",
     hexHint},
    {TScene::Offsets, "btnOK", QAccessible::PushButton, "OK", "Take the offsets and close"},
    {TScene::Help, "Memo1", QAccessible::EditableText, "Help", ""},
};

class TToldTest : public TSceneTest, public testing::WithParamInterface<TTold> {};

TEST_P(TToldTest, IsWhatTheControlIs) {
    QWidget &opened = Open(GetParam().scene);
    opened.grab(); // charts tell of what they have drawn
    // Pages have controls of the same names.
    QWidget &root = &opened == &window ? *Page().parentWidget() : opened;
    QAccessibleInterface &told = InterfaceOf(FindControl<QWidget>(root, GetParam().control));
    EXPECT_EQ(told.role(), GetParam().role);
    EXPECT_EQ(NameOf(told), GetParam().name);
    EXPECT_EQ(told.text(QAccessible::Description), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(Controls, TToldTest, testing::ValuesIn(controls));

class TOtherNamesTest : public TSceneTest {};

TEST_F(TOtherNamesTest, TheTabsOfTheWindow) {
    Open(TScene::Fuel);
    QAccessibleInterface &bar = InterfaceOf(*window.PageControl1->tabBar());
    ASSERT_EQ(bar.role(), QAccessible::PageTabList);
    for (int i = 0; i < window.PageControl1->count(); ++i) {
        EXPECT_EQ(bar.child(i)->role(), QAccessible::PageTab);
        EXPECT_EQ(NameOf(*bar.child(i)), window.PageControl1->tabText(i));
    }
}

TEST_F(TOtherNamesTest, TheMenuAndTheStateOfTheWork) {
    Open(TScene::Fuel);
    QAccessibleInterface &menu = InterfaceOf(FindControl<QWidget>(window, "btnMenu"));
    EXPECT_EQ(menu.role(), QAccessible::PushButton);
    EXPECT_EQ(NameOf(menu), "Menu");
    EXPECT_EQ(NameOf(InterfaceOf(FindControl<QMenu>(window, "mnuCommands"))), "Menu");
    QAccessibleInterface &state = InterfaceOf(FindControl<QWidget>(window, "btnState"));
    EXPECT_EQ(state.role(), QAccessible::PushButton);
    EXPECT_EQ(NameOf(state), "State: spec DIRECT.SPC");
    EXPECT_EQ(state.text(QAccessible::Description),
              "Nothing is edited, and all is in the file; Spec file in force: DIRECT.SPC");
    auto &list = FindControl<QMenu>(window, "mnuState");
    EXPECT_EQ(NameOf(InterfaceOf(list)), "State");
    EXPECT_EQ(NameOf(*InterfaceOf(list).child(1)), "Spec file in force: DIRECT.SPC");
}

TEST_F(TOtherNamesTest, TheHintInTheStatusBarIsTold) {
    Open(TScene::FreshROM);
    QAccessibleInterface &bar = InterfaceOf(*window.StatusBar1);
    EXPECT_EQ(bar.role(), QAccessible::StatusBar);
    EXPECT_EQ(NameOf(bar), "Hint");
    window.StatusBar1->showMessage("Save the ROM Image to a binary file");
    EXPECT_EQ(bar.text(QAccessible::Description), "Save the ROM Image to a binary file");
    window.StatusBar1->clearMessage();
    EXPECT_EQ(bar.text(QAccessible::Description), "");
}

TEST_F(TOtherNamesTest, ThePanelsSayWhatTheyShow) {
    Open(TScene::ROM);
    QStringList told;
    for (QLabel *panel : OnPage<QStatusBar>("StatusBar1").findChildren<QLabel *>())
        told << InterfaceOf(*panel).text(QAccessible::Description) + ": " + panel->text();
    const QString file = QString::fromStdString((folder / "A.BIN").string());
    EXPECT_EQ(told, (QStringList{"Name of the ROM file: " + file, "Size of the image: 32,768 bytes",
                                 ": "}));
}

TEST_F(TOtherNamesTest, EveryMenuItemHasItsCaption) {
    for (const TScene scene : {TScene::Fuel, TScene::Contents}) {
        SelectTab(scene == TScene::Fuel ? 1 : 5);
        for (QMenu *menu : Page().findChildren<QMenu *>()) {
            QAccessibleInterface &told = InterfaceOf(*menu);
            EXPECT_EQ(told.role(), QAccessible::PopupMenu);
            EXPECT_NE(NameOf(told), "") << menu->objectName().toStdString();
            for (int i = 0; i < menu->actions().size(); ++i)
                EXPECT_EQ(NameOf(*told.child(i)), menu->actions()[i]->text().remove('&'));
        }
    }
}

TEST_F(TOtherNamesTest, TheSplashNamesItsLogo) {
    TfrmSplash splash;
    splash.show();
    QAccessibleInterface &logo = InterfaceOf(FindControl<QWidget>(splash, "imgLogo"));
    EXPECT_EQ(logo.role(), QAccessible::Graphic);
    EXPECT_EQ(NameOf(logo), "Ferrolyn");
    EXPECT_EQ(NameOf(InterfaceOf(FindControl<QWidget>(splash, "lblStatus"))), "Initializing.");
}

TEST_F(TOtherNamesTest, AnInputBoxIsLabelledByItsPrompt) {
    QTimer::singleShot(0, qApp, [] {
        auto *box = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(NameOf(InterfaceOf(*box)), "Find Value");
        EXPECT_EQ(NameOf(InterfaceOf(*box->findChild<QLineEdit *>())),
                  "Enter a value to search for");
        box->reject();
    });
    TQtDialogs().InputBox("Find Value", "Enter a value to search for", "");
}
} // namespace
