// The folder in which the program keeps patches of what was committed and never saved, each under a
// name of its own. What is in a patch is Patch.h's; when one is kept or dropped is decided
// elsewhere.
#pragma once

#include "changes/Patch.h"

#include <filesystem>
#include <vector>

/// A patch that lies in the folder.
struct TKeptPatch {
    std::filesystem::path file;
    std::filesystem::file_time_type time; ///< when it was written
    TPatch patch;
};

/// Touches nothing in its folder but files that have the form of its own names. Everything that
/// reads or writes throws EFileError when the folder or a file in it cannot be used; what was kept
/// before is then still there.
class TPatchStore {
public:
    static constexpr std::size_t mostPatches = 20;

    /// The folder need not be there; it is made, for its owner alone, when the first patch comes.
    explicit TPatchStore(std::filesystem::path folder);

    /// Keeps the patch instead of this store's last one. The oldest files over mostPatches go; this
    /// one never does.
    void Keep(const TPatch &patch);
    /// Removes this store's patch, if there is one.
    void Drop();

    /// The readable patches of an image, newest first; without this store's own. Files that are no
    /// patches are left alone.
    std::vector<TKeptPatch> Of(std::uint32_t size, const std::string &sha256) const;

    /// Removes a patch that Of told of.
    static void Forget(const TKeptPatch &kept);

private:
    struct TFile {
        std::filesystem::path path;
        std::filesystem::file_time_type time;
    };
    /// Those of the form of its names, newest first.
    std::vector<TFile> Files() const;
    void RemoveOldest() const;

    std::filesystem::path folder_;
    std::filesystem::path own_;
};
