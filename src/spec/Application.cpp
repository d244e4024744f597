#include "spec/Application.h"

#include "forms/Dialogs.h"
#include "forms/OutlineStyle.h"
#include "forms/baseform.h"
#include "model/Messages.h"
#include "model/Numbers.h"
#include "spec/Translations.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>

namespace {
QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128})
        icon.addFile(QString(":/icons/ferrolyn-%1.png").arg(size), {size, size});
    return icon;
}

void UseOutlines() {
    const QStyle *style = QApplication::style();
    if (style->name() == "fusion" && !qobject_cast<const TOutlineStyle *>(style))
        QApplication::setStyle(new TOutlineStyle);
}

/// The toolkit only posts its own quit, and forgets it when another window is shown first: the
/// splash may be on its way.
void QuitAtOnceWithTheLastWindow() {
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, qApp, &QCoreApplication::quit);
}
} // namespace

void SetUpApplication() {
    TfrmBaseForm::ProgRegKey = R"(\Software\Kelvane\Ferrolyn)";
    QCoreApplication::setApplicationName("Ferrolyn");
    QCoreApplication::setApplicationVersion(FERROLYN_VERSION);
    QGuiApplication::setDesktopFileName("org.ferrolyn.Ferrolyn");
    QGuiApplication::setWindowIcon(ProgramIcon());
    UseOutlines();
    QuitAtOnceWithTheLastWindow();
    InstallTranslations(QLocale(), TranslationFolders());
    SetDecimalSeparator(QLocale().decimalPoint().toStdString());
    SetMessageHook(
        [](const std::string &text) { Dialogs().ShowMessage(QString::fromStdString(text)); });
}
