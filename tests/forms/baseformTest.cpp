#include "forms/baseform.h"

#include "forms/Help.h"
#include "forms/ProgramFile.h"
#include "support/FakeDialogs.h"

#include <optional>
#include <stdexcept>

#include <QFrame>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {
class TDialog : public TfrmBaseForm {
public:
    explicit TDialog(int mode = 1) : TfrmBaseForm(nullptr, mode) {
        setObjectName("frmDialogTest");
        for (const char *name : {"edtName", "edtCode", "other"}) {
            auto *edit = new QLineEdit;
            edit->setObjectName(name);
            Contents()->addWidget(edit);
        }
    }

    int shows = 0;
    int saves = 0;
    bool saveWorks = true;
    std::function<void()> duringSave;

    QLineEdit &Edit(const char *name) { return *findChild<QLineEdit *>(name); }

protected:
    void FormShow() override { ++shows; }
    bool SaveChanges() override {
        ++saves;
        if (duringSave)
            duringSave();
        return saveWorks;
    }
};

class BaseForm : public testing::Test {
protected:
    BaseForm() { TfrmBaseForm::ProgRegKey = "\\Software\\Test"; }
    ~BaseForm() override { TfrmBaseForm::ProgRegKey.clear(); }

    TFakeDialogs dialogs;
};

using TCloser = void (*)(TDialog &);

struct TCloseWay {
    const char *name;
    TCloser close;
    int result;
};

const TCloseWay ways[] = {
    {"ok", [](TDialog &d) { d.btnOK->click(); }, QDialog::Accepted},
    {"cancel", [](TDialog &d) { d.btnCancel->click(); }, QDialog::Rejected},
    {"window", [](TDialog &d) { d.close(); }, QDialog::Rejected},
    {"escape", [](TDialog &d) { QTest::keyClick(&d, Qt::Key_Escape); }, QDialog::Rejected},
    {"enter", [](TDialog &d) { QTest::keyClick(&d, Qt::Key_Return); }, QDialog::Accepted},
};

class BaseFormClosing : public BaseForm, public testing::WithParamInterface<TCloseWay> {
protected:
    TDialog dialog;

    void Close(std::optional<TAnswer> answer) {
        dialog.setResult(-1);
        dialog.show();
        if (answer)
            dialogs.answers = {*answer};
        GetParam().close(dialog);
    }

    void ExpectClosed(bool closed, int saves) {
        EXPECT_EQ(dialog.isHidden(), closed);
        EXPECT_EQ(dialog.result(), closed ? GetParam().result : -1);
        EXPECT_EQ(dialog.saves, saves);
    }
};
} // namespace

TEST_P(BaseFormClosing, AsksNothingWhenNothingIsModified) {
    Close({});
    ExpectClosed(true, 0);
    EXPECT_TRUE(dialogs.questions.isEmpty());
}

TEST_P(BaseFormClosing, YesSavesAndCloses) {
    dialog.modified = true;
    Close(TAnswer::Yes);
    EXPECT_EQ(dialogs.questions, QStringList({"Save Changes?"}));
    ExpectClosed(true, 1);
    EXPECT_FALSE(dialog.modified);
}

TEST_P(BaseFormClosing, NoClosesWithoutSaving) {
    dialog.modified = true;
    Close(TAnswer::No);
    EXPECT_EQ(dialogs.questions, QStringList({"Save Changes?"}));
    ExpectClosed(true, 0);
}

TEST_P(BaseFormClosing, CancelKeepsTheDialogOpen) {
    dialog.modified = true;
    Close(TAnswer::Cancel);
    EXPECT_EQ(dialogs.questions, QStringList({"Save Changes?"}));
    ExpectClosed(false, 0);
    EXPECT_TRUE(dialog.modified);
}

TEST_P(BaseFormClosing, AFailedSaveKeepsTheDialogOpen) {
    dialog.modified = true;
    dialog.saveWorks = false;
    Close(TAnswer::Yes);
    ExpectClosed(false, 1);
    EXPECT_TRUE(dialog.modified);
}

