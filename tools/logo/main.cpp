// Writes the pictures of the splash window that the program carries in it, one for each scale of a
// screen. In the project's folder: ferrolyn_logo src/spec

#include "logo/Logo.h"

#include <iostream>

#include <QImageWriter>

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: ferrolyn_logo FOLDER\n";
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    for (const auto &[scale, name] :
         {std::pair(1, "logo.png"), {2, "logo@2x.png"}, {3, "logo@3x.png"}}) {
        QImageWriter writer(folder + "/" + name);
        writer.setCompression(100);
        if (!writer.write(DrawLogo(scale))) {
            std::cerr << "cannot write " << writer.fileName().toStdString() << ": "
                      << writer.errorString().toStdString() << "\n";
            return 1;
        }
    }
}
