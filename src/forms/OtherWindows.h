// F6: the keyboard goes from a main window's pages to the tool windows beside it, one after the
// other, and back. So a tool window need not take the focus when it opens.
#pragma once

class QWidget;

/// Makes a tool window a stop of F6 while it is on the screen, floating or docked. It belongs to a
/// window with GoRoundOnF6. `usual` gets the focus the first time; none: the first in Tab's order.
void StopOnF6(QWidget &tool, QWidget *usual = nullptr);

/// F6, in whatever window of the program, goes on from `pages`, which lie in `window`, to the next
/// stop, and from the last one back: to the control that had the focus there, else to the usual
/// one. Nothing while there is no stop.
void GoRoundOnF6(QWidget &window, QWidget &pages);
