#include "forms/Guard.h"

#include "forms/Dialogs.h"

#include <exception>

void ShowCurrentError() {
    try {
        throw;
    } catch (const std::exception &error) {
        Dialogs().ShowMessage(QString::fromUtf8(error.what()));
    } catch (...) {
        Dialogs().ShowMessage(QObject::tr("An unknown error has occurred"));
    }
}
