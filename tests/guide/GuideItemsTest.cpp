// Every menu item, button, check box, label, group and tab of the running windows stands in the
// guide, and what the help texts quote is in the program.
#include "filedisplay/FileDisplay.h"
#include "forms/Aligrid.h"
#include "forms/Help.h"
#include "forms/PageControl.h"
#include "guide/Guide.h"
#include "guide/SourceTexts.h"
#include "maps/Maps.h"
#include "maps/QuickChart.h"
#include "maps/ToolWindow.h"
#include "pages/PageFixture.h"
#include "spec/main.h"
#include "spec/offsetentry.h"
#include "spec/splash.h"

#include <algorithm>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QStatusBar>
#include <gmock/gmock.h>

namespace {
/// Controls that no window ever shows; they are built only to be complete.
const QStringList neverShown{"btnRead",   "btnWrite", "chkUsePP2",  "cmbDevice",
                             "btnFilter", "btnHelp",  "pnlButtons", "Button2"};

/// Labels whose words change while the program runs, or that are not about using it.
const QStringList aboutLabels{"Label1", "Label2", "Label3", "Label4"};

struct TItem {
    QString window;
    QString name;
    QString text;
};

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

/// The same without what this window hides: it shares its buttons with others.
std::vector<TItem> ShownItemsOf(const QWidget &window, const QString &name) {
    std::vector<TItem> items = ItemsOf(window, name);
    std::erase_if(items, [&](const TItem &item) {
        const auto *control = window.findChild<QWidget *>(item.name);
        return control && !item.name.isEmpty() && control->isHidden();
    });
    return items;
}

class GuideItems : public TPageTest {
protected:
    GuideItems() {
        TfrmBaseForm::ProgRegKey = "key";
        PlantMaps();
        PlaceMaps(window.workspace);
        offsets = std::make_unique<TfrmOffsetEntry>(nullptr, window.workspace);
        quickChart = std::make_unique<TfrmQuickChart>(nullptr);
        for (int page = 0; page < window.PageCount(); ++page)
            window.GetPage(page)->ShowPage();
        FindControl<QPushButton>(*window.GetPage(5), "Button1").click();
    }
    ~GuideItems() override { TfrmBaseForm::ProgRegKey.clear(); }

    const QWidget &Key() { return FindControl<QWidget>(window, "frmKey"); }
    const QWidget &Tools() { return *dynamic_cast<TfrmMaps &>(*window.GetPage(1)).ToolWindow; }

    std::vector<TItem> AllItems() {
        std::vector<TItem> all;
        const auto add = [&](const QWidget &form, const char *name) {
            all.push_back({name, "the title", form.windowTitle()});
            for (const TItem &item : ItemsOf(form, name))
                all.push_back(item);
        };
        add(*window.PageControl1, "the tabs");
        for (int page = 0; page < window.PageCount(); ++page)
            add(*window.GetPage(page), "a page");
        add(window, "the main window");
        add(Tools(), "Tools");
        add(Key(), "Key");
        add(*offsets, "Offset Entry");
        add(*quickChart, "Quick Map");
        add(splash, "the splash");
        add(TfrmHelp("readme.txt"), "the help window");
        return all;
    }

    TfrmNotebook window;
    std::unique_ptr<TfrmOffsetEntry> offsets;
    std::unique_ptr<TfrmQuickChart> quickChart;
    TfrmSplash splash;
};

QSet<QString> PlainSet(const QSet<QString> &texts) {
    QSet<QString> plain;
    for (const QString &text : texts)
        plain << Plain(text);
    return plain;
}

QSet<QString> QuotedIn(const QString &name) {
    for (const QString &file : HelpFiles())
        if (QFileInfo(file).fileName() == name)
            return PlainSet(QuotedTexts(TextOfFile(file)));
    ADD_FAILURE() << "no help text " << name.toStdString();
    return {};
}

void ExpectQuoted(const std::vector<TItem> &items, const QString &helpFile) {
    const QSet<QString> quoted = QuotedIn(helpFile);
    for (const TItem &item : items)
        EXPECT_TRUE(Plain(item.text).isEmpty() || quoted.contains(Plain(item.text)))
            << helpFile.toStdString() << " does not quote \"" << item.text.toStdString() << "\" ("
            << item.name.toStdString() << ", " << item.window.toStdString() << ')';
}
} // namespace

