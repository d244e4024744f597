// Reads back what was painted: the background of a place and how far its text stands out.
#pragma once

#include "forms/AligridColors.h"

#include <algorithm>
#include <map>
#include <ostream>

#include <QImage>
#include <QRect>
#include <QWidget>

/// What was painted in a place.
struct TPainted {
    QColor background;   ///< the most frequent colour
    double contrast = 1; ///< of the pixel that differs most from it
};

/// `rect` in the image's device-independent pixels.
inline TPainted PaintedIn(const QImage &image, const QRect &rect) {
    const double ratio = image.devicePixelRatio();
    const QRect pixels =
        QRectF(rect.x() * ratio, rect.y() * ratio, rect.width() * ratio, rect.height() * ratio)
            .toRect()
            .intersected(image.rect());
    std::map<QRgb, int> counts;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y)
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            ++counts[image.pixel(x, y)];
    const auto most = std::max_element(counts.begin(), counts.end(), [](auto &one, auto &other) {
        return one.second < other.second;
    });
    TPainted painted;
    if (most == counts.end())
        return painted;
    painted.background = QColor(most->first);
    for (const auto &[pixel, count] : counts)
        painted.contrast = std::max(painted.contrast, Contrast(QColor(pixel), painted.background));
    return painted;
}

inline QImage ImageOf(QWidget &widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

inline std::ostream &operator<<(std::ostream &out, const QColor &color) {
    return out << color.name().toStdString();
}
