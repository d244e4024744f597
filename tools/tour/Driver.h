// Drives a real window through its real controls: finds them by object name, clicks and types like
// a user, answers the toolkit's dialogs, and takes pictures of the screen. Every expectation that
// fails ends the tour.
#pragma once

#include <functional>
#include <stdexcept>

#include <QDir>
#include <QWidget>

/// A control that is missing or a state that is not as expected; what() says which.
class ETourFailed : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

class TDriver {
public:
    /// @param pictures  existing folder for the pictures
    /// The whole process ends after a minute, so that a dialog that nobody answers does not hold
    /// the tour for ever.
    TDriver(QWidget &window, const QDir &pictures);

    /// Prints the step's number and text.
    void Step(const QString &text);
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
    void SelectTab(const QString &caption);
    /// Chooses an item of a radio group by its text.
    void ChooseItem(const QString &group, const QString &text);
    /// Clicks `control`, which opens a file dialog, and confirms the dialog with `fileName`.
    void ClickAndChooseFile(QWidget &control, const QString &fileName);
    /// Saves a picture of the whole screen as `name`.png and prints its path.
    void Picture(const QString &name);

private:
    [[noreturn]] static void Missing(const QString &name, QWidget &root);

    QWidget &window_;
    QDir pictures_;
    int step_ = 0;
};
