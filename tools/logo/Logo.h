// The picture of the splash window: an ignition map glowing like hot iron beside the program's
// name. All of it is drawn from lines, so that it looks the same whatever fonts there are.
#pragma once

#include <QImage>
#include <QSize>

/// Logical pixels: what the frame of the splash window leaves.
inline constexpr QSize logoSize(490, 149);

/// @param scale  device pixels per logical pixel
QImage DrawLogo(int scale);
