#include "forms/Dialogs.h"

#include "forms/QtDialogs.h"

namespace {
IDialogs *dialogsInForce = nullptr;
}

TSaveDialog::TSaveDialog(QObject *page, const QString &name) : QObject(page) {
    setObjectName(name);
}

bool TSaveDialog::Execute() {
    return Dialogs().RunSaveDialog(*this);
}

IDialogs &Dialogs() {
    static TQtDialogs toolkitDialogs;
    return dialogsInForce ? *dialogsInForce : toolkitDialogs;
}

void SetDialogs(IDialogs *dialogs) {
    dialogsInForce = dialogs;
}
