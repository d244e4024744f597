#include "forms/Guard.h"

#include "forms/Dialogs.h"

#include <exception>

#include <QCoreApplication>

namespace {
class Texts {
    Q_DECLARE_TR_FUNCTIONS(Guard)
};
} // namespace

void ShowCurrentError() {
    try {
        throw;
    } catch (const std::exception &error) {
        Dialogs().ShowMessage(QString::fromUtf8(error.what()));
    } catch (...) {
        Dialogs().ShowMessage(Texts::tr("An unknown error has occurred"));
    }
}
