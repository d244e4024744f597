#include "spec/Translations.h"

#include "system/Texts.h"

#include <memory>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

namespace {
const QString translatorName = "ferrolyn_translator";

/// The names that a translation for "de-Latn-AT" may have, the nearest first: also "de_AT",
/// "de_Latn" and "de".
QStringList NamesOf(const QString &language) {
    const QStringList parts = language.split('-');
    QStringList names{parts.join('_')};
    if (parts.size() == 3)
        names << parts[0] + '_' + parts[2] << parts[0] + '_' + parts[1];
    if (parts.size() > 1)
        names << parts[0];
    return names;
}

/// The first file that exists. Only whole names: the toolkit's own search would end at the
/// program's file.
QString FileFor(const QString &prefix, const QString &language, const QStringList &folders) {
    for (const QString &name : NamesOf(language))
        for (const QString &folder : folders) {
            QString file = QDir(folder).filePath(prefix + '_' + name + ".qm");
            if (QFileInfo(file).isFile())
                return file;
        }
    return {};
}

bool Install(const QString &file) {
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    translator->setObjectName(translatorName);
    return translator->load(file) && QCoreApplication::installTranslator(translator.release());
}

void RemoveTranslations() {
    const auto installed =
        QCoreApplication::instance()->findChildren<QTranslator *>(translatorName);
    qDeleteAll(installed); // which takes them out of force
}
} // namespace

QStringList TranslationFolders() {
    const QString program = QCoreApplication::applicationDirPath();
    return {program, QDir::cleanPath(program + "/../../share/ferrolyn/translations")};
}

void InstallTranslations(const QLocale &locale, const QStringList &folders) {
    RemoveTranslations();
    SetTextTranslator([](const char *context, const char *english) {
        return QCoreApplication::translate(context, english).toStdString();
    });
    for (const QString &language : locale.uiLanguages()) {
        const QLocale::Language known = QLocale(language).language();
        if (known == QLocale::English || known == QLocale::C)
            return;
        if (Install(FileFor("ferrolyn", language, folders))) {
            const QString toolkits = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
            Install(FileFor("qtbase", language, folders + QStringList(toolkits)));
            return;
        }
    }
}