TEST_P(BaseFormClosing, AnErrorWhileSavingIsShownAndKeepsTheDialogOpen) {
    dialog.modified = true;
    dialog.duringSave = [] { throw std::runtime_error("disk full"); };
    Close(TAnswer::Yes);
    ExpectClosed(false, 1);
    EXPECT_EQ(dialogs.messages, QStringList({"disk full"}));
}

TEST_P(BaseFormClosing, IsNotAskedAgainWhileItIsBeingAsked) {
    dialog.modified = true;
    dialog.duringSave = [this] { GetParam().close(dialog); };
    Close(TAnswer::Yes);
    EXPECT_EQ(dialogs.questions.size(), 1);
    ExpectClosed(true, 1);
}

INSTANTIATE_TEST_SUITE_P(Ways, BaseFormClosing, testing::ValuesIn(ways),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(BaseForm, HasItsControlsInOnePanel) {
    const TDialog dialog;
    EXPECT_EQ(dialog.pnlMain->objectName(), "pnlMain");
    const std::pair<QPushButton *, QString> buttons[] = {{dialog.btnOK, "btnOK"},
                                                         {dialog.btnCancel, "btnCancel"},
                                                         {dialog.btnFilter, "btnFilter"},
                                                         {dialog.btnHelp, "btnHelp"}};
    for (const auto &[button, name] : buttons) {
        EXPECT_EQ(button->objectName(), name);
        EXPECT_EQ(button->parent(), dialog.pnlMain);
    }
    EXPECT_EQ(dialog.btnCancel->text(), "Cancel");
    EXPECT_EQ(dialog.btnFilter->text(), "Filter");
    EXPECT_EQ(dialog.btnHelp->text(), "Help");
    EXPECT_FALSE(dialog.btnCancel->isHidden());
    EXPECT_TRUE(dialog.btnFilter->isHidden());
    EXPECT_TRUE(dialog.btnHelp->isHidden());
    EXPECT_TRUE(dialog.btnOK->isDefault());
    EXPECT_FALSE(dialog.modified);
}

TEST_F(BaseForm, TheModeCaptionsTheOkButton) {
    EXPECT_EQ(TDialog(0).btnOK->text(), "&Lookup");
    EXPECT_EQ(TDialog(1).btnOK->text(), "&Ok");
    TDialog dialog;
    dialog.SetMode(0);
    EXPECT_EQ(dialog.btnOK->text(), "&Lookup");
    dialog.SetMode(2);
    EXPECT_EQ(dialog.btnOK->text(), "&Lookup");
}

TEST_F(BaseForm, ComplainsWithoutASettingsKey) {
    { const TDialog dialog; }
    EXPECT_TRUE(dialogs.messages.isEmpty());
    TfrmBaseForm::ProgRegKey.clear();
    const TDialog dialog;
    EXPECT_EQ(dialogs.messages, QStringList({"You must set ProgRegKey in the main application"}));
}

TEST_F(BaseForm, FormShowRunsOnEachShow) {
    TDialog dialog;
    EXPECT_EQ(dialog.shows, 0);
    dialog.show();
    dialog.hide();
    dialog.show();
    EXPECT_EQ(dialog.shows, 2);
}

TEST_F(BaseForm, HelpSaysWhenThereIsNone) {
    TDialog dialog;
    dialog.btnHelp->click();
    dialog.helpFileName = "no-such-file.txt";
    dialog.btnHelp->click();
    const QString text = "Sorry no help is yet available for this screen";
    EXPECT_EQ(dialogs.messages, QStringList({text, text}));
    EXPECT_EQ(dialog.findChild<TfrmHelp *>(), nullptr);
}

TEST_F(BaseForm, AFolderIsNoHelpFile) {
    TDialog dialog;
    dialog.helpFileName = ".";
    dialog.btnHelp->click();
    EXPECT_EQ(dialogs.messages, QStringList({"Sorry no help is yet available for this screen"}));
}

TEST_F(BaseForm, HelpOpensBesideTheDialogOnItsOwnName) {
    const TProgramFile own("frmDialogTest.txt", "own text\n");
    const TProgramFile named("dialog-help.txt", "not shown\n");
    for (const char *name : {"", "dialog-help.txt"}) {
        TDialog dialog;
        dialog.helpFileName = name;
        dialog.btnHelp->click();
        auto *help = dialog.findChild<TfrmHelp *>();
        ASSERT_NE(help, nullptr);
        EXPECT_TRUE(help->isVisible());
        EXPECT_FALSE(help->isModal());
        EXPECT_EQ(help->Memo1->toPlainText(), "own text");
        help->close();
        QCoreApplication::sendPostedEvents(help, QEvent::DeferredDelete);
        EXPECT_EQ(dialog.findChild<TfrmHelp *>(), nullptr);
    }
}

TEST_F(BaseForm, HelpThatIsThereUnderAnotherNameOnlyIsAFileError) {
    const TProgramFile named("dialog-help.txt", "not shown\n");
    TDialog dialog;
    dialog.helpFileName = "dialog-help.txt";
    dialog.btnHelp->click();
    ASSERT_EQ(dialogs.messages.size(), 1);
    EXPECT_TRUE(dialogs.messages[0].contains("frmDialogTest.txt"));
}

TEST_F(BaseForm, TheFilterJoinsTheFilledInFields) {
    TDialog dialog;
    dialog.Edit("edtName").setText("O'Neil");
    dialog.Edit("edtCode").setText("7");
    dialog.Edit("other").setText("no field of the filter");
    dialogs.answers = {TAnswer::No, TAnswer::Yes};
    dialog.btnFilter->click();
    EXPECT_EQ(dialog.FilterText(), "Name = 'O''Neil' and Code = '7'");
    dialog.btnFilter->click();
    EXPECT_EQ(dialog.FilterText(), "Name like '%O''Neil%' or Code like '%7%'");
    EXPECT_EQ(dialogs.questions,
              QStringList({"Include partial matches?", "Include partial matches?"}));
}

TEST_F(BaseForm, EmptyFieldsAreNotInTheFilter) {
    TDialog dialog;
    dialog.Edit("edtCode").setText("%1");
    dialogs.answers = {TAnswer::No, TAnswer::No};
    dialog.btnFilter->click();
    EXPECT_EQ(dialog.FilterText(), "Code = '%1'");
    dialog.Edit("edtCode").clear();
    dialog.btnFilter->click();
    EXPECT_EQ(dialog.FilterText(), "");
}

namespace {
struct TStateCase {
    const char *name;
    bool TfrmBaseForm::*flag;
    Qt::WindowState before;
    Qt::WindowState wanted;
};

class BaseFormState : public BaseForm, public testing::WithParamInterface<TStateCase> {};

const TStateCase states[] = {
    {"minimise", &TfrmBaseForm::allowMinimize, Qt::WindowNoState, Qt::WindowMinimized},
    {"maximise", &TfrmBaseForm::allowMaximize, Qt::WindowNoState, Qt::WindowMaximized},
    {"restore_minimised", &TfrmBaseForm::allowRestore, Qt::WindowMinimized, Qt::WindowNoState},
    {"restore_maximised", &TfrmBaseForm::allowRestore, Qt::WindowMaximized, Qt::WindowNoState},
};
} // namespace

TEST_P(BaseFormState, IsPassedOnWhenAllowed) {
    TDialog dialog;
    dialog.show();
    dialog.setWindowState(GetParam().before);
    dialog.setWindowState(GetParam().wanted);
    EXPECT_EQ(dialog.windowState(), GetParam().wanted);
}

TEST_P(BaseFormState, IsTakenBackWhenForbidden) {
    TDialog dialog;
    dialog.show();
    dialog.setWindowState(GetParam().before);
    dialog.*GetParam().flag = false;
    dialog.setWindowState(GetParam().wanted);
    EXPECT_EQ(dialog.windowState(), GetParam().before);
}

INSTANTIATE_TEST_SUITE_P(States, BaseFormState, testing::ValuesIn(states),
                         [](const auto &test) { return std::string(test.param.name); });

TEST_F(BaseForm, WithNothingAllowedTheStateStays) {
    TDialog dialog;
    dialog.show();
    dialog.allowMinimize = dialog.allowMaximize = dialog.allowRestore = false;
    dialog.setWindowState(Qt::WindowMinimized);
    dialog.setWindowState(Qt::WindowMaximized);
    EXPECT_EQ(dialog.windowState(), Qt::WindowNoState);
}
