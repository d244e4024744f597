// The ways in which the core saves files, each with its start and what has to hold behind it.
#pragma once

#include "inject/FaultInjection.h"
#include "model/ROMImage.h"
#include "spec/SpecFile.h"
#include "support/TemporaryFolder.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

using TFileBytes = std::vector<std::uint8_t>;

struct TSaving {
    const char *name;
    bool spec;    ///< saves a spec file, else the ROM image
    bool existed; ///< the target, with 0640 permissions
    bool linked;  ///< the target is saved under the name of a symbolic link to it
    bool remains; ///< of a save that was killed lie beside it
    bool inPlace; ///< the folder refuses new files
    TCalls calls; ///< that it makes when all goes well, apart from what the folder refuses
    /// Kinds of which one that goes wrong for once makes the save an error.
    TCalls failing;
};

/// Names of the cases in order: the ways that replace the target, then the one that writes into it.
std::vector<TSaving> Savings();

/// One saving in a folder of its own.
class TSavingRun {
public:
    explicit TSavingRun(const TSaving &saving);

    /// A name that a killed save of this program leaves behind.
    static std::string RemainsName();

    /// Saves with the faults in force; the error's text, empty when there was none.
    std::string Save(const std::vector<TFault> &faults = {});
    /// What the last save met.
    TCalls Made() const { return made_; }
    int Hits() const { return hits_; }
    TCalls HitCalls() const { return hitCalls_; }

    /// The file that is saved, behind the link, and the name that the user gave.
    std::filesystem::path Target() const { return folder_ / "real.bin"; }
    std::filesystem::path Named() const { return saving_.linked ? folder_ / "link" : Target(); }
    /// Nothing when there is no file.
    std::optional<TFileBytes> Contents() const;
    bool IsOld() const;
    bool IsNew() const { return Contents() == newBytes_; }
    /// Names in the folder that are no more than a saving's business.
    std::vector<std::string> Remains() const;
    /// Whether everything but the target's contents is as it was: links, permissions, other names,
    /// the image in memory, and its modified flag as `modified`.
    void ExpectTheRestAsItWas(bool modified) const;
    /// The next save works and leaves nothing but its target.
    void ExpectNextSaveWorks();

private:
    void SaveIt();

    const TSaving saving_;
    const TTemporaryFolder folder_;
    TFileBytes newBytes_;
    TCalls made_;
    int hits_ = 0;
    TCalls hitCalls_;
    std::unique_ptr<TROMImage> image_;                 // too large for a stack
    const std::string label_ = std::string(5000, 'x'); ///< of the spec file, which makes it long
    const TFuelMapSet fuel_;
    const TTimingMapSet timing_;
};
