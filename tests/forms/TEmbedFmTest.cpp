#include "forms/TEmbedFm.h"

#include "forms/Help.h"
#include "forms/ProgramFile.h"
#include "support/FakeDialogs.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace {
class TPage : public TEmbeddedForm {
public:
    using TEmbeddedForm::TEmbeddedForm;
    QStringList events;

protected:
    void FormShow() override { events << "show"; }
    void FormHide() override { events << "hide"; }
};

class TManualPage : public TEmbeddedForm {
public:
    QString HelpFileName() const override { return "embedded-test.txt"; }
};
} // namespace

TEST(TEmbeddedForm, StartsUnchangedUnplacedAndInvisible) {
    QWidget parent;
    TPage page(&parent);
    parent.show();
    EXPECT_FALSE(page.DataChanged);
    EXPECT_EQ(page.Notebook(), nullptr);
    EXPECT_FALSE(page.PageVisible());
    EXPECT_TRUE(page.isHidden());
    EXPECT_TRUE(page.events.isEmpty());
}

TEST(TEmbeddedForm, HasAHiddenHelpButton) {
    TPage page;
    EXPECT_EQ(page.btnHelp->objectName(), "btnHelp");
    EXPECT_EQ(page.btnHelp->text(), "Help");
    EXPECT_TRUE(page.btnHelp->isHidden());
}

TEST(TEmbeddedForm, TheCloseButtonIsThePages) {
    TPage page;
    const QPushButton *button = page.MakeCloseButton();
    EXPECT_EQ(button->parent(), &page);
    EXPECT_EQ(button->objectName(), "btnClose");
    EXPECT_EQ(button->text(), "Close Page");
    EXPECT_EQ(button->toolTip(), "Close this page");
}

TEST(TEmbeddedForm, ClosingDoesNothingWithoutANotebook) {
    TPage page;
    page.ShowPage();
    page.MakeCloseButton()->click();
    EXPECT_TRUE(page.PageVisible());
    EXPECT_EQ(page.events, QStringList({"show"}));
}

TEST(TEmbeddedForm, ShowPageEntersAndQueryCloseLeaves) {
    TPage page;
    page.ShowPage();
    EXPECT_TRUE(page.PageVisible());
    EXPECT_FALSE(page.isHidden());
    EXPECT_TRUE(page.QueryClose());
    EXPECT_FALSE(page.PageVisible());
    EXPECT_TRUE(page.isHidden());
    EXPECT_EQ(page.events, QStringList({"show", "hide"}));
}

TEST(TEmbeddedForm, FormShowAndFormHideRunOnAChangeOnly) {
    TPage page;
    page.SetPageVisible(false);
    EXPECT_TRUE(page.events.isEmpty());
    page.SetPageVisible(true);
    page.SetPageVisible(true);
    EXPECT_EQ(page.events, QStringList({"show"}));
}

TEST(TEmbeddedForm, HidingTheWindowAroundItIsNotLeaving) {
    QWidget window;
    TPage page(&window);
    window.show();
    page.ShowPage();
    window.hide();
    window.show();
    window.showMinimized();
    window.showNormal();
    EXPECT_TRUE(page.PageVisible());
    EXPECT_EQ(page.events, QStringList({"show"}));
}

TEST(TEmbeddedForm, SaveCancelAndPrintDoNothingByThemselves) {
    TPage page;
    page.DataChanged = true;
    page.SavePage();
    page.CancelPage();
    page.PrintPage();
    EXPECT_TRUE(page.DataChanged);
    EXPECT_TRUE(page.events.isEmpty());
}

TEST(TEmbeddedForm, HelpIsTheReadmeUnlessThePageSaysOtherwise) {
    EXPECT_EQ(TPage().HelpFileName(), "readme.txt");
}

TEST(TEmbeddedForm, HelpButtonOpensTheHelpWindowModallyAndFreesIt) {
    const TProgramFile file("embedded-test.txt", "how the page works\n");
    TManualPage page;
    page.show();
    QString shown;
    bool modal = false;
    QTimer::singleShot(0, &page, [&] {
        auto *help = qobject_cast<TfrmHelp *>(QApplication::activeModalWidget());
        ASSERT_NE(help, nullptr);
        modal = help->isModal();
        shown = help->Memo1->toPlainText();
        help->close();
    });
    page.btnHelp->click();
    EXPECT_TRUE(modal);
    EXPECT_EQ(shown, "how the page works");
    EXPECT_EQ(page.findChild<TfrmHelp *>(), nullptr);
}

TEST(TEmbeddedForm, AMissingHelpFileIsShownAsAnError) {
    TFakeDialogs dialogs;
    TManualPage page;
    page.btnHelp->click();
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(dialogs.messages[0].contains("embedded-test.txt"));
    EXPECT_EQ(page.findChild<TfrmHelp *>(), nullptr);
}
