// Starts the program's main window as its entry does, tells when it is shown, then loads the image
// named on the command line.
#include "Report.h"
#include "model/ROMTypes.h"
#include "spec/Application.h"
#include "spec/NetUtils.h"
#include "spec/SingleInstance.h"
#include "spec/main.h"

#include <QApplication>

int main(int argc, char **argv) {
    TLibraryLoader loader;
    LoadNetworkFunctions(loader, false);
    const std::unique_ptr<IWindowFinder> finder = DesktopWindowFinder();
    TSingleInstanceGuard guard(*finder);
    if (guard.Check() == TStart::End)
        return 1;
    QApplication application(argc, argv);
    SetUpApplication();
    TfrmNotebook window;
    window.setWindowTitle("Ferrolyn");
    window.winId();
    guard.Release();
    window.show();
    TellShown([&] { ROMImage()->LoadFromFile(argv[argc - 1]); });
    return QApplication::exec();
}
