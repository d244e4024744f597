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
    for (const int scale : {1, 2, 3}) {
        QImageWriter writer(QString("%1/logo@%2x.png").arg(argv[1]).arg(scale));
        writer.setCompression(100);
        if (!writer.write(DrawLogo(scale))) {
            std::cerr << "cannot write " << writer.fileName().toStdString() << ": "
                      << writer.errorString().toStdString() << "\n";
            return 1;
        }
    }
}
