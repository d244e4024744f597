#include "spec/Application.h"

#include "forms/Dialogs.h"
#include "forms/baseform.h"
#include "model/Messages.h"
#include "model/Numbers.h"

#include <QGuiApplication>
#include <QIcon>
#include <QLocale>

namespace {
QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128})
        icon.addFile(QString(":/icons/ferrolyn-%1.png").arg(size), {size, size});
    return icon;
}
} // namespace

void SetUpApplication() {
    TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
    QCoreApplication::setApplicationName("Ferrolyn");
    QCoreApplication::setApplicationVersion(FERROLYN_VERSION);
    QGuiApplication::setDesktopFileName("org.ferrolyn.Ferrolyn");
    QGuiApplication::setWindowIcon(ProgramIcon());
    SetDecimalSeparator(QLocale().decimalPoint().toStdString());
    SetMessageHook(
        [](const std::string &text) { Dialogs().ShowMessage(QString::fromStdString(text)); });
}
