// Starts the program's main window as its entry does and tells when it is shown.
//   ferrolyn_bench_window IMAGE             then loads the image
//   ferrolyn_bench_window contents [IMAGE]  then loads the image, if any, and shows "File Contents"
#include "Report.h"
#include "forms/PageControl.h"
#include "forms/TEmbedFm.h"
#include "model/ROMTypes.h"
#include "spec/Application.h"
#include "spec/NetUtils.h"
#include "spec/SingleInstance.h"
#include "spec/main.h"

#include <string_view>

#include <QApplication>

namespace {
constexpr int contentsTab = 5;

void Load(TfrmNotebook &window, const char *image) {
    ROMImage()->LoadFromFile(image);
    window.workspace.romFileName = image;
}

void ShowContents(TfrmNotebook &window) {
    window.PageControl1->SelectByProgram(contentsTab);
    window.Page(contentsTab)->ShowPage();
    window.grab();
}
} // namespace

int main(int argc, char **argv) {
    TLibraryLoader loader;
    LoadNetworkFunctions(loader, false);
    TSingleInstanceGuard guard;
    if (guard.Check(*DesktopWindowFinder()) == TStart::End)
        return 1;
    QApplication application(argc, argv);
    SetUpApplication();
    TfrmNotebook window;
    window.setWindowTitle("Ferrolyn");
    window.winId();
    guard.Release();
    window.show();
    TellShown([&] {
        const bool contents = std::string_view(argv[1]) == "contents";
        if (argc > 2 || !contents)
            Load(window, argv[argc - 1]);
        if (contents)
            ShowContents(window);
    });
    return QApplication::exec();
}
