// Finding a control by its object name; a miss fails the test with a list of the names that exist.
#pragma once

#include <stdexcept>

#include <QStringList>
#include <QWidget>

template <class Control>
Control &FindControl(const QObject &root, const QString &name) {
    if (auto *control = root.findChild<Control *>(name))
        return *control;
    QStringList names;
    for (const QObject *child : root.findChildren<QObject *>())
        if (!child->objectName().isEmpty())
            names << child->objectName();
    throw std::runtime_error(
        ("no control " + name + "; there are: " + names.join(", ")).toStdString());
}
