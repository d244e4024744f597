// File names between the toolkit and the core: UTF-8 on both sides, whatever the locale.
#pragma once

#include <filesystem>

#include <QString>

inline std::filesystem::path ToPath(const QString &name) {
    const QByteArray utf8 = name.toUtf8();
    return std::u8string(utf8.begin(), utf8.end());
}

inline QString FromPath(const std::filesystem::path &name) {
    const std::u8string utf8 = name.u8string();
    return QString::fromUtf8(reinterpret_cast<const char *>(utf8.data()),
                             static_cast<qsizetype>(utf8.size()));
}
