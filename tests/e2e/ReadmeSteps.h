// The worked examples of README.md as a reader takes them in: the numbered steps below a heading.
#pragma once

#include <vector>

#include <QString>

/// The text of README.md.
QString ReadmeText();

/// The numbered steps below "## heading", each on one line: without their number, bold marks and
/// pictures. Empty when there is no such heading.
std::vector<QString> StepsBelow(const QString &heading, const QString &readme);
