// Dialogs that are open when the splash goes, which happens by itself: they stay.
#include "DialogScript.h"
#include "forms/Dialogs.h"
#include "spec/splash.h"

#include <memory>

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <gtest/gtest.h>

namespace {
class TSplashBox : public testing::Test {
protected:
    TSplashBox() {
        splash->show();
        splash->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(splash.get()));
    }
    /// The splash goes while the dialog is open; the dialog is still the one to answer.
    void GoesUnder(const QDialog &dialog) {
        splash.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
    }
    std::unique_ptr<TfrmSplash> splash = std::make_unique<TfrmSplash>();
    TDialogScript script;
};

TEST_F(TSplashBox, AMessage) {
    script.Then<QMessageBox>([this](QMessageBox &box) {
        GoesUnder(box);
        box.accept();
    });
    Dialogs().ShowMessage("text");
}

TEST_F(TSplashBox, AnInputBox) {
    script.Then<QInputDialog>([this](QInputDialog &box) {
        GoesUnder(box);
        box.setTextValue("typed");
        box.accept();
    });
    EXPECT_EQ(Dialogs().InputBox("caption", "prompt", "text"), "typed");
}

TEST_F(TSplashBox, AnOpenDialog) {
    script.Then<QFileDialog>([this](QFileDialog &dialog) {
        GoesUnder(dialog);
        dialog.reject();
    });
    EXPECT_EQ(Dialogs().OpenFile("Binary Data (*.BIN)|*.BIN", "/"), "");
}

TEST_F(TSplashBox, ASaveDialog) {
    TSaveDialog save(nullptr, "dlgSave");
    script.Then<QFileDialog>([this](QFileDialog &dialog) {
        GoesUnder(dialog);
        dialog.reject();
    });
    EXPECT_FALSE(save.Execute());
}
} // namespace
