// Where a window comes up that belongs beside another one.
#pragma once

class QWidget;

/// Moves `window`, in the size that it has, to the right of `other`, its top at the same height; as
/// far to the left as the screen needs it.
void MoveBeside(QWidget &window, const QWidget &other);
