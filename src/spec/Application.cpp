#include "spec/Application.h"

#include "forms/Dialogs.h"
#include "forms/OutlineStyle.h"
#include "forms/baseform.h"
#include "model/Messages.h"
#include "model/Numbers.h"
#include "spec/Translations.h"

#include <QApplication>
#include <QLocale>

namespace {
void UseOutlines() {
    const QStyle *style = QApplication::style();
    if (style->name() == "fusion" && !qobject_cast<const TOutlineStyle *>(style))
        QApplication::setStyle(new TOutlineStyle);
}
} // namespace

void SetUpApplication() {
    TfrmBaseForm::ProgRegKey = "\\Software\\Kelvane\\Ferrolyn";
    QCoreApplication::setApplicationName("Ferrolyn");
    QCoreApplication::setApplicationVersion(FERROLYN_VERSION);
    UseOutlines();
    InstallTranslations(QLocale(), TranslationFolders());
    SetDecimalSeparator(QLocale().decimalPoint().toStdString());
    SetMessageHook(
        [](const std::string &text) { Dialogs().ShowMessage(QString::fromStdString(text)); });
}
