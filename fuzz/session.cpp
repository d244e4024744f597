// Fuzz target: whole sittings at the real main window, without a screen. The input chooses what is
// done (PlayedSession.h); the image, the grids, the questions, the messages and the saved files
// must be what a plain model of the window says.
#include "PlayedSession.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {
constexpr int stepsOfASession = 60;

/// The scripted dialogs and the session report what they miss as failures of a test.
bool AnyFailure() {
    return testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed();
}

void FailOnWarning(QtMsgType type, const QMessageLogContext &, const QString &text) {
    const bool platformGap = text.startsWith("This plugin does not support ");
    if (type != QtDebugMsg && type != QtInfoMsg && !platformGap)
        Finding("toolkit message: " + text.toStdString());
}
/// Lives until FuzzTargetEnd: at the end of the process it would go after what it needs.
QApplication *application = nullptr;
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    static int argc = 1;
    static char name[] = "session";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    application = new QApplication(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    static const QTemporaryDir own; // none of the user's settings and kept changes
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, own.path());
    qputenv("XDG_STATE_HOME", own.path().toLocal8Bit());
    qInstallMessageHandler(FailOnWarning);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    TFuzzInput input(data, size);
    TPlayedSession(input).Run(stepsOfASession);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Demand(!AnyFailure(), "a failure above");
    return 0;
}

/// Gives back what the toolkit's libraries keep for the application, so that no leak is told.
extern "C" void FuzzTargetEnd();
extern "C" void FuzzTargetEnd() {
    delete application;
}
