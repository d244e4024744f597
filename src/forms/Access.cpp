#include "forms/Access.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace {
constexpr auto roleProperty = "accessibleRole";

QAccessibleInterface *InterfaceWithRole(const QString &, QObject *object) {
    const QVariant role = object->property(roleProperty);
    if (!role.isValid() || !object->isWidgetType())
        return nullptr;
    return new QAccessibleWidget(static_cast<QWidget *>(object),
                                 static_cast<QAccessible::Role>(role.toInt()));
}
} // namespace

void SetRole(QWidget &control, QAccessible::Role role, const QString &name) {
    QAccessible::installFactory(InterfaceWithRole); // the toolkit takes it once
    control.setProperty(roleProperty, static_cast<int>(role));
    if (!name.isEmpty())
        control.setAccessibleName(name);
}
