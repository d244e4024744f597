// Names the pictures of one folder that do not show what those of another show.
//   e2e_old_pictures SHOWN TAKEN
// Means of small blocks are compared: the pixels depend on how a machine draws letters. A picture
// of another size was taken with other letters altogether and is left to the words of the tour's
// log.

#include <cstdlib>
#include <iostream>

#include <QDir>
#include <QImage>
#include <QPainter>

namespace {
constexpr int blockSize = 16; // pixels, about the height of a line of text
constexpr int sameColor = 30; // of 255: what a block's mean may be off
constexpr int fewBlocks = 8;  // the file's path and the line that changes take no more

QImage Blocks(const QImage &picture) {
    QImage plain(picture.size(), QImage::Format_RGB32);
    plain.fill(Qt::white);
    QPainter(&plain).drawImage(0, 0, picture);
    return plain.scaled(picture.size() / blockSize, Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
}

bool Differ(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) > sameColor || std::abs(qGreen(a) - qGreen(b)) > sameColor ||
           std::abs(qBlue(a) - qBlue(b)) > sameColor;
}

bool IsOld(const QImage &shown, const QImage &taken) {
    if (shown.isNull() || taken.isNull())
        return true;
    if (shown.size() != taken.size())
        return false;
    const QImage a = Blocks(shown);
    const QImage b = Blocks(taken);
    int others = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            others += Differ(a.pixel(x, y), b.pixel(x, y));
    return others > fewBlocks;
}
} // namespace

int main(int argc, char **argv) {
    if (argc != 3)
        return 2;
    const QDir shown(argv[1]);
    const QDir taken(argv[2]);
    const QStringList names = shown.entryList({"*.png"});
    bool old = names.isEmpty() || names != taken.entryList({"*.png"});
    for (const QString &name : names)
        if (IsOld(QImage(shown.filePath(name)), QImage(taken.filePath(name)))) {
            std::cout << name.toStdString() << '\n';
            old = true;
        }
    return old ? 1 : 0;
}
