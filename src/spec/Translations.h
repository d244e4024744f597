// The language of the program: finds the translation for the user's languages and puts it in force,
// also for the texts of the core. Without one everything stays English.
#pragma once

#include <QLocale>
#include <QStringList>

/// Where translations are looked for, in this order: beside the program, then
/// ../../share/ferrolyn/translations seen from there: the program is installed in lib/ferrolyn.
QStringList TranslationFolders();

/// Installs the first `ferrolyn_<language>.qm` in `folders` for the user's languages, most wanted
/// first, and with it the toolkit's own texts (`qtbase_<language>.qm`, from the same folders or the
/// toolkit's). Languages after English are not tried, because English needs no file. What was
/// installed before is removed.
///
/// The toolkit's texts come along only with the program's: an English question with buttons in
/// another language helps nobody.
void InstallTranslations(const QLocale &locale, const QStringList &folders);
