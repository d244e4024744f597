// File names between the toolkit and the core: the bytes of the file system on both sides, whatever
// the locale.
#pragma once

#include <filesystem>

#include <QFile>
#include <QString>

inline std::filesystem::path ToPath(const QString &name) {
    return QFile::encodeName(name).toStdString();
}

inline QString FromPath(const std::filesystem::path &name) {
    return QFile::decodeName(name.c_str());
}
