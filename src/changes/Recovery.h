// Keeps what was committed and is in no file, so that it outlives the program, whatever ends it:
// whenever the bytes in memory differ from those of their file, a patch lies in the user's state
// folder. Offers such patches for the image that they belong to. Also keeps what saves replace
// (EarlierVersions.h). A thread of its own does all work on the folder; nobody waits for it longer
// than `patience`, and nothing here makes a load, a commit or a save fail.
#pragma once

#include "changes/PatchStore.h"
#include "model/Workspace.h"
#include "system/Errands.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

class TRecovery {
public:
    static constexpr std::size_t mostPatches = 20;
    static constexpr std::chrono::milliseconds patience{20};

    /// @param folder  where the patches lie; without one nothing is kept, which is a problem to be
    ///                told when there is something to keep
    /// `workspace` outlives this. Looks at nothing yet; ends when all is kept that is to be.
    TRecovery(TWorkspace &workspace, std::optional<std::filesystem::path> folder);
    /// Called, by the thread too, when there are offers or a problem, so that somebody Looks again.
    std::function<void()> OnNews = [] {};

    /// A file was read into the image in force, perhaps the same one again. What was kept of the
    /// bytes in memory until then stays and is offered with the image that it belongs to.
    void ImageRead();
    /// The bytes of `target` are about to be replaced by those of the image: they are kept, once a
    /// day.
    /// @param day  as "20261122"
    void KeepReplaced(const std::filesystem::path &target, const std::string &day);
    /// The image was saved: what was kept of it goes.
    void ImageSaved();
    /// Sees to it that what is kept is what is committed, and finds the offers for an image that
    /// was read or saved. To be called after whatever may have changed the image.
    void Look();

    /// Patches of the image as it was read or saved, without this program's own; newest first.
    const std::vector<TKeptPatch> &Offers() const { return offers_; }
    /// Applies the first offer to the image in memory and reads the maps anew. The offer is
    /// removed when the next Look has kept what is in memory then.
    /// Throws EPatchError when the patch does not fit what is in memory; nothing has changed then.
    void BringBack();
    /// Removes the first offer.
    void Forget();

    /// What went wrong and has not been told yet: each problem once, one at a time. Empty: nothing.
    std::string TakeProblem();
    /// Waits until the thread has done all.
    void Finish() { errands_.Finish(); }

private:
    std::vector<std::uint8_t> BytesToKeep() const;
    /// Of the image's file.
    const std::string &Digest();
    void KeepOwn(TPatch patch);
    void RemoveOwn();
    void Search();
    void TakeFound();
    bool IsOfTheImage(const TPatch &patch);
    /// Offers it no longer; the files that hold it.
    std::vector<std::filesystem::path> TakeFirstOffer();
    /// Has the thread do it, and waits a little. What goes wrong is a problem of that text.
    void Send(const std::string &name, const char *problem, std::function<void()> work);
    void Try(const char *problem, const std::function<void()> &work);
    void AddProblem(const char *problem, const std::string &reason);

    TWorkspace &workspace_;
    const std::optional<std::filesystem::path> folder_;
    const TPatchStore store_;
    std::filesystem::path own_;                      ///< this program's patch of the image
    std::vector<TPatchRun> kept_;                    ///< what it has; none while it is not there
    std::vector<std::filesystem::path> broughtBack_; ///< to go once their bytes are in own_
    std::int32_t revLimiterRead_ = 0;                ///< the workspace's when the image was read
    std::string digest_;                             ///< empty while nobody has asked
    bool searched_ = true;
    std::vector<TKeptPatch> offers_;

    std::mutex mutex_;                  ///< for the three below, which the thread uses too
    std::optional<TKeptPatches> found_; ///< by the last search, which may be that of another image
    std::deque<std::string> problems_;
    std::set<std::string> told_; ///< all that were ever in problems_

    TErrands errands_; ///< last, since its thread uses all of the above
};
