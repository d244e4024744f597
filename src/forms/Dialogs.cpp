#include "forms/Dialogs.h"

#include "forms/QtDialogs.h"

#include <QDir>
#include <QFileInfo>

namespace {
IDialogs *dialogsInForce = nullptr;
}

TSaveDialog::TSaveDialog(QObject *page, const QString &name) : QObject(page) {
    setObjectName(name);
}

QString TSaveDialog::OfferedName() const {
    const bool offered = fileName.endsWith(defaultExt, Qt::CaseInsensitive) &&
                         QFileInfo(fileName).absoluteDir() == QDir::current();
    return offered ? QFileInfo(fileName).fileName() : QString();
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
