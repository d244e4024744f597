// What screen readers and other tools are told of controls whose kind the toolkit cannot tell by
// itself. Names of controls that have a caption or a label with a buddy need nothing from here.
#pragma once

#include <QAccessible>

class QWidget;

/// Gives a control its role and, when it is not empty, its accessible name. To be called where the
/// control is made: who has asked before is not told of another role.
void SetRole(QWidget &control, QAccessible::Role role, const QString &name = {});
