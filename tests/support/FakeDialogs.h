// Scripted dialogs: what would have been shown is recorded, what would have been asked is answered
// from a script.
#pragma once

#include "forms/Dialogs.h"

#include <climits>
#include <deque>
#include <functional>

#include <QStringList>

/// In force from construction to destruction. A question without an answer in its queue fails the
/// test.
class TFakeDialogs : public IDialogs {
public:
    TFakeDialogs();
    ~TFakeDialogs() override;
    TFakeDialogs(const TFakeDialogs &) = delete;
    TFakeDialogs &operator=(const TFakeDialogs &) = delete;

    QStringList messages;                ///< texts of ShowMessage, in order
    QStringList questions;               ///< texts of all confirmations, in order
    QStringList insisting;               ///< those of them that only their buttons answer
    QStringList inputBoxes;              ///< "caption|prompt|text" of each input box
    QStringList openDialogs;             ///< "filter|initial directory" of each open dialog
    QStringList saveDialogs;             ///< "title|filter|default extension|offered name" of each
    std::deque<TAnswer> answers;         ///< for all confirmations
    std::deque<QString> inputs;          ///< for input boxes; a null QString stands for Cancel
    std::deque<QString> opens;           ///< for open dialogs; an empty text stands for Cancel
    std::deque<QString> saves;           ///< for save dialogs; an empty text stands for Cancel
    QStringList steps;                   ///< "text|count" of each TakeSteps
    int stepsBeforeCancel = INT_MAX;     ///< of each TakeSteps
    std::function<void()> duringStep;    ///< runs in each step of TakeSteps, when set
    std::function<void()> duringMessage; ///< runs while a message is up, when set

    void ShowMessage(const QString &text) override;
    TAnswer AskYesNo(const QString &text) override;
    TAnswer AskAboutEdits(const QString &text) override;
    TAnswer AskYesNoCancel(const QString &text) override;
    QString InputBox(const QString &caption, const QString &prompt, const QString &text) override;
    QString OpenFile(const QString &filter, const QString &initialDir) override;
    bool RunSaveDialog(TSaveDialog &dialog) override;
    void TakeSteps(const QString &text, int count, const std::function<void()> &take) override;

private:
    TAnswer NextAnswer(const QString &text, TAnswer otherwise);
};
