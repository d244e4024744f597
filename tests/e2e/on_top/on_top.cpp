// The program's window on its fuel page with "Tools" beside it, steered from outside: prints the
// window's id, then does what each line of its input says and prints an id again.
//   dock      docks "Tools"
//   float     makes it float again
//   ask       shows a message over the active window; prints the message's id
//   answer    closes the message
//   quit      without an answer
#include "forms/Dialogs.h"
#include "forms/PageControl.h"
#include "maps/Maps.h"
#include "maps/ToolWindow.h"
#include "spec/main.h"

#include <iostream>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <QTimer>

namespace {
constexpr int fuelTab = 1;

void Say(const QWidget &window) {
    std::cout << window.winId() << std::endl;
}

void Obey(const std::string &command, TfrmNotebook &window, TfrmToolWindow &tools) {
    if (command == "ask") {
        QTimer::singleShot(0, &tools, [] { Dialogs().ShowMessage("A question"); });
        QTimer::singleShot(0, &tools, [] { Say(*QApplication::activeModalWidget()); });
        return;
    }
    if (command == "quit")
        return QApplication::quit();
    if (command == "answer")
        QApplication::activeModalWidget()->close();
    else
        tools.setFloating(command == "float");
    Say(window);
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    TfrmNotebook window;
    window.show();
    window.tmrSplashTimer();
    window.PageControl1->setCurrentIndex(fuelTab);
    auto &page = dynamic_cast<TfrmMaps &>(*window.Page(fuelTab));
    page.btnRecalculateClick();
    Say(window);
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        std::string command;
        std::getline(std::cin, command);
        Obey(command, window, *page.ToolWindow);
    });
    return QApplication::exec();
}
