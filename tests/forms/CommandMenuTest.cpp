// The menu button beside the tabs: the commands of the current page and of the window, by mouse and
// by keys.
#include "forms/CommandMenu.h"

#include "forms/Commands.h"
#include "forms/KelvaneNotebook.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "support/FakeDialogs.h"
#include "support/FindControl.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {
class CommandMenu : public testing::Test {
protected:
    CommandMenu() {
        for (const char *name : {"first", "second"}) {
            auto added = std::make_unique<TEmbeddedForm>();
            pages << added.get();
            new QLineEdit(added.get());
            window.AddPage(std::move(added), QString("tab") + name, name);
        }
        AddCommand(*pages[0], {.name = "actA",
                               .text = "A&dd",
                               .keys = {Qt::CTRL | Qt::Key_D},
                               .run = [this] { done << "add"; },
                               .can = [this] { return able; }});
        AddCommandLine(*pages[0]);
        QMenu *more = AddCommandMenu(*pages[0], "mnuMore", "&More");
        AddCommand(*more, {.name = "actB",
                           .text = "B",
                           .keys = {},
                           .run = [this] { done << "more"; },
                           .words = [this] { return words; }});
        AddCommand(*pages[1], {.name = "actC", .text = "C", .keys = {}, .run = [] {}});
        AddCommand(*pages[1], {.name = "actD", .text = "D", .keys = {}, .run = [] {
                                   throw std::runtime_error("not done");
                               }});
        window.show();
        QApplication::setActiveWindow(&window);
        pages[0]->findChild<QLineEdit *>()->setFocus();
    }

    /// The texts of a menu; "-" for a line, in brackets what cannot be done.
    static QStringList Texts(const QMenu &menu) {
        QStringList texts;
        for (const QAction *action : menu.actions()) {
            const QString text = action->isSeparator() ? QString("-") : action->text();
            texts << (action->isEnabled() || action->isSeparator() ? text : '(' + text + ')');
        }
        return texts;
    }
    QMenu &Menu() { return *button.menu; }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    QStringList done;
    bool able = true;
    QString words = "B";
    TFakeDialogs dialogs;
    QList<TEmbeddedForm *> pages;
    TfrmKelvaneNotebook window;
    TCommandMenu &button = FindControl<TCommandMenu>(window, "btnMenu");
};
} // namespace

TEST_F(CommandMenu, AClickShowsTheCommandsOfThePageAndThenOfTheWindow) {
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(Menu().isVisible());
    EXPECT_EQ(Texts(Menu()), QStringList({"A&dd", "-", "&More", "-", "&Guide"}));
    Menu().close();
    window.PageControl1->SelectByUser(1);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(Texts(Menu()), QStringList({"C", "D", "-", "&Guide"}));
    Menu().close();
}

TEST_F(CommandMenu, F10AndAltMOpenItWithItsFirstCommandChosen) {
    for (const auto &[key, held] : {std::pair(Qt::Key_F10, Qt::KeyboardModifiers()),
                                    {Qt::Key_M, Qt::KeyboardModifiers(Qt::AltModifier)}}) {
        done.clear();
        Press(key, held);
        ASSERT_TRUE(Menu().isVisible()) << key;
        QTest::keyClick(&Menu(), Qt::Key_Return);
        EXPECT_FALSE(Menu().isVisible());
        EXPECT_EQ(done, QStringList("add"));
    }
}

TEST_F(CommandMenu, ALetterChoosesAndEscapeLeavesTheFocusWhereItWas) {
    QWidget *focus = QApplication::focusWidget();
    Press(Qt::Key_F10);
    QTest::keyClick(&Menu(), Qt::Key_D);
    EXPECT_EQ(done, QStringList("add"));
    Press(Qt::Key_F10);
    QTest::keyClick(&Menu(), Qt::Key_Escape);
    EXPECT_FALSE(Menu().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), focus);
}

TEST_F(CommandMenu, WhatCannotBeDoneIsGreyAndItsKeysDoNothing) {
    able = false;
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(done, QStringList());
    Press(Qt::Key_F10);
    EXPECT_EQ(Texts(Menu()).first(), "(A&dd)");
    QTest::keyClick(&Menu(), Qt::Key_Escape);
    able = true;
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(done, QStringList("add")) << "the key asks anew";
}

TEST_F(CommandMenu, WordsAreThoseOfTheMoment) {
    words = "B again";
    Press(Qt::Key_F10);
    EXPECT_EQ(Texts(FindControl<QMenu>(window, "mnuMore")), QStringList("B again"));
    Menu().close();
}

TEST_F(CommandMenu, KeysOfAPageThatIsNotShownDoNothing) {
    window.PageControl1->SelectByUser(1);
    pages[1]->findChild<QLineEdit *>()->setFocus();
    Press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(done, QStringList());
}

TEST_F(CommandMenu, AnErrorOfACommandIsShown) {
    window.PageControl1->SelectByUser(1);
    FindControl<QAction>(window, "actD").trigger();
    EXPECT_EQ(dialogs.messages, QStringList("not done"));
}

TEST_F(CommandMenu, WithoutPagesOnlyTheWindowsCommandsAreThere) {
    while (window.PageCount() > 0)
        window.RemovePage(0);
    button.click();
    EXPECT_EQ(Texts(Menu()), QStringList("&Guide"));
    Menu().close();
    EXPECT_EQ(dialogs.messages, QStringList());
}

TEST_F(CommandMenu, TheButtonTakesNoFocusAndStandsBesideTheTabs) {
    EXPECT_EQ(button.focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(button.accessibleName(), "Menu");
    EXPECT_GE(button.mapTo(&window, QPoint()).x(),
              window.PageControl1->tabBar()->geometry().right());
    EXPECT_LE(button.mapTo(&window, QPoint(0, button.height())).y(),
              window.PageControl1->tabBar()->height());
}

TEST_F(CommandMenu, TheButtonShowsThreeBarsInTheColourOfItsText) {
    QPalette colors = button.palette();
    colors.setColor(QPalette::ButtonText, Qt::red);
    button.setPalette(colors);
    const QImage picture = button.grab().toImage();
    int bars = 0;
    for (int y = 1; y < picture.height(); ++y) {
        const int middle = picture.width() / 2;
        const auto isBar = [&](int row) {
            return picture.pixelColor(middle, row) == QColor(Qt::red);
        };
        bars += isBar(y) && !isBar(y - 1);
    }
    EXPECT_EQ(bars, 3);
}
