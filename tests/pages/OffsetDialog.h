// Drives the modal dialog "Offset Entry" while the call that opened it waits.
#pragma once

#include "spec/offsetentry.h"
#include "support/FindControl.h"

#include <functional>

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

/// From construction on, the next modal dialog is handed to `act`, which has to end it; one that
/// stays open, or does not come at all, fails the test.
class TInOffsetDialog {
public:
    explicit TInOffsetDialog(std::function<void(TfrmOffsetEntry &)> act) : act_(std::move(act)) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Act(); });
        timer_.start(0);
    }
    TInOffsetDialog(const TInOffsetDialog &) = delete;
    TInOffsetDialog &operator=(const TInOffsetDialog &) = delete;
    ~TInOffsetDialog() { EXPECT_TRUE(came_) << "no dialog came up"; }

    static void Type(TfrmOffsetEntry &dialog, const QString &field, const QString &text) {
        FindControl<QLineEdit>(dialog, field).setText(text);
    }
    static void OK(TfrmOffsetEntry &dialog) { dialog.btnOK->click(); }
    static void Cancel(TfrmOffsetEntry &dialog) { dialog.btnCancel->click(); }

private:
    void Act() {
        auto *dialog = qobject_cast<TfrmOffsetEntry *>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog) << "no dialog came up";
        came_ = true;
        act_(*dialog);
        if (dialog->isVisible()) {
            ADD_FAILURE() << "the dialog stayed open";
            dialog->modified = false;
            dialog->reject();
        }
    }

    std::function<void(TfrmOffsetEntry &)> act_;
    QTimer timer_;
    bool came_ = false;
};
