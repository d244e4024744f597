// A scroll area that is not to be seen: no frame, no stop for Tab, and the background of what lies
// behind it.
#pragma once

class QScrollArea;
class QWidget;

/// The area is a child of `parent` and owns `content`, which takes its whole width and height when
/// there is room.
QScrollArea *MakePlainScroll(QWidget *content, QWidget *parent);