TEST_F(GuideItems, StandInTheGuide) {
    splash.show();
    EXPECT_GT(AllItems().size(), 100U);
    ExpectQuoted(AllItems(), "readme.txt");
}

TEST_F(GuideItems, OfADialogStandInItsOwnHelpText) {
    ExpectQuoted(ShownItemsOf(Key(), "Key"), "frmKey.txt");
    ExpectQuoted(ShownItemsOf(*offsets, "Offset Entry"), "frmOffsetEntry.txt");
    ExpectQuoted(ShownItemsOf(*quickChart, "Quick Map"), "frmQuickChart.txt");
    ExpectQuoted(ShownItemsOf(Tools(), "Tools"), "frmToolWindow.txt");
}

TEST_F(GuideItems, ThatAreLeftOutAreNeverShown) {
    window.show();
    offsets->show();
    quickChart->show();
    for (int page = 0; page < window.PageCount(); ++page) {
        window.PageControl1->SelectByUser(page);
        if (auto *maps = dynamic_cast<TfrmMaps *>(window.GetPage(page)))
            maps->ToolWindow->show();
        for (const QWidget *form :
             std::initializer_list<const QWidget *>{&window, offsets.get(), quickChart.get()})
            for (const QString &name : neverShown)
                for (const QWidget *control : form->findChildren<QWidget *>(name))
                    EXPECT_FALSE(control->isVisible()) << name.toStdString();
    }
}

TEST_F(GuideItems, TabsOfFoundMapsStandInTheGuide) {
    const QSet<QString> quoted = QuotedIn("readme.txt");
    QStringList captions;
    for (const QString &literal : LiteralsIn(ProgramSources()))
        if (literal.endsWith(" at $%1") && literal.contains("-D "))
            captions << Plain(literal.chopped(2));
    EXPECT_EQ(captions.size(), 4);
    for (const QString &caption : captions)
        EXPECT_TRUE(quoted.contains(caption)) << caption.toStdString();
}

namespace {
QSet<QString> TextsOfSources() {
    QSet<QString> texts;
    for (const QString &literal : LiteralsIn(ProgramSources())) {
        texts << Plain(literal.section('|', 0, 0));
        for (const QString &fragment : Fragments(literal))
            texts << Plain(fragment);
    }
    return texts;
}

void ExpectKnown(const QString &file, const QSet<QString> &known) {
    for (const QString &text : QuotedTexts(TextOfFile(file)))
        EXPECT_TRUE(known.contains(Plain(text)))
            << QFileInfo(file).fileName().toStdString() << " quotes \"" << text.toStdString()
            << "\", which the program does not show";
}
} // namespace

TEST_F(GuideItems, ThatAreQuotedAreInTheProgram) {
    splash.show();
    QSet<QString> known = TextsOfSources();
    for (const TItem &item : AllItems())
        known << Plain(item.text);
    // Signs, an example of the length, and messages with a text of the user's.
    for (const char *text : {"%", ";", "32,768 bytes", "'TEXT' is not a valid integer value"})
        known << text;
    for (const QString &file : HelpFiles())
        ExpectKnown(file, known);
    // Labels of spec files: of a sample, and of one that the reader saves.
    for (const char *text : {"Ferrolyn sample 32K, offsets", "Found by myself"})
        known << text;
    for (const char *file : {"/README.md", "/samples/README.md"})
        ExpectKnown(QString(FERROLYN_SOURCE_DIR) + file, known);
}
