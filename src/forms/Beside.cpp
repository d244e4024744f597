#include "forms/Beside.h"

#include <algorithm>

#include <QScreen>
#include <QWidget>

void MoveBeside(QWidget &window, const QWidget &other) {
    const QRect screen = other.screen()->availableGeometry();
    const QRect taken = other.frameGeometry();
    window.move(std::min(taken.right() + 1, screen.right() + 1 - window.width()),
                std::clamp(taken.top(), screen.top(),
                           std::max(screen.top(), screen.bottom() + 1 - window.height())));
}
