#include "changes/PatchStore.h"

#include "system/Errors.h"
#include "system/Files.h"
#include "system/ReadFile.h"
#include "system/SafeFile.h"
#include "system/Texts.h"

#include <algorithm>
#include <random>
#include <system_error>
#include <tuple>
#include <utility>

namespace {
namespace fs = std::filesystem;

constexpr std::string_view formDigits = "0123456789abcdef";
constexpr std::uint64_t largestPatch = 16 * 1024 * 1024; // some 7 MiB for an image wholly changed
constexpr std::size_t mostRemoved = 100; // at once: who has thousands need not wait for them

void Check(const std::error_code &error, const fs::path &file) {
    if (error)
        throw EFileError(Filled(Translated("PatchStore", "Cannot use '%1': %2"),
                                {file.string(), ReasonOf(error)}));
}

bool IsPatch(const fs::path &file) {
    try {
        ReadPatch(file);
        return true;
    } catch (const std::runtime_error &) {
        return false;
    }
}
} // namespace

TPatch ReadPatch(const fs::path &file) {
    const std::vector<std::uint8_t> bytes = ReadWholeFile(file, largestPatch);
    return ParsePatch({reinterpret_cast<const char *>(bytes.data()), bytes.size()});
}

TPatchStore::TPatchStore(fs::path folder, std::string_view form, std::size_t most)
    : folder_(std::move(folder)), form_(form), most_(most) {}

fs::path TPatchStore::NewFile() const {
    std::random_device source;
    std::string name(form_);
    for (char &letter : name)
        if (letter == '#')
            letter = formDigits[source() % formDigits.size()];
    return folder_ / name;
}

void TPatchStore::Keep(const fs::path &file, const TPatch &patch) const {
    std::error_code error;
    MakeOwnFolder(folder_, error);
    Check(error, folder_);
    const std::string text = PatchText(patch);
    WriteFileSafely(file, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()},
                    TReaders::Owner);
}

void TPatchStore::Remove(const fs::path &file) {
    std::error_code error;
    RemoveFile(file, error);
    Check(error, file);
}

TKeptPatches TPatchStore::Read(const std::function<bool(const fs::path &)> &wanted) const {
    std::vector<TFile> files = Files();
    std::erase_if(files, [&](const TFile &file) { return !wanted(file.path); });
    files.resize(std::min(files.size(), most_));
    TKeptPatches kept;
    for (const TFile &file : files)
        try {
            kept.patches.push_back({file.path, file.time, ReadPatch(file.path)});
        } catch (const std::runtime_error &error) {
            kept.leftAlone.push_back(LastPart(file.path) + ": " + error.what());
        }
    return kept;
}

void TPatchStore::RemoveOldest(const fs::path &own) const {
    std::vector<TFile> files = Files();
    std::erase_if(files, [&](const TFile &file) { return file.path == own; });
    const std::size_t end = std::min(files.size(), most_ - 1 + mostRemoved);
    for (std::size_t i = most_ - 1; i < end; ++i)
        if (IsPatch(files[i].path))
            Remove(files[i].path);
}

std::vector<TPatchStore::TFile> TPatchStore::Files() const {
    std::vector<TFile> files;
    std::error_code error;
    if (TypeAt(folder_, error) == fs::file_type::not_found)
        return files;
    LookThrough(folder_, error, [&](const fs::path &file) {
        if (IsOfForm(LastPart(file))) {
            std::error_code gone; // meanwhile, by another program
            const fs::file_time_type time = LastWritten(file, gone);
            if (!gone)
                files.push_back({file, time});
        }
        return true;
    });
    Check(error, folder_);
    std::sort(files.begin(), files.end(), [](const TFile &a, const TFile &b) {
        return std::tie(b.time, b.path) < std::tie(a.time, a.path);
    });
    return files;
}

bool TPatchStore::IsOfForm(std::string_view name) const {
    const auto fits = [](char letter, char form) {
        return form == '#' ? formDigits.find(letter) != std::string_view::npos : letter == form;
    };
    return std::equal(name.begin(), name.end(), form_.begin(), form_.end(), fits);
}
