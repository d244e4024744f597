// Hints of controls: a short part for the tool tip and a long part for whoever shows the hint of
// the control under the mouse. A hint reads "short|long"; without a bar both parts are the whole.
#pragma once

#include <functional>

#include <QString>

class QWidget;

/// Gets the long part of the current hint; an empty text when the mouse leaves the control.
using THintHandler = std::function<void(const QString &longHint)>;

/// Replaces the process-wide hint handler and returns the old one. An empty handler leaves hints to
/// the toolkit. Needs the application object.
THintHandler SetApplicationHint(THintHandler handler);

/// Gives a control a tool tip that is shown letter by letter, markup too; an empty text takes it
/// away.
void SetPlainToolTip(QWidget &control, const QString &text);

/// Gives a control its hint: tool tip (the short part, shown letter by letter) and status tip.
void SetHint(QWidget *control, const QString &hint);

/// Keeps hints away until the next key or mouse button is pressed, so that what an action has said
/// is not gone with the next move of the mouse.
void HoldHints();

/// The two parts of a hint.
QString ShortHint(const QString &hint);
QString LongHint(const QString &hint);
