// What a window manager adds to a window, which is not known before the window is up.
#pragma once

#include <QSize>

/// Room for borders and title, in pixels.
inline constexpr QSize frameRoom(16, 40);
