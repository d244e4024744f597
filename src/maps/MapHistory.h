// Undo and redo of a map page: each action of the user is a step, from the moment the page was
// shown or a map read anew. A step knows the page before and after it, and the bytes of the image
// that it changed. What the page's state is: MapPageState.h.
#pragma once

#include "changes/ByteRuns.h"
#include "maps/MapPageState.h"

#include <functional>

#include <QUndoStack>

class TfrmMaps;

class TMapHistory {
public:
    /// Of `page`, which outlives this. Empty until Begin.
    explicit TMapHistory(TfrmMaps &page) : page_(page) { stack_.setUndoLimit(mostSteps); }

    /// Forgets all steps; the page is taken as it stands now.
    void Begin();

    /// Runs one action of the user and keeps it as a step when it changed anything, even when it
    /// ends with an exception, which is passed on. An action inside another belongs to that one.
    ///
    /// @param text   what was done, in the words of the menu: "typing 0.99"
    /// @param merge  whether it makes one step with such a one directly before it
    void Run(const QString &text, const std::function<void()> &action, bool merge = false) {
        Do(text, action, merge, false);
    }
    /// The same for an action that may write into the image.
    void RunOnImage(const QString &text, const std::function<void()> &action) {
        Do(text, action, false, true);
    }

    /// Takes the last step back; an open edit is accepted first and so is that step. Nothing when
    /// there is none.
    void Undo();
    /// Takes the last step back forward again, unless accepting an open edit has ended that.
    void Redo();
    /// What can be undone and redone, and how it is called.
    const QUndoStack &Stack() const { return stack_; }

    /// Gives the page one side of a step back. For the steps.
    void Restore(const TMapPageState &state);

private:
    static constexpr int mostSteps = 1000;

    void Do(const QString &text, const std::function<void()> &action, bool merge, bool onImage);
    TMapPageState Current() const;
    void Keep(const QString &text, std::vector<TByteChange> bytes, bool merge);

    TfrmMaps &page_;
    QUndoStack stack_;
    TMapPageState last_;
    bool running_ = false;
};
