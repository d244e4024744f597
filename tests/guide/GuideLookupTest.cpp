// Whoever asks for help gets the right text: every page the guide, every dialog its own.
#include "filedisplay/FileDisplay.h"
#include "forms/Help.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "guide/Guide.h"
#include "guide/ProgramTexts.h"
#include "maps/Maps.h"
#include "maps/QuickChart.h"
#include "maps/ToolWindow.h"
#include "pages/PageFixture.h"
#include "spec/main.h"
#include "spec/offsetentry.h"

#include <QApplication>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTimer>
#include <gmock/gmock.h>

namespace {
/// The classes of dialogs.
QStringList DialogClasses() {
    return FoundIn({"*.h"}, "^class (\\w+)\\s*:\\s*public TfrmBaseForm\\b");
}

class HelpLookup : public TPageTest {
protected:
    HelpLookup() { TfrmBaseForm::ProgRegKey = "key"; }
    ~HelpLookup() override { TfrmBaseForm::ProgRegKey.clear(); }

    static QString SourceOf(const QString &name) {
        for (const QString &file : HelpFiles())
            if (QFileInfo(file).fileName() == name)
                return TextOfFile(file);
        return {};
    }
    /// F1 in a window, with the focus in one of its controls.
    static void PressF1(QWidget &focus) {
        focus.setFocus();
        QTest::keyClick(&focus, Qt::Key_F1);
    }
    void ExpectHelp(QWidget &asker) {
        const auto *help = asker.findChild<TfrmHelp *>();
        ASSERT_TRUE(help) << asker.objectName().toStdString();
        EXPECT_TRUE(help->isVisible());
        EXPECT_FALSE(help->isModal());
        EXPECT_EQ(help->Memo1->toPlainText() + '\n', SourceOf(asker.objectName() + ".txt"));
        EXPECT_EQ(dialogs.messages, QStringList());
    }

    TfrmNotebook window;
};
} // namespace

TEST_F(HelpLookup, F1OnEachPageOpensTheGuideAtThePagesChapter) {
    window.show();
    window.setWindowState(Qt::WindowNoState); // it comes up minimised
    const char *const chapters[] = {"5  ROM INFORMATION",
                                    "8  FUEL MAPS AND TIMING MAPS",
                                    "8  FUEL MAPS AND TIMING MAPS",
                                    "10  GRAPHICAL FUEL MAPS AND GRAPHICAL TIMING MAPS",
                                    "10  GRAPHICAL FUEL MAPS AND GRAPHICAL TIMING MAPS",
                                    "11  FILE CONTENTS"};
    for (int page = 0; page < window.PageCount(); ++page) {
        window.PageControl1->SelectByUser(page);
        QApplication::setActiveWindow(&window);
        QTest::keyClick(&window, Qt::Key_F1);
        const auto *help = window.findChild<TfrmHelp *>();
        ASSERT_TRUE(help) << page;
        EXPECT_TRUE(help->isVisible());
        EXPECT_FALSE(help->isModal());
        EXPECT_EQ((help->Memo1->toPlainText() + '\n').toStdString(),
                  SourceOf("readme.txt").toStdString());
        EXPECT_EQ(help->Memo1->cursorForPosition({2, 2}).block().text(), chapters[page]);
    }
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(HelpLookup, TheHelpButtonOfAPageOpensTheGuideModally) {
    for (int page = 0; page < window.PageCount(); ++page) {
        QString shown;
        QTimer::singleShot(0, &window, [&] {
            auto *help = qobject_cast<TfrmHelp *>(QApplication::activeModalWidget());
            ASSERT_TRUE(help) << page;
            shown = help->Memo1->toPlainText();
            help->reject();
        });
        window.GetPage(page)->btnHelp->click();
        EXPECT_EQ((shown + '\n').toStdString(), SourceOf("readme.txt").toStdString()) << page;
    }
}

TEST_F(HelpLookup, F1InOffsetEntryOpensItsText) {
    TfrmOffsetEntry offsets(nullptr, window.workspace);
    offsets.show();
    PressF1(FindControl<QLineEdit>(offsets, "edtFuelPTMapOffset"));
    ExpectHelp(offsets);
}

TEST_F(HelpLookup, F1InQuickMapOpensItsText) {
    auto *chart = new TfrmQuickChart(&window);
    window.show();
    chart->show();
    PressF1(*chart);
    ExpectHelp(*chart);
}

TEST_F(HelpLookup, F1InTheKeyOpensItsText) {
    window.show();
    window.PageControl1->SelectByUser(5);
    FindControl<QPushButton>(*window.GetPage(5), "Button1").click();
    auto &key = FindControl<TfrmBaseForm>(window, "frmKey");
    PressF1(*key.btnOK);
    ExpectHelp(key);
}

TEST_F(HelpLookup, F1InTheToolsOpensTheirText) {
    window.show();
    window.PageControl1->SelectByUser(1);
    auto &tools = *dynamic_cast<TfrmMaps &>(*window.GetPage(1)).ToolWindow;
    tools.show();
    PressF1(FindControl<QLineEdit>(tools, "edtVal"));
    ExpectHelp(tools);
}

TEST_F(HelpLookup, TheHelpButtonOfADialogDoesTheSame) {
    TfrmOffsetEntry offsets(nullptr, window.workspace);
    offsets.btnHelp->click();
    ExpectHelp(offsets);
}

TEST_F(HelpLookup, AskingTwiceShowsOneWindow) {
    TfrmOffsetEntry offsets(nullptr, window.workspace);
    offsets.btnHelp->click();
    offsets.btnHelp->click();
    EXPECT_EQ(offsets.findChildren<TfrmHelp *>().size(), 1);
    ExpectHelp(offsets);
}

TEST_F(HelpLookup, EachDialogOfTheSourcesHasAText) {
    const QStringList dialogClasses = DialogClasses();
    EXPECT_THAT(dialogClasses,
                testing::IsSupersetOf(
                    {QString("TfrmKey"), QString("TfrmOffsetEntry"), QString("TfrmQuickChart")}));
    for (const QString &name : dialogClasses)
        EXPECT_TRUE(QFileInfo(ProgramDirectory() + name.mid(1) + ".txt").isFile())
            << name.toStdString();
}

TEST_F(HelpLookup, NoTextIsWithoutAWindow) {
    QStringList windows{"readme.txt", "frmToolWindow.txt"};
    for (const QString &name : DialogClasses())
        windows << name.mid(1) + ".txt";
    for (const QString &file : HelpFiles())
        EXPECT_TRUE(windows.contains(QFileInfo(file).fileName())) << file.toStdString();
}
