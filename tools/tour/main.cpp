// The tour: does the worked examples of README.md in the real window, on a screen that may be
// virtual, and checks every step.
//   ferrolyn_tour SAMPLES OUTPUT [ROMS]
// Copies the samples into ROMS, an empty or new folder (OUTPUT/roms unless given), and works on
// them there. Leaves pictures and log.txt, which says what they show, in OUTPUT.

#include "Driver.h"
#include "Pictures.h"
#include "Roads.h"
#include "spec/Application.h"

#include <iostream>

#include <QApplication>
#include <QFile>

namespace {
bool SplashIsUp() {
    for (const QWidget *widget : QApplication::topLevelWidgets())
        if (widget->objectName() == "frmSplash" && widget->isVisible())
            return true;
    return false;
}

/// The samples, and nothing else, in `roms`.
void CopySamples(const QDir &samples, const QDir &roms) {
    TDriver::Expect(roms.mkpath("."), roms.path() + " can be made");
    for (const char *left : {"EDITED.BIN", "FOUND.SPC"})
        QFile::remove(roms.filePath(left));
    for (const char *name : {"FERRO32K.BIN", "FERRO32K.SPC", "FERRO32P.SPC", "FERRO64K.BIN"}) {
        QFile::remove(roms.filePath(name));
        TDriver::Expect(QFile::copy(samples.filePath(name), roms.filePath(name)),
                        samples.filePath(name) + " can be copied");
    }
    TDriver::Expect(QDir::setCurrent(roms.absolutePath()), roms.path() + " can be entered");
}

/// One start of the program, from its window's first show to its close.
void Sitting(TPictures &pictures, const QDir &roms, void (*road)(const TRoad &)) {
    TfrmNotebook window;
    window.setWindowTitle("Ferrolyn");
    TDriver driver(window);

    TDriver::Step("start the program");
    window.show();
    TDriver::WaitFor([&] { return window.isVisible() && !window.isMinimized(); },
                     "the window is normal");
    TDriver::WaitFor([] { return !SplashIsUp(); }, "the splash has gone");

    road({window, driver, pictures, roms});

    TDriver::Step("close the window");
    TDriver::Expect(window.close(), "the window closes");
}
} // namespace

int main(int argc, char **argv) {
    QApplication application(argc, argv);
    if (argc != 3 && argc != 4) {
        std::cerr << "usage: ferrolyn_tour SAMPLES OUTPUT [ROMS]\n";
        return 2;
    }
    const auto folder = [&](int argument) {
        return QDir(QDir(QString::fromLocal8Bit(argv[argument])).absolutePath());
    };
    const QDir samples = folder(1);
    const QDir output = folder(2);
    const QDir roms = argc == 4 ? folder(3) : QDir(output.filePath("roms"));
    try {
        TDriver::Expect(output.mkpath("."), output.path() + " can be made");
        SetUpApplication();
        QApplication::setQuitOnLastWindowClosed(false);
        TDriver::LimitTime();
        TPictures pictures(output, roms);
        for (const auto road : {FirstChange, UnknownImage, ByColours}) {
            CopySamples(samples, roms);
            Sitting(pictures, roms, road);
        }
    } catch (const std::exception &error) {
        std::cerr << "tour failed: " << error.what() << std::endl;
        return 1;
    }
    std::cout << "tour passed" << std::endl;
    return 0;
}
