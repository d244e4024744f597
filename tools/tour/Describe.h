// Tells in words what a window shows: its controls with their texts and states, its grids and
// charts. Made for comparing two tours where pictures depend on fonts.
#pragma once

#include <QString>
#include <QWidget>

/// One line for each visible control that says something, sorted by name; grids of more than
/// 40 rows give the number of coloured cells and the current row. What changes with time (credit
/// lines) is left out.
QString Describe(const QWidget &window);
