// The picture of the splash window: an ignition map glowing like hot iron beside the program's
// name. All of it is drawn from lines, so that it looks the same whatever fonts there are.
#pragma once

#include <QPixmap>
#include <QSize>

/// @param size        logical pixels; the picture is made for about 490 x 150
/// @param pixelRatio  device pixels per logical pixel; the pixmap carries it
QPixmap SplashLogo(QSize size, qreal pixelRatio);
