// Every text that a window shows, with the place that it has and the room that it needs.
#pragma once

#include <vector>

#include <QRect>
#include <QString>
#include <QWidget>

struct TVisibleText {
    QString text;  ///< as it is set, shortcut marks included
    QString owner; ///< class and object name of the control
    const QWidget *control;
    QRect place;         ///< of the text, in the window's coordinates
    int neededWidth = 0; ///< of the text as it is set
    bool enabled = true;
    bool onPicture = false; ///< the background is no single colour
};

/// Labels, buttons, titles of groups, tabs, edits, spin boxes, combo boxes and menu items.
std::vector<TVisibleText> VisibleTexts(const QWidget &window);
