#include "guide/Windows.h"

#include "forms/Help.h"
#include "forms/PageControl.h"
#include "guide/Guide.h"
#include "maps/Maps.h"
#include "maps/ToolWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMetaProperty>
#include <QPushButton>
#include <QStatusBar>
#include <QTabBar>

const QStringList neverShown{"btnRead",   "btnWrite", "chkUsePP2",  "cmbDevice",
                             "btnFilter", "btnHelp",  "pnlButtons", "Button2"};

namespace {
/// Labels whose words change while the program runs, or that are not about using it.
const QStringList aboutLabels{"Label1", "Label2", "Label3", "Label4"};
const QStringList toldLabels{"lblTotal", "lblCell", "lblVersions", "lblFound", "lblLocations"};

/// Whether an object or one of its parents, up to `root`, has one of these names.
bool Below(const QObject *object, const QStringList &names, const QObject &root) {
    for (; object && object != &root; object = object->parent())
        if (names.contains(object->objectName()))
            return true;
    return false;
}

QStringList TextsOf(const QObject &object) {
    if (const auto *tabs = qobject_cast<const QTabBar *>(&object)) {
        QStringList texts;
        for (int tab = 0; tab < tabs->count(); ++tab)
            texts << tabs->tabText(tab);
        return texts;
    }
    if (const auto *combo = qobject_cast<const QComboBox *>(&object)) {
        QStringList texts{combo->currentText()};
        for (int item = 0; item < combo->count(); ++item)
            texts << combo->itemText(item);
        return texts;
    }
    if (qobject_cast<const QGroupBox *>(&object) || qobject_cast<const QMenu *>(&object))
        return {object.property("title").toString()};
    if (qobject_cast<const QAction *>(&object) || qobject_cast<const QAbstractButton *>(&object) ||
        qobject_cast<const QLabel *>(&object))
        return {object.property("text").toString()};
    return {};
}

/// Of the status bar, or of the lines about the program: they change while it runs.
bool IsChanging(const QObject &object, const QObject &root) {
    if (toldLabels.contains(object.objectName()))
        return true;
    const bool about = aboutLabels.contains(object.objectName());
    for (const QObject *parent = object.parent(); parent; parent = parent->parent()) {
        if (qobject_cast<const QStatusBar *>(parent) ||
            (about && parent->objectName() == "frmROMInformation"))
            return true;
        if (parent == &root)
            break;
    }
    return false;
}

std::vector<TItem> ItemsOf(const QWidget &window, const QString &name) {
    std::vector<TItem> items;
    for (const QObject *object : window.findChildren<QObject *>()) {
        if (Below(object, neverShown, window) || IsChanging(*object, window))
            continue;
        for (const QString &text : TextsOf(*object))
            if (!Plain(text).isEmpty())
                items.push_back({name, object->objectName(), text});
    }
    return items;
}

/// The texts among all properties of an object.
QStringList CarriedBy(const QObject &object) {
    QStringList texts = TextsOf(object);
    const QMetaObject &type = *object.metaObject();
    for (int i = 0; i < type.propertyCount(); ++i)
        if (type.property(i).typeId() == QMetaType::QString)
            texts << type.property(i).read(&object).toString();
    return texts;
}
} // namespace

TWindowsTest::TWindowsTest() {
    TfrmBaseForm::ProgRegKey = "key";
    PlantMaps();
    PlaceMaps(window.workspace);
    offsets = std::make_unique<TfrmOffsetEntry>(nullptr, window.workspace);
    quickChart = std::make_unique<TfrmQuickChart>(nullptr);
    for (int page = 0; page < window.PageCount(); ++page)
        window.GetPage(page)->ShowPage();
    FindControl<QPushButton>(*window.GetPage(5), "Button1").click();
    window.ShowChanges();
    dialogs.opens.push_back({});
    window.ShowCompare({});
    window.ShowEarlier();
    window.ShowFindMaps();
    dialogs.opens.push_back({});
    window.ShowMovedMaps({});
    window.PageControl1->SelectByUser(0);
}

TWindowsTest::~TWindowsTest() {
    TfrmBaseForm::ProgRegKey.clear();
}

const QWidget &TWindowsTest::Tools() {
    return *dynamic_cast<TfrmMaps &>(*window.GetPage(1)).ToolWindow;
}

std::vector<std::pair<QString, const QWidget *>> TWindowsTest::AllWindows() {
    std::vector<std::pair<QString, const QWidget *>> windows{{"the tabs", window.PageControl1},
                                                             {"the main window", &window},
                                                             {"Tools", &Tools()},
                                                             {"Key", &Key()},
                                                             {"Offset Entry", offsets.get()},
                                                             {"Quick Map", quickChart.get()},
                                                             {"the splash", &splash},
                                                             {"the help window", &help}};
    for (int page = 0; page < window.PageCount(); ++page)
        windows.emplace_back("a page", window.GetPage(page));
    return windows;
}

std::vector<TItem> TWindowsTest::ShownItemsOf(const QWidget &window, const QString &name) {
    std::vector<TItem> items = ItemsOf(window, name);
    std::erase_if(items, [&](const TItem &item) {
        const auto *control = window.findChild<QWidget *>(item.name);
        return control && !item.name.isEmpty() && control->isHidden();
    });
    return items;
}

std::vector<TItem> TWindowsTest::AllItems() {
    std::vector<TItem> all;
    for (const auto &[name, form] : AllWindows()) {
        all.push_back({name, "the title", form->windowTitle()});
        for (const TItem &item : ItemsOf(*form, name))
            all.push_back(item);
    }
    return all;
}

QSet<QString> TWindowsTest::AllCarried() {
    QSet<QString> all;
    const auto add = [&all](const QObject &object) {
        for (const QString &text : CarriedBy(object))
            all << text;
    };
    for (const auto &[name, form] : AllWindows()) {
        add(*form);
        for (const QObject *object : form->findChildren<QObject *>())
            add(*object);
    }
    return all;
}
