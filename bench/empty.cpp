// The smallest program with a main window: what the toolkit alone costs at a start.
#include "Report.h"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.resize(956, 538);
    window.show();
    TellShown([] {});
    return QApplication::exec();
}
