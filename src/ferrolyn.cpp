// The program's entry: the start-up order and nothing else.

#include "forms/Guard.h"
#include "spec/Application.h"
#include "spec/NetUtils.h"
#include "spec/SingleInstance.h"
#include "spec/main.h"
#include "system/NtFamily.h"

#include <QApplication>

int main(int argc, char **argv) {
    TLibraryLoader loader;
    const TNetFunctions networkFunctions = LoadNetworkFunctions(loader, IsNtFamily());
    TSingleInstanceGuard guard;
    // The finder goes at once: from here on the toolkit alone talks to the desktop.
    if (guard.Check(*DesktopWindowFinder()) == TStart::End)
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
