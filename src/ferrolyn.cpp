// The program's entry: the start-up order and nothing else.

#include "forms/Guard.h"
#include "spec/Application.h"
#include "spec/NetUtils.h"
#include "spec/SingleInstance.h"
#include "spec/main.h"

#include <QApplication>

namespace {
TNetFunctions LookUpNetworkFunctions() {
    TLibraryLoader loader;
#ifdef Q_OS_WIN
    return LoadNetworkFunctions(loader, true);
#else
    return LoadNetworkFunctions(loader, false);
#endif
}
} // namespace

int main(int argc, char **argv) {
    const TNetFunctions networkFunctions = LookUpNetworkFunctions();
    const std::unique_ptr<IWindowFinder> finder = DesktopWindowFinder();
    TSingleInstanceGuard guard(*finder);
    if (guard.Check() == TStart::End)
        return 0;

    QApplication application(argc, argv);
    SetUpApplication();
    std::unique_ptr<TfrmNotebook> window;
    const bool created = Guarded([&] {
        window = std::make_unique<TfrmNotebook>();
        window->setWindowTitle("Ferrolyn");
        window->winId(); // the native window exists before the next copy may look for it
    });
    guard.Release();
    if (!created)
        return 1;
    TellOfMissingFunctions(networkFunctions); // keeps no other copy waiting
    window->show();
    return QApplication::exec();
}
