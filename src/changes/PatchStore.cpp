#include "changes/PatchStore.h"

#include "system/Errors.h"
#include "system/ReadFile.h"
#include "system/SafeFile.h"
#include "system/Texts.h"

#include <algorithm>
#include <random>
#include <system_error>

namespace {
namespace fs = std::filesystem;

constexpr std::string_view storePrefix = "unsaved-";
constexpr std::string_view storeSuffix = ".patch";
constexpr std::string_view nameLetters = "0123456789abcdef";
constexpr std::size_t nameDigits = 16;
constexpr std::uint64_t largestPatch = 16 * 1024 * 1024; // some 7 MiB for an image wholly changed

std::string NewName() {
    std::random_device source;
    std::string name(storePrefix);
    for (std::size_t i = 0; i < nameDigits; ++i)
        name += nameLetters[source() % nameLetters.size()];
    return name.append(storeSuffix);
}

bool IsOurs(std::string_view name) {
    return name.size() == storePrefix.size() + nameDigits + storeSuffix.size() &&
           name.starts_with(storePrefix) && name.ends_with(storeSuffix) &&
           name.find_first_not_of(nameLetters, storePrefix.size()) ==
               storePrefix.size() + nameDigits;
}

void Check(const std::error_code &error, const fs::path &file) {
    if (error)
        throw EFileError(Filled(Translated("PatchStore", "Cannot use '%1': %2"),
                                {file.string(), error.message()}));
}

void Remove(const fs::path &file) {
    std::error_code error;
    fs::remove(file, error);
    Check(error, file);
}

/// What is no patch, or cannot be read, is none.
bool Read(const fs::path &file, TPatch &patch) {
    try {
        const std::vector<std::uint8_t> bytes = ReadWholeFile(file, largestPatch);
        patch = ParsePatch({reinterpret_cast<const char *>(bytes.data()), bytes.size()});
        return true;
    } catch (const std::runtime_error &) {
        return false;
    }
}
} // namespace

TPatchStore::TPatchStore(fs::path folder) : folder_(std::move(folder)), own_(folder_ / NewName()) {}

void TPatchStore::Keep(const TPatch &patch) {
    std::error_code error;
    fs::create_directories(folder_, error);
    Check(error, folder_);
    const std::string text = PatchText(patch);
    WriteFileSafely(own_, {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()},
                    TReaders::Owner);
    RemoveOldest();
}

void TPatchStore::Drop() {
    Remove(own_);
}

std::vector<TKeptPatch> TPatchStore::Of(std::uint32_t size, const std::string &sha256) const {
    std::vector<TKeptPatch> kept;
    for (const TFile &file : Files()) {
        TPatch patch;
        if (file.path != own_ && Read(file.path, patch) && patch.size == size &&
            patch.sha256 == sha256)
            kept.push_back({file.path, file.time, std::move(patch)});
    }
    return kept;
}

void TPatchStore::Forget(const TKeptPatch &kept) {
    Remove(kept.file);
}

std::vector<TPatchStore::TFile> TPatchStore::Files() const {
    std::vector<TFile> files;
    std::error_code error;
    if (fs::status(folder_, error).type() == fs::file_type::not_found)
        return files;
    for (fs::directory_iterator entry(folder_, error), end; !error && entry != end;
         entry.increment(error))
        if (IsOurs(entry->path().filename().string())) {
            std::error_code gone; // meanwhile, by another program
            const fs::file_time_type time = entry->last_write_time(gone);
            if (!gone)
                files.push_back({entry->path(), time});
        }
    Check(error, folder_);
    std::sort(files.begin(), files.end(),
              [](const TFile &a, const TFile &b) { return a.time > b.time; });
    return files;
}

void TPatchStore::RemoveOldest() const {
    std::vector<TFile> files = Files();
    std::erase_if(files, [this](const TFile &file) { return file.path == own_; });
    for (std::size_t i = mostPatches - 1; i < files.size(); ++i)
        Remove(files[i].path);
}
