#include "forms/KelvaneNotebook.h"

#include "forms/Help.h"
#include "forms/PageControl.h"
#include "forms/ProgramFile.h"
#include "forms/RecordingPage.h"
#include "support/FakeDialogs.h"

#include <stdexcept>

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTabBar>
#include <QTest>
#include <gtest/gtest.h>

namespace {
class Notebook : public testing::Test {
protected:
    Notebook() {
        for (const char *name : {"a", "b", "c"}) {
            auto page = std::make_unique<TRecordingPage>(name, calls);
            pages << page.get();
            window->AddPage(std::move(page), QString("tab") + name, name);
        }
    }

    /// Shows the window, forgetting the calls that this causes.
    void Show() {
        window->show();
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        calls.clear();
    }

    /// On a tab, with the mouse.
    void Press(int index) {
        QTabBar *bar = window->PageControl1->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
    QStringList Calls() { return std::exchange(calls, {}); }
    int Current() { return window->PageControl1->currentIndex(); }
    bool Hourglass() {
        const QCursor *cursor = QApplication::overrideCursor();
        return cursor && cursor->shape() == Qt::WaitCursor;
    }

    QStringList calls;
    TFakeDialogs dialogs;
    QList<TRecordingPage *> pages;
    std::unique_ptr<TfrmKelvaneNotebook> window = std::make_unique<TfrmKelvaneNotebook>();
};
} // namespace

TEST_F(Notebook, HasItsControls) {
    struct {
        QPushButton *button;
        const char *name;
        const char *caption;
        const char *hint;
        bool enabled;
    } const buttons[] = {
        {window->btnPrint, "btnPrint", "Print", "Print Displayed Data", true},
        {window->btnClose, "btnClose", "Close", "Close", true},
        {window->btnSave, "btnSave", "Save", "", false},
        {window->btnCancel, "btnCancel", "Cancel", "", false},
    };
    for (const auto &expected : buttons) {
        EXPECT_EQ(expected.button->objectName(), expected.name);
        EXPECT_EQ(expected.button->text(), expected.caption);
        EXPECT_EQ(expected.button->statusTip(), expected.hint);
        EXPECT_EQ(expected.button->isEnabled(), expected.enabled);
    }
    EXPECT_EQ(window->PageControl1->objectName(), "PageControl1");
    EXPECT_EQ(window->StatusBar1->objectName(), "StatusBar1");
    EXPECT_EQ(window->statusBar(), window->StatusBar1);
}

TEST_F(Notebook, AddedPagesHaveTheIndexOfTheirTabs) {
    EXPECT_EQ(window->PageCount(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(window->GetPage(i), pages[i]);
        EXPECT_EQ(window->PageIndex(pages[i]), i);
        EXPECT_EQ(pages[i]->Notebook(), window.get());
        EXPECT_TRUE(window->PageControl1->widget(i)->isAncestorOf(pages[i]));
    }
    EXPECT_EQ(window->PageControl1->widget(1)->objectName(), "tabb");
    EXPECT_EQ(window->PageControl1->tabText(1), "b");
    EXPECT_TRUE(calls.isEmpty());
}

TEST_F(Notebook, APageIsHiddenUntilItIsEntered) {
    Show();
    EXPECT_TRUE(pages[0]->isVisible());
    for (TRecordingPage *page : {pages[1], pages[2]})
        EXPECT_TRUE(page->isHidden());
    auto *late = new QPushButton("made while the page is entered", pages[1]);
    Press(1);
    EXPECT_TRUE(late->isVisible());
}

TEST_F(Notebook, ATabGetsItsScrollAreaWhenItIsFirstShown) {
    Show();
    const auto scrolls = [this](int tab) {
        return !window->PageControl1->widget(tab)->findChildren<QScrollArea *>().isEmpty();
    };
    EXPECT_TRUE(scrolls(0));
    EXPECT_FALSE(scrolls(1));
    EXPECT_EQ(pages[1]->window(), window.get());
    Press(1);
    EXPECT_TRUE(scrolls(1));
    EXPECT_TRUE(pages[1]->isVisible());
    EXPECT_EQ(pages[1]->size(), pages[0]->size());
}

TEST_F(Notebook, APageThatWasEnteredBeforeItsTabIsShownWithIt) {
    Show();
    pages[1]->ShowPage();
    window->PageControl1->SelectByProgram(1);
    EXPECT_TRUE(pages[1]->isVisible());
    window->PageControl1->SelectByProgram(2);
    EXPECT_FALSE(pages[2]->isVisible()) << "not entered yet";
}

TEST_F(Notebook, APageThatWasNeverShownIsAskedSavedAndFreedLikeTheOthers) {
    Show();
    pages[2]->DataChanged = true;
    EXPECT_TRUE(window->AnyDataChanged());
    EXPECT_TRUE(window->CloseTab(1));
    QTest::qWait(0);
    EXPECT_EQ(Calls(), QStringList({"b query", "b freed"}));
    EXPECT_TRUE(window->close());
    EXPECT_EQ(Calls(), QStringList({"a query", "c query"}));
}

TEST_F(Notebook, ATabCaptionIsShownLetterByLetter) {
    const int index = window->AddPage(std::make_unique<TEmbeddedForm>(), "tabX", "A&B");
    EXPECT_EQ(window->PageControl1->tabText(index), "A&&B");
}

TEST_F(Notebook, ATabWithoutPageIsAnError) {
    for (const int index : {-1, 3, 100}) {
        EXPECT_THROW(window->GetPage(index), EFormNotfound);
        EXPECT_THROW(window->RemovePage(index), EFormNotfound);
        EXPECT_THROW(window->CloseTab(index), EFormNotfound);
    }
    EXPECT_STREQ(EFormNotfound().what(), "Form Not Found");
    EXPECT_EQ(window->PageIndex(nullptr), -1);
    window->PageControl1->addTab(new QWidget, "bare");
    window->PageControl1->SelectByProgram(3);
    EXPECT_THROW(window->PageControl1Change(), EFormNotfound);
    EXPECT_THROW(window->PageControl1Changing(), EFormNotfound);
    window->btnPrint->click();
    EXPECT_EQ(dialogs.messages, QStringList({"Form Not Found"}));
}

TEST_F(Notebook, TheFirstShowEntersTheFirstTabOnce) {
    window->PageControl1->SelectByProgram(2);
    window->show();
    EXPECT_EQ(Current(), 0);
    EXPECT_EQ(Calls(), QStringList({"a show"}));
    window->hide();
    window->show();
    window->showMinimized();
    window->showNormal();
    EXPECT_TRUE(Calls().isEmpty());
}

TEST_F(Notebook, AnErrorOnTheFirstShowIsShown) {
    pages[0]->duringShow = [] { throw std::runtime_error("not ready"); };
    window->show();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(dialogs.messages, QStringList({"not ready"}));
}

TEST(EmptyNotebook, ShowsAndCloses) {
    TFakeDialogs dialogs;
    TfrmKelvaneNotebook window;
    window.show();
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(dialogs.messages.isEmpty());
    window.btnSave->setEnabled(true);
    window.btnSave->click();
    EXPECT_EQ(dialogs.messages, QStringList({"Form Not Found"}));
}

TEST_F(Notebook, ATabChangeLeavesOnePageAndEntersTheOther) {
    Show();
    bool waiting = false;
    pages[1]->duringShow = [&] { waiting = Hourglass(); };
    window->PageControl1->SelectByUser(1);
    EXPECT_EQ(Calls(), QStringList({"a query", "b show"}));
    EXPECT_EQ(Current(), 1);
    EXPECT_FALSE(pages[0]->PageVisible());
    EXPECT_TRUE(pages[1]->PageVisible());
    EXPECT_TRUE(waiting);
    EXPECT_FALSE(Hourglass());
}

TEST_F(Notebook, ARefusingPageKeepsItsTab) {
    Show();
    pages[0]->agrees = false;
    window->PageControl1->SelectByUser(1);
    EXPECT_EQ(Calls(), QStringList({"a query"}));
    EXPECT_EQ(Current(), 0);
    EXPECT_TRUE(pages[0]->PageVisible());
}

TEST_F(Notebook, AnErrorOnEnteringAPageIsShownAndTheTabStays) {
    Show();
    pages[1]->duringShow = [] { throw std::runtime_error("bad map"); };
    window->PageControl1->SelectByUser(1);
    EXPECT_EQ(dialogs.messages, QStringList({"bad map"}));
    EXPECT_EQ(Current(), 1);
    EXPECT_FALSE(Hourglass());
}

TEST_F(Notebook, AnErrorOnLeavingAPageIsShownAndKeepsTheTab) {
    Show();
    pages[0]->duringQuery = [] { throw std::runtime_error("bad cell"); };
    window->PageControl1->SelectByUser(1);
    EXPECT_EQ(dialogs.messages, QStringList({"bad cell"}));
    EXPECT_EQ(Current(), 0);
}

TEST_F(Notebook, TheBottomButtonsCallTheCurrentPage) {
    Show();
    window->PageControl1->SelectByUser(1);
    calls.clear();
    window->btnSave->setEnabled(true);
    window->btnCancel->setEnabled(true);
    window->btnPrint->click();
    window->btnSave->click();
    window->btnCancel->click();
    EXPECT_EQ(Calls(), QStringList({"b print", "b save", "b cancel"}));
}

TEST_F(Notebook, F1LeavesTheHelpOfThePagesToTheirButtons) {
    const TProgramFile file("readme.txt", "the guide\n");
    Show();
    QTest::keyClick(pages[0]->edit, Qt::Key_F1);
    EXPECT_TRUE(window->findChild<TfrmHelp *>());
    pages[0]->btnHelp->click();
    EXPECT_EQ(Calls(), QStringList("a help"));
}

TEST_F(Notebook, AnEditIsLeftBeforeItsPageIsAsked) {
    Show();
    pages[0]->edit->setFocus();
    QTest::keyClicks(pages[0]->edit, "7");
    QObject::connect(pages[0]->edit, &QLineEdit::editingFinished, pages[0],
                     [this] { calls << "edit finished"; });
    Press(1);
    EXPECT_EQ(Calls(), QStringList({"edit finished", "a query", "b show"}));
}

TEST_F(Notebook, APageThatTheMouseHasChosenTakesTheFocus) {
    Show();
    Press(1);
    EXPECT_TRUE(pages[1]->edit->hasFocus());
    window->btnClose->setFocus();
    Press(1);
    EXPECT_TRUE(pages[1]->edit->hasFocus()) << "its tab is the current one";
}

TEST_F(Notebook, APageThatTheKeysHaveChosenLeavesTheFocusInTheTabBar) {
    Show();
    window->PageControl1->tabBar()->setFocus();
    QTest::keyClick(window->PageControl1->tabBar(), Qt::Key_Right);
    EXPECT_EQ(Current(), 1);
    EXPECT_TRUE(window->PageControl1->tabBar()->hasFocus());
}

TEST_F(Notebook, APageThatCannotBeLeftGetsNoFocusFromItsNeighboursTab) {
    Show();
    pages[0]->agrees = false;
    Press(1);
    EXPECT_TRUE(window->PageControl1->tabBar()->hasFocus());
}

TEST_F(Notebook, APageWithoutControlsLeavesTheFocusInTheTabBar) {
    Show();
    pages[1]->edit->setEnabled(false);
    Press(1);
    EXPECT_EQ(Current(), 1);
    EXPECT_TRUE(window->PageControl1->tabBar()->hasFocus());
}

TEST_F(Notebook, ClosingAsksAllPagesInTabOrder) {
    Show();
    window->PageControl1->SelectByUser(1);
    calls.clear();
    bool waiting = false;
    pages[2]->duringQuery = [&] { waiting = Hourglass(); };
    window->btnClose->click();
    EXPECT_EQ(Calls(), QStringList({"a query", "b query", "c query"}));
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(waiting);
    EXPECT_FALSE(Hourglass());
}

TEST_F(Notebook, AClosedNotebookHasNoPagesAndFreesThemWithItself) {
    Show();
    EXPECT_TRUE(window->close());
    EXPECT_EQ(window->PageCount(), 0);
    EXPECT_THROW(window->GetPage(0), EFormNotfound);
    EXPECT_EQ(window->PageIndex(pages[0]), -1);
    EXPECT_TRUE(window->close());
    calls.clear();
    window.reset();
    calls.sort();
    EXPECT_EQ(Calls(), QStringList({"a freed", "b freed", "c freed"}));
}

TEST_F(Notebook, TheFirstRefusingPageIsSelectedAndKeepsTheWindowOpen) {
    Show();
    pages[1]->agrees = pages[2]->agrees = false;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(Current(), 1);
    // It had been left before, so it is entered again.
    EXPECT_EQ(Calls(), QStringList({"a query", "b query", "b show"}));
    EXPECT_FALSE(pages[0]->PageVisible());
    EXPECT_TRUE(pages[1]->PageVisible());
    EXPECT_EQ(window->PageCount(), 3);
}

TEST_F(Notebook, ACurrentPageThatRefusesTheCloseIsNotEnteredAgain) {
    Show();
    pages[0]->agrees = false;
    EXPECT_FALSE(window->FormCloseQuery());
    EXPECT_EQ(Calls(), QStringList({"a query"}));
    EXPECT_TRUE(pages[0]->PageVisible());
}

TEST_F(Notebook, APageThatFailsOnClosingIsShownAndCountsAsRefusing) {
    Show();
    pages[2]->duringQuery = [] { throw std::runtime_error("not saved"); };
    EXPECT_FALSE(window->close());
    EXPECT_EQ(dialogs.messages, QStringList({"not saved"}));
    EXPECT_EQ(Current(), 2);
    EXPECT_TRUE(pages[2]->PageVisible());
    EXPECT_FALSE(Hourglass());
}

TEST_F(Notebook, NoPageIsAskedWhileAQuestionIsOpen) {
    Show();
    pages[0]->duringQuery = [this] {
        window->PageControl1->SelectByUser(2);
        EXPECT_FALSE(window->PageControl1Changing());
        EXPECT_FALSE(window->CloseTab(0));
        EXPECT_FALSE(window->close());
    };
    window->PageControl1->SelectByUser(1);
    EXPECT_EQ(Calls(), QStringList({"a query", "b show"}));
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->PageCount(), 3);
}

TEST_F(Notebook, AnyChangedPageCounts) {
    EXPECT_FALSE(window->AnyDataChanged());
    pages[2]->DataChanged = true;
    EXPECT_TRUE(window->AnyDataChanged());
    window->SetDataChanged(false);
    EXPECT_FALSE(window->AnyDataChanged());
    window->SetDataChanged(true);
    for (const TRecordingPage *page : pages)
        EXPECT_TRUE(page->DataChanged);
}

TEST_F(Notebook, RemovingTheCurrentPageEntersTheNext) {
    Show();
    window->PageControl1->SelectByUser(1);
    calls.clear();
    const QPointer<TEmbeddedForm> removed = pages[1];
    window->RemovePage(1);
    EXPECT_EQ(Calls(), QStringList({"c show"}));
    EXPECT_EQ(window->PageCount(), 2);
    EXPECT_EQ(window->PageControl1->count(), 2);
    EXPECT_EQ(window->GetPage(1), pages[2]);
    EXPECT_EQ(Current(), 1);
    ASSERT_FALSE(removed.isNull());
    EXPECT_FALSE(removed->PageVisible());
    EXPECT_EQ(removed->Notebook(), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(removed.isNull());
    EXPECT_EQ(Calls(), QStringList({"b freed"}));
}

TEST_F(Notebook, RemovingTheLastTabEntersTheOneBefore) {
    Show();
    window->PageControl1->SelectByUser(2);
    calls.clear();
    window->RemovePage(2);
    EXPECT_EQ(Calls(), QStringList({"b show"}));
    EXPECT_EQ(Current(), 1);
}

TEST_F(Notebook, RemovingAnotherPageLeavesTheCurrentOneAlone) {
    Show();
    window->PageControl1->SelectByUser(2);
    calls.clear();
    window->RemovePage(0);
    EXPECT_TRUE(Calls().isEmpty());
    EXPECT_EQ(window->CurrentPage(), pages[2]);
    EXPECT_TRUE(pages[2]->PageVisible());
}

TEST_F(Notebook, TheLastPageMayGo) {
    Show();
    for (int i = 0; i < 3; ++i)
        window->RemovePage(0);
    EXPECT_EQ(window->PageControl1->count(), 0);
    EXPECT_EQ(Calls(), QStringList({"b show", "c show"}));
    EXPECT_TRUE(window->close());
}

TEST_F(Notebook, ClosePageFromThePagesOwnButton) {
    QPushButton *button = pages[0]->MakeCloseButton();
    const QPointer<TEmbeddedForm> closed = pages[0];
    // The page is still there while the handlers of its own button run.
    QObject::connect(button, &QPushButton::clicked, pages[0], [this] {
        EXPECT_EQ(window->PageCount(), 2);
        pages[0]->DataChanged = true;
    });
    Show();
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(Calls(), QStringList({"a query", "b show"}));
    EXPECT_EQ(window->PageCount(), 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(closed.isNull());
}

TEST_F(Notebook, ARefusingPageIsNotClosed) {
    Show();
    pages[0]->agrees = false;
    EXPECT_FALSE(window->CloseTab(0));
    EXPECT_EQ(window->PageCount(), 3);
    EXPECT_EQ(Calls(), QStringList({"a query"}));
}

TEST_F(Notebook, HintsGoToTheStatusBarAndTheOldHandlerComesBack) {
    Show();
    const auto hint = [](QWidget *control) {
        QStatusTipEvent event(control->statusTip());
        QApplication::sendEvent(control, &event);
    };
    QStringList outer;
    window.reset();
    const THintHandler before = SetApplicationHint([&](const QString &text) { outer << text; });
    window = std::make_unique<TfrmKelvaneNotebook>();
    hint(window->btnPrint);
    EXPECT_EQ(window->StatusBar1->currentMessage(), "Print Displayed Data");
    QPushButton other;
    SetHint(&other, "short|long part");
    hint(&other);
    EXPECT_EQ(window->StatusBar1->currentMessage(), "long part");
    EXPECT_TRUE(outer.isEmpty());
    window.reset();
    hint(&other);
    EXPECT_EQ(outer, QStringList({"long part"}));
    SetApplicationHint(before);
}

TEST_F(Notebook, HiddenButtonsLeaveTheirRoomToThePages) {
    Show();
    const int before = window->PageControl1->height();
    for (QPushButton *button :
         {window->btnPrint, window->btnClose, window->btnSave, window->btnCancel})
        button->hide();
    QCoreApplication::processEvents();
    EXPECT_GT(window->PageControl1->height(), before);
    EXPECT_EQ(window->PageControl1->height(), window->centralWidget()->height());
    window->btnPrint->show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->btnPrint->isVisible());
    EXPECT_EQ(window->PageControl1->height(), before);
}
