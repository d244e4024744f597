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
#include <QPalette>

namespace {
QIcon ProgramIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128})
        icon.addFile(QString(":/icons/ferrolyn-%1.png").arg(size), {size, size});
    return icon;
}

/// The style of Windows has no dark look; the toolkit's own one has. There the toolkit would fill
/// the buttons of choices with a colour, as if all were chosen.
void UseDarkStyle() {
    const QPalette palette = QApplication::palette();
    const bool dark = palette.color(QPalette::Window).lightness() <
                      palette.color(QPalette::WindowText).lightness();
    if (!dark || QApplication::style()->name() != "windowsvista")
        return;
    QApplication::setStyle("fusion");
    for (const char *choice : {"QCheckBox", "QRadioButton"})
        QApplication::setPalette(palette, choice);
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
    UseDarkStyle();
    UseOutlines();
    QuitAtOnceWithTheLastWindow();
    InstallTranslations(QLocale(), TranslationFolders());
    SetDecimalSeparator(QLocale().decimalPoint().toStdString());
    SetMessageHook(
        [](const std::string &text) { Dialogs().ShowMessage(QString::fromStdString(text)); });
}
