#include "spec/Application.h"

#include "forms/Dialogs.h"
#include "forms/baseform.h"
#include "model/Messages.h"
#include "model/Numbers.h"
#include "spec/Translations.h"

#include <QCoreApplication>
#include <QLocale>

void SetUpApplication() {
    TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
    QCoreApplication::setApplicationName("Ferrolyn");
    QCoreApplication::setApplicationVersion(FERROLYN_VERSION);
    InstallTranslations(QLocale(), TranslationFolders());
    SetDecimalSeparator(QLocale().decimalPoint().toStdString());
    SetMessageHook(
        [](const std::string &text) { Dialogs().ShowMessage(QString::fromStdString(text)); });
}
