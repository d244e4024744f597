// A folder in which the program keeps patches of one kind, told from all else there by the form of
// their names. What is in a patch is Patch.h's; when one is kept or removed is decided in
// Recovery.h and EarlierVersions.h.
#pragma once

#include "changes/Patch.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// A patch that lies in the folder.
struct TKeptPatch {
    std::filesystem::path file;
    std::filesystem::file_time_type time; ///< when it was written
    TPatch patch;
};

/// What was read of a folder.
struct TKeptPatches {
    std::vector<TKeptPatch> patches;    ///< newest first
    std::vector<std::string> leftAlone; ///< files that are no patches: name and reason
};

/// Reads a patch file. Throws EFileError, also for one over 16 MiB, and EPatchError.
TPatch ReadPatch(const std::filesystem::path &file);

/// Touches nothing in its folder but files whose names have its form, and removes by itself only
/// those that are patches. Everything that reads or writes throws EFileError when the folder or a
/// file in it cannot be used; what was kept before is then still there.
class TPatchStore {
public:
    /// @param form  of the names of files, "#" for each hexadecimal digit
    /// @param most  how many files are kept
    /// The folder need not be there; it is made, for its owner alone, when the first patch comes.
    TPatchStore(std::filesystem::path folder, std::string_view form, std::size_t most);

    /// A name that nobody else has.
    std::filesystem::path NewFile() const;
    /// Writes a file, instead of the one of that name, that its owner alone may read.
    void Keep(const std::filesystem::path &file, const TPatch &patch) const;
    /// Removes a file, if it is there.
    static void Remove(const std::filesystem::path &file);

    /// The newest of the files whose names are `wanted`, at most as many as are kept. A folder that
    /// is not there has none.
    TKeptPatches Read(const std::function<bool(const std::filesystem::path &file)> &wanted) const;
    /// Removes the patches behind the newest ones, but never `own`; of very many some only.
    void RemoveOldest(const std::filesystem::path &own) const;

private:
    struct TFile {
        std::filesystem::path path;
        std::filesystem::file_time_type time;
    };
    /// Those of the form, newest first.
    std::vector<TFile> Files() const;
    bool IsOfForm(std::string_view name) const;

    std::filesystem::path folder_;
    std::string_view form_;
    std::size_t most_;
};
