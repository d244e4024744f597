// What the program remembers from one start to the next, in a file of the user's own configuration
// (Ferrolyn/Ferrolyn.ini there). A file that cannot be read or written is none.
#pragma once

#include <QVariant>

/// What was kept under `name`; `usual` when nothing was.
QVariant Setting(const QString &name, const QVariant &usual);

void KeepSetting(const QString &name, const QVariant &value);
