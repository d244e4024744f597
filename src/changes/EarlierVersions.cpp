#include "changes/EarlierVersions.h"

#include "model/ROMImage.h"
#include "system/Files.h"
#include "system/Sha256.h"

#include <optional>
#include <system_error>
#include <utility>

namespace {
namespace fs = std::filesystem;
using TContents = std::vector<std::uint8_t>;

constexpr std::string_view earlierPrefix = "earlier-";
constexpr std::string_view earlierSuffix = ".patch";
constexpr std::size_t digitsOfAFile = 16;

TPatchStore StoreIn(const fs::path &folder) {
    return {folder, "earlier-########-################.patch", mostEarlierVersions};
}

TContents ErasedEprom(std::size_t size) {
    return TContents(size, 0xFF);
}

/// How the names of a file's versions end: the same for each way to name the file.
std::string EndOfName(const fs::path &file) {
    const std::string name = OneName(file);
    const std::string digest =
        Sha256({reinterpret_cast<const std::uint8_t *>(name.data()), name.size()});
    return "-" + digest.substr(0, digitsOfAFile) + std::string(earlierSuffix);
}

/// Nothing for a patch of something else.
std::optional<TContents> WholeFile(const TPatch &patch) {
    if (patch.size > TROMImage::capacity)
        return std::nullopt;
    TContents bytes = ErasedEprom(patch.size);
    if (Sha256(bytes) != patch.sha256)
        return std::nullopt;
    try {
        ApplyPatch(patch, bytes);
    } catch (const EPatchError &) {
        return std::nullopt;
    }
    return bytes;
}
} // namespace

void KeepEarlier(const fs::path &folder, const fs::path &target,
                 std::span<const std::uint8_t> bytes, const std::string &day) {
    const fs::path file = folder / (std::string(earlierPrefix) + day + EndOfName(target));
    std::error_code unknown;
    if (fs::exists(fs::file_status(TypeAt(file, unknown))))
        return;
    const TContents erased = ErasedEprom(bytes.size());
    const TPatchStore store = StoreIn(folder);
    store.Keep(file, MakePatch(target.filename().string(), Sha256(erased), erased, bytes));
    store.RemoveOldest(file);
}

std::vector<TEarlier> EarlierVersions(const fs::path &folder, const fs::path &file) {
    const std::string end = EndOfName(file);
    const auto wanted = [&](const fs::path &kept) { return kept.string().ends_with(end); };
    std::vector<TEarlier> versions;
    for (TKeptPatch &kept : StoreIn(folder).Read(wanted).patches)
        if (std::optional<TContents> bytes = WholeFile(kept.patch))
            versions.push_back({std::move(kept.file), kept.time, std::move(*bytes)});
    return versions;
}
