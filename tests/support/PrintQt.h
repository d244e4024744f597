// How the toolkit's values stand in the message of a failed test: as one reads them. Part of the
// precompiled header of all tests that link test_support, so that no test does without it.
#pragma once

#include <ostream>

#include <QColor>
#include <QDebug>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <gtest/gtest.h>

/// Between quotes, as a std::string; lists of texts are lists of these.
inline void PrintTo(const QString &text, std::ostream *out) {
    *out << testing::PrintToString(text.toStdString());
}

/// As the toolkit's own debug output.
template <class Value>
void PrintAsDebug(const Value &value, std::ostream *out) {
    QString text;
    QDebug(&text).nospace() << value;
    *out << text.toStdString();
}

inline void PrintTo(const QColor &color, std::ostream *out) {
    PrintAsDebug(color, out);
}
inline void PrintTo(const QPoint &point, std::ostream *out) {
    PrintAsDebug(point, out);
}
inline void PrintTo(const QSize &size, std::ostream *out) {
    PrintAsDebug(size, out);
}
inline void PrintTo(const QRect &rectangle, std::ostream *out) {
    PrintAsDebug(rectangle, out);
}
