// The order in which Tab visits controls: as one reads, left to right and top to bottom. Controls
// are visited in the order in which they were made unless one of these says otherwise.
#pragma once

#include <initializer_list>

class QWidget;

// Controls that never take the focus are no use here.

/// Tab goes through these controls of one window one after the other.
void SetTabSequence(std::initializer_list<QWidget *> controls);

/// Tab comes to these controls after all others that `window` has now.
void MoveToTabEnd(QWidget &window, std::initializer_list<QWidget *> controls);

/// The first control on the screen that Tab visits in `pane`, itself included; nullptr when there
/// is none.
QWidget *FirstInTabOrder(QWidget &pane);
