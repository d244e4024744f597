// A press of the mouse takes the focus from a box before it reaches the control under the mouse.
// When leaving the box ends in a message, the mouse button has been let go by the time that the
// press arrives, and the control would stay pressed down.
#pragma once

#include <Qt>

/// Around whatever answers the loss of the focus. Where the mouse button that was held at the
/// beginning is no longer held at the end, the press that is still on its way reaches nobody: the
/// message has taken its place. A press is on its way only until control returns to the event loop.
class TMousePress {
public:
    TMousePress();
    ~TMousePress();
    TMousePress(const TMousePress &) = delete;
    TMousePress &operator=(const TMousePress &) = delete;

private:
    const Qt::MouseButtons held_;
};
