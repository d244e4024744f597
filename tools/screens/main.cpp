// Pictures of every page, dialog and menu, as PNG files, without a screen.
//   ferrolyn_screens SAMPLES OUTPUT [--theme light|dark|contrast] [--font PERCENT] [--size WxH]
// The toolkit's own QT_SCALE_FACTOR and -reverse (right to left) work as with every program.

#include "spec/main.h"

#include "screens/Gallery.h"
#include "screens/Themes.h"
#include "spec/Application.h"

#include <algorithm>
#include <iostream>
#include <stdexcept>

#include <QApplication>
#include <QCommandLineParser>
#include <QPixmap>
#include <QSettings>
#include <QTemporaryDir>

namespace {
void UseTheme(const QString &name) {
    const auto theme = std::find_if(Themes().begin(), Themes().end(),
                                    [&](const TTheme &each) { return each.name == name; });
    if (theme == Themes().end())
        throw std::runtime_error("no theme " + name.toStdString());
    QApplication::setPalette(theme->palette);
}

void UseFont(int percent) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * percent / 100);
    QApplication::setFont(font);
}

/// The main window in the wanted size; the others keep their own.
void TakePictures(TGallery &gallery, const QDir &output, const QSize &size) {
    gallery.Visit([&](const QString &name, QWidget &window) {
        if (&window == &gallery.Window() && size.isValid()) {
            window.resize(size);
            TGallery::Settle();
        }
        const QString file = output.filePath(name + ".png");
        if (!window.grab().save(file))
            throw std::runtime_error("cannot write " + file.toStdString());
    });
}

QSize SizeIn(const QString &text) {
    return {text.section('x', 0, 0).toInt(), text.section('x', 1).toInt()};
}
} // namespace

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QTemporaryDir own; // none of the user's settings and kept changes
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, own.path());
    qputenv("XDG_STATE_HOME", own.path().toLocal8Bit());
    QCommandLineParser parser;
    parser.addPositionalArgument("SAMPLES", "folder of the sample files");
    parser.addPositionalArgument("OUTPUT", "folder for the pictures");
    parser.addOptions({{"theme", "light, dark or contrast", "name", "light"},
                       {"font", "size of the font", "percent", "100"},
                       {"size", "of the main window", "WxH"}});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 2)
        parser.showHelp(2);
    try {
        UseTheme(parser.value("theme"));
        UseFont(parser.value("font").toInt());
        SetUpApplication();
        const QDir output(parser.positionalArguments().at(1));
        if (!output.mkpath("."))
            throw std::runtime_error("cannot make " + output.path().toStdString());
        const QString folder = output.absolutePath();
        TGallery gallery(QDir(parser.positionalArguments().at(0)));
        TakePictures(gallery, QDir(folder),
                     parser.isSet("size") ? SizeIn(parser.value("size")) : QSize());
    } catch (const std::exception &error) {
        std::cerr << "ferrolyn_screens: " << error.what() << std::endl;
        return 1;
    }
    return 0;
}
