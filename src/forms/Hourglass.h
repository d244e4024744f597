// The hourglass cursor for the length of a scope, also when the scope is left by an exception.
#pragma once

#include <QCursor>
#include <QGuiApplication>

class THourglass {
public:
    THourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~THourglass() { QGuiApplication::restoreOverrideCursor(); }
    THourglass(const THourglass &) = delete;
    THourglass &operator=(const THourglass &) = delete;
};
