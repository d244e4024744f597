// Every menu item, button, check box, label, group and tab of the running windows stands in the
// guide, and what the help texts quote is in the program.
#include "forms/PageControl.h"
#include "guide/Guide.h"
#include "guide/ProgramTexts.h"
#include "guide/Windows.h"
#include "maps/Maps.h"
#include "maps/ToolWindow.h"

#include <QFileInfo>
#include <gmock/gmock.h>

namespace {
class GuideItems : public TWindowsTest {};

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
    for (const auto &[context, text] : ProgramTexts())
        if (text.endsWith(" at $%1") && text.contains("-D "))
            captions << Plain(text.chopped(2));
    EXPECT_EQ(captions.size(), 4);
    for (const QString &caption : captions)
        EXPECT_TRUE(quoted.contains(caption)) << caption.toStdString();
}

namespace {
QSet<QString> TextsOfSources() {
    QSet<QString> texts;
    for (const auto &[context, text] : ProgramTexts()) {
        texts << Plain(text.section('|', 0, 0));
        for (const QString &fragment : Fragments(text))
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
    // Its name, signs, an example of the length, and messages with a text of the user's.
    for (const char *text :
         {"Ferrolyn", "%", ";", "32,768 bytes", "'TEXT' is not a valid integer value"})
        known << text;
    for (const QString &file : HelpFiles())
        ExpectKnown(file, known);
    // Labels of spec files: of a sample, and of one that the reader saves.
    for (const char *text : {"Ferrolyn sample 32K, offsets", "Found by myself"})
        known << text;
    for (const char *file : {"/README.md", "/samples/README.md"})
        ExpectKnown(QString(FERROLYN_SOURCE_DIR) + file, known);
}
