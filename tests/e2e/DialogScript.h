// Ends the toolkit's own dialogs as they come up, in the order of a script; for tests in which real
// boxes, file dialogs and input boxes stand where other tests answer through scripted ones.
#pragma once

#include <deque>
#include <functional>
#include <string>

#include <QObject>
#include <QWidget>
#include <gtest/gtest.h>

class QFileDialog;
class QMessageBox;

class TDialogScript {
public:
    /// Puts the toolkit's dialogs into force, for good.
    TDialogScript();
    /// A dialog of the script that did not come fails the test.
    ~TDialogScript();
    TDialogScript(const TDialogScript &) = delete;
    TDialogScript &operator=(const TDialogScript &) = delete;

    /// The next modal dialog behind those already told of is a `TDialog`, which `act` ends. Another
    /// one, one that is not told of, and one that stays open fail the test and are closed.
    template <class TDialog>
    void Then(std::function<void(TDialog &)> act) {
        acts_.push_back([act](QWidget &dialog) {
            auto *wanted = qobject_cast<TDialog *>(&dialog);
            ASSERT_NE(wanted, nullptr) << "another dialog came up: " << NameOf(dialog);
            act(*wanted);
        });
    }
    /// A message box of that text, left through the button of that text.
    void ThenBox(const QString &text, const QString &button);
    /// A file dialog, confirmed with that name.
    void ThenFile(const QString &name);
    /// An input box, confirmed with that text.
    void ThenInput(const QString &text);

private:
    static std::string NameOf(const QWidget &dialog);
    void Watch();
    void Look();

    QObject context_; ///< ends the watch with this object
    std::deque<std::function<void(QWidget &)>> acts_;
    const QWidget *handled_ = nullptr;
};
