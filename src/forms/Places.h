// The folders that file dialogs offer at their side, besides the toolkit's own: the current folder,
// the samples where they are installed, and the folders of the files that were opened last, which
// are remembered from one start to the next.
#pragma once

#include <QStringList>

/// Those that exist, each once.
QStringList Places();

/// Puts a folder in front of those remembered, of which so many are kept.
void RememberFolder(const QString &folder);
inline constexpr int mostRememberedFolders = 6;
