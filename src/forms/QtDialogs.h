// The toolkit's dialogs behind IDialogs; the one place that includes dialog classes.
#pragma once

#include "forms/Dialogs.h"

class QWidget;

/// What a dialog stands over: the active window, or none. Never the splash, which goes by itself
/// while a dialog is open and would take it along.
QWidget *WindowBelow();

class TQtDialogs : public IDialogs {
public:
    void ShowMessage(const QString &text) override;
    TAnswer AskYesNo(const QString &text) override;
    TAnswer AskAboutEdits(const QString &text) override;
    TAnswer AskYesNoCancel(const QString &text) override;
    QString InputBox(const QString &caption, const QString &prompt, const QString &text) override;
    QString OpenFile(const QString &filter, const QString &initialDir) override;
    bool RunSaveDialog(TSaveDialog &dialog) override;
    void TakeSteps(const QString &text, int count, const std::function<void()> &take) override;
};
