// Drives a real window through its real controls: finds them by object name, clicks and types like
// a user, answers the toolkit's dialogs. Every expectation that fails ends the tour.
#pragma once

#include <functional>
#include <stdexcept>

#include <QDialog>
#include <QStringList>
#include <QWidget>

/// A control that is missing or a state that is not as expected; what() says which.
class ETourFailed : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class TDriver {
public:
    explicit TDriver(QWidget &window) : window_(window) {}

    /// From now on the whole process ends after three minutes, so that a dialog that nobody answers
    /// does not hold the tour for ever.
    static void LimitTime();

    /// Prints the step's number and text.
    static void Step(const QString &text);
    /// Throws ETourFailed with `what` unless `condition` holds.
    static void Expect(bool condition, const QString &what);
    /// Runs the event loop until `condition` holds; throws ETourFailed with `what` after ten
    /// seconds.
    static void WaitFor(const std::function<bool()> &condition, const QString &what);

    /// The control of that name below `root` (the window when none is given); throws when there is
    /// none, listing the names that exist.
    template <class Control>
    Control &Find(const QString &name, QWidget *root = nullptr) {
        auto *control = (root ? root : &window_)->findChild<Control *>(name);
        if (!control)
            Missing(name, root ? *root : window_);
        return *control;
    }

    void Click(QWidget &control);
    /// Of the mouse in this tour, those in dialogs and in the window's menu included.
    static int Clicks();
    void SelectTab(const QString &caption);
    /// Chooses an item of a radio group by its text.
    void ChooseItem(const QString &group, const QString &text);

    /// What to do with the next modal dialog that shows; to be said before what opens it. The
    /// dialog has to be closed by it.
    static void WhenAsked(const std::function<void(QDialog &dialog)> &answer);
    /// Answers for WhenAsked: types a name into a file dialog and confirms it; types a text into an
    /// input box and confirms it.
    static void ConfirmFile(QDialog &dialog, const QString &fileName);
    static void ConfirmText(QDialog &dialog, const QString &text);
    /// Clicks `control`, which opens a file dialog, and confirms the dialog with `fileName`.
    void ClickAndChooseFile(QWidget &control, const QString &fileName);

    /// Clicks `control`, which asks for a file and for a label.
    void ClickAndSaveSpec(QWidget &control, const QString &fileName, const QString &label);

    /// Opens the menu at the right end of the tabs and chooses an item by its text.
    void ChooseInWindowMenu(const QString &text);
    /// Right-clicks at a point of `area` and goes down the menu by its items' texts as far as the
    /// last one, which is marked but not yet triggered.
    void OpenMenu(QWidget &area, QPoint at, const QStringList &path);
    /// Triggers what is marked in the open menu.
    void TriggerMenu();

private:
    [[noreturn]] static void Missing(const QString &name, QWidget &root);

    QWidget &window_;
};
