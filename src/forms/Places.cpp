#include "forms/Places.h"

#include "forms/Help.h"
#include "forms/Settings.h"

#include <QDir>

namespace {
constexpr auto foldersName = "recentFolders";

/// As Translations.h has it: the program is installed in lib/ferrolyn, or with everything beside
/// it.
QStringList SamplesFolders() {
    return {ProgramDirectory() + "../../share/ferrolyn/samples", ProgramDirectory() + "samples"};
}

QStringList RememberedFolders() {
    return Setting(foldersName, {}).toStringList();
}
} // namespace

QStringList Places() {
    QStringList places;
    for (const QString &folder :
         QStringList(QDir::currentPath()) + SamplesFolders() + RememberedFolders()) {
        const QString place = QDir(folder).canonicalPath(); // empty when it has gone
        if (!folder.isEmpty() && !place.isEmpty() && !places.contains(place))
            places << place;
    }
    return places;
}

void RememberFolder(const QString &folder) {
    QStringList folders = RememberedFolders();
    folders.removeAll(folder);
    folders.prepend(folder);
    KeepSetting(foldersName, QStringList(folders.mid(0, mostRememberedFolders)));
}
