#include "forms/Guard.h"

#include "forms/Dialogs.h"

#include <exception>

#include <QCoreApplication>

void ShowCurrentError() {
    try {
        throw;
    } catch (const std::exception &error) {
        Dialogs().ShowMessage(QString::fromUtf8(error.what()));
    } catch (...) {
        Dialogs().ShowMessage(
            QCoreApplication::translate("Guard", "An unknown error has occurred"));
    }
}
