// The colour themes in which the program is looked at and measured: a light and a dark one as
// desktops have them, and white on black for those who see little.
#pragma once

#include <vector>

#include <QPalette>
#include <QString>

struct TTheme {
    QString name; ///< "light", "dark", "contrast"
    QPalette palette;
};

const std::vector<TTheme> &Themes();
