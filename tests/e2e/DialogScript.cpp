#include "DialogScript.h"

#include "forms/Dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

TDialogScript::TDialogScript() {
    SetDialogs(nullptr);
    Watch();
}

TDialogScript::~TDialogScript() {
    EXPECT_TRUE(acts_.empty()) << acts_.size() << " dialogs did not come up";
}

void TDialogScript::ThenBox(const QString &text, const QString &button) {
    Then<QMessageBox>([text, button](QMessageBox &box) {
        EXPECT_EQ(box.text(), text);
        for (QAbstractButton *each : box.buttons())
            if (each->text().remove('&') == button)
                return each->click();
        ADD_FAILURE() << "no button " << button.toStdString();
    });
}

void TDialogScript::ThenFile(const QString &name) {
    Then<QFileDialog>([name](QFileDialog &dialog) {
        auto *edit = dialog.findChild<QLineEdit *>("fileNameEdit");
        ASSERT_NE(edit, nullptr);
        // Without the focus, what is typed does not replace the file that is selected.
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        edit->setFocus();
        edit->setText(name);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

void TDialogScript::ThenInput(const QString &text) {
    Then<QInputDialog>([text](QInputDialog &dialog) {
        dialog.setTextValue(text);
        dialog.accept();
    });
}

/// Its class, and what it says when it is a message box.
std::string TDialogScript::NameOf(const QWidget &dialog) {
    return dialog.metaObject()->className() +
           (" " + dialog.property("text").toString().toStdString());
}

void TDialogScript::Watch() {
    QTimer::singleShot(0, &context_, [this] {
        Watch(); // first: the dialog that is handled now may bring up the next one
        Look();
    });
}

void TDialogScript::Look() {
    QWidget *dialog = QApplication::activeModalWidget();
    if (!dialog || dialog == handled_)
        return;
    const QWidget *outer = std::exchange(handled_, dialog);
    if (acts_.empty()) {
        ADD_FAILURE() << "a dialog that nobody expected: " << NameOf(*dialog);
    } else {
        const auto act = std::move(acts_.front());
        acts_.pop_front();
        act(*dialog);
    }
    handled_ = outer;
    if (dialog == QApplication::activeModalWidget()) {
        ADD_FAILURE() << "a dialog stayed open: " << NameOf(*dialog);
        if (auto *known = qobject_cast<QDialog *>(dialog))
            known->QDialog::done(QDialog::Rejected);
    }
}
