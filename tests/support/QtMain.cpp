// Entry of the tests that need the toolkit: an application without a screen, in which any toolkit
// warning is a failure.

#include "support/Environment.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gmock/gmock.h>

namespace {
/// How the screenless platform reports what it lacks: raising windows, least sizes.
const QString platformGap = "This plugin does not support ";

void FailOnWarning(QtMsgType type, const QMessageLogContext &, const QString &text) {
    if (type != QtDebugMsg && type != QtInfoMsg && !text.startsWith(platformGap))
        ADD_FAILURE() << "toolkit message: " << text.toStdString();
}
} // namespace

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // Letters are as wide on every system; by themselves, some draw them out to whole pixels.
    QFont font = QApplication::font();
    font.setHintingPreference(QFont::PreferVerticalHinting);
    QApplication::setFont(font);
    const QTemporaryDir own; // none of the user's settings and kept changes
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, own.path());
    SetVariable(stateVariable, own.path().toStdString());
    qInstallMessageHandler(FailOnWarning);
    const int result = RUN_ALL_TESTS();
    qInstallMessageHandler(nullptr);
    return result;
}
