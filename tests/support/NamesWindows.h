// Names that only some programs can cope with: of characters that no code page of Windows has all
// of, and of more than 260 characters.
#pragma once

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <string>
#include <vector>
#include <windows.h>

/// Greek, Chinese, and characters beyond the first 65,536.
inline const std::vector<std::u8string> foreignNames{u8"Ζύνδωση", u8"点火正时", u8"🔧🏎"};

/// The name that the system takes at any length, absolute.
inline std::wstring Reached(const std::filesystem::path &path) {
    return LR"(\\?\)" + std::filesystem::path(path).make_preferred().native();
}

/// A folder whose name has more than 260 characters, gone with everything in it afterwards.
class TLongFolder {
public:
    TLongFolder() : path_(top_.Path()) {
        while (path_.native().size() < 300)
            CreateDirectoryW(Reached(path_ /= std::wstring(100, L'x')).c_str(), nullptr);
    }
    TLongFolder(const TLongFolder &) = delete;
    TLongFolder &operator=(const TLongFolder &) = delete;
    ~TLongFolder() { RemoveAll(top_.Path()); }

    const std::filesystem::path &Path() const { return path_; }
    std::filesystem::path operator/(const std::string &name) const { return path_ / name; }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        ForEach(path_, [&](const std::wstring &name, bool) {
            names.push_back(std::filesystem::path(name).string());
        });
        return names;
    }

private:
    template <class TTake>
    static void ForEach(const std::filesystem::path &folder, TTake take) {
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW((Reached(folder) + LR"(\*)").c_str(), &found);
        if (search == INVALID_HANDLE_VALUE)
            return;
        do {
            const std::wstring name = found.cFileName;
            if (name != L"." && name != L"..")
                take(name, (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
        } while (FindNextFileW(search, &found));
        FindClose(search);
    }
    static void RemoveAll(const std::filesystem::path &folder) {
        ForEach(folder, [&](const std::wstring &name, bool isFolder) {
            if (isFolder)
                RemoveAll(folder / name);
            else
                DeleteFileW(Reached(folder / name).c_str());
        });
        RemoveDirectoryW(Reached(folder).c_str());
    }

    TTemporaryFolder top_;
    std::filesystem::path path_;
};
