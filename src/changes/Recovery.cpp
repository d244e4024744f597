#include "changes/Recovery.h"

#include "changes/EarlierVersions.h"
#include "changes/MappedImage.h"
#include "model/ROMImage.h"
#include "system/Files.h"
#include "system/ReadFile.h"
#include "system/Sha256.h"
#include "system/Texts.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

namespace {
namespace fs = std::filesystem;
using TImageBytes = std::vector<std::uint8_t>;

constexpr auto cannotKeep =
    Translatable("Recovery", "Committed changes cannot be kept for a crash: %1");
constexpr auto cannotRead = Translatable("Recovery", "Kept changes cannot be looked at: %1");
constexpr auto cannotRemove = Translatable("Recovery", "Kept changes cannot be removed: %1");
constexpr auto notPatches = Translatable("Recovery", "Left alone, no kept changes: %1");
constexpr auto cannotKeepReplaced =
    Translatable("Recovery", "What the save replaces cannot be kept: %1");

std::string Joined(const std::vector<std::string> &texts) {
    std::string all;
    for (const std::string &text : texts)
        all += (all.empty() ? "" : "; ") + text;
    return all;
}

std::string NoHome() {
    return Translated("Recovery", "there is no home folder");
}

TImageBytes Copy(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

/// What a save to `target` replaces by other bytes; nothing when that is nothing.
std::optional<TImageBytes> Replaced(const fs::path &target) {
    std::error_code unknown;
    if (target.empty() || TypeAt(target, unknown) == fs::file_type::not_found)
        return std::nullopt;
    TImageBytes bytes = ReadWholeFile(target, TROMImage::capacity);
    if (std::ranges::equal(bytes, ROMImage()->BytesNow()))
        return std::nullopt;
    return bytes;
}
} // namespace

TRecovery::TRecovery(TWorkspace &workspace, std::optional<fs::path> folder)
    : workspace_(workspace),
      folder_(std::move(folder)),
      store_(folder_.value_or(fs::path()), "unsaved-################.patch", mostPatches),
      own_(store_.NewFile()) {}

void TRecovery::ImageRead() {
    if (!kept_.empty())
        own_ = store_.NewFile();
    kept_.clear();
    broughtBack_.clear();
    revLimiterRead_ = workspace_.fuelMapSet.revLimiter.raw;
    digest_.clear();
    offers_.clear();
    searched_ = false;
}

void TRecovery::ImageSaved() {
    RemoveOwn();
    ImageRead();
}

void TRecovery::KeepReplaced(const fs::path &target, const std::string &day) {
    Try(cannotKeepReplaced, [&] {
        const std::optional<TImageBytes> bytes = Replaced(target);
        if (bytes && !folder_)
            AddProblem(cannotKeepReplaced, NoHome());
        else if (bytes)
            Send(target.string(), cannotKeepReplaced,
                 [this, target, day, bytes] { KeepEarlier(*folder_, target, *bytes, day); });
    });
}

void TRecovery::Look() {
    const TROMImage *image = ROMImage();
    if (!image || image->FileBytes().empty())
        return;
    TPatch patch = MakePatch(workspace_.romFileName.filename().string(), {}, image->FileBytes(),
                             BytesToKeep());
    if (patch.runs.empty())
        RemoveOwn();
    else if (!folder_)
        AddProblem(cannotKeep, NoHome());
    else if (patch.runs != kept_)
        KeepOwn(std::move(patch));
    if (!std::exchange(searched_, true) && folder_)
        Search();
    TakeFound();
}

/// Max RPM too, unless it is left over from another image.
TImageBytes TRecovery::BytesToKeep() const {
    const TRPMVal &limiter = workspace_.fuelMapSet.revLimiter;
    const bool taken = limiter.modified && limiter.raw != revLimiterRead_;
    return taken ? CommittedBytes(workspace_) : Copy(ROMImage()->BytesNow());
}

const std::string &TRecovery::Digest() {
    if (digest_.empty())
        digest_ = Sha256(ROMImage()->FileBytes());
    return digest_;
}

void TRecovery::KeepOwn(TPatch patch) {
    const bool isNew = kept_.empty();
    kept_ = patch.runs;
    patch.sha256 = Digest();
    Send(own_.string(), cannotKeep,
         [this, isNew, own = own_, patch = std::move(patch), old = broughtBack_] {
             store_.Keep(own, patch);
             std::for_each(old.begin(), old.end(), TPatchStore::Remove);
             if (isNew)
                 store_.RemoveOldest(own);
         });
}

void TRecovery::RemoveOwn() {
    if (kept_.empty() && broughtBack_.empty())
        return;
    kept_.clear();
    broughtBack_.push_back(own_);
    Send(own_.string(), cannotRemove, [old = std::exchange(broughtBack_, {})] {
        std::for_each(old.begin(), old.end(), TPatchStore::Remove);
    });
}

void TRecovery::Search() {
    Send("search", cannotRead, [this, own = own_] {
        TKeptPatches kept = store_.Read([&](const fs::path &file) { return file != own; });
        if (kept.patches.empty() && kept.leftAlone.empty())
            return;
        {
            const std::lock_guard lock(mutex_);
            found_ = std::move(kept);
        }
        OnNews();
    });
}

void TRecovery::TakeFound() {
    std::unique_lock lock(mutex_);
    std::optional<TKeptPatches> found = std::exchange(found_, {});
    lock.unlock();
    if (!found)
        return;
    offers_.clear();
    for (TKeptPatch &kept : found->patches)
        try {
            if (IsOfTheImage(kept.patch))
                offers_.push_back(std::move(kept));
        } catch (const EPatchError &error) {
            found->leftAlone.push_back(kept.file.filename().string() + ": " + error.what());
        }
    if (!found->leftAlone.empty())
        AddProblem(notPatches, Joined(found->leftAlone));
}

/// Throws EPatchError for one that says so and does not fit.
bool TRecovery::IsOfTheImage(const TPatch &patch) {
    const auto file = ROMImage()->FileBytes();
    if (patch.runs.empty() || patch.size != file.size() || patch.sha256 != Digest())
        return false;
    TImageBytes bytes = Copy(file);
    ApplyPatch(patch, bytes);
    return true;
}

void TRecovery::BringBack() {
    TImageBytes bytes = BytesToKeep();
    ApplyPatch(offers_.front().patch, bytes);
    std::copy(bytes.begin(), bytes.end(), ROMImage()->data.begin());
    ROMImage()->modified = true;
    ReadMapsAnew(workspace_);
    for (fs::path &file : TakeFirstOffer())
        broughtBack_.push_back(std::move(file));
}

void TRecovery::Forget() {
    const std::vector<fs::path> files = TakeFirstOffer();
    Send(files.front().string(), cannotRemove,
         [files] { std::for_each(files.begin(), files.end(), TPatchStore::Remove); });
}

/// With the files of those that are the same: a kill between keeping and removing leaves two.
std::vector<fs::path> TRecovery::TakeFirstOffer() {
    std::vector<fs::path> files;
    std::erase_if(offers_, [&, runs = offers_.front().patch.runs](const TKeptPatch &offer) {
        if (offer.patch.runs != runs)
            return false;
        files.push_back(offer.file);
        return true;
    });
    return files;
}

std::string TRecovery::TakeProblem() {
    const std::lock_guard lock(mutex_);
    if (problems_.empty())
        return {};
    std::string first = std::move(problems_.front());
    problems_.pop_front();
    return first;
}

void TRecovery::Send(const std::string &name, const char *problem, std::function<void()> work) {
    Try(problem, [&] {
        errands_.Send(
            name, [this, problem, work = std::move(work)] { Try(problem, work); }, patience);
    });
}

void TRecovery::Try(const char *problem, const std::function<void()> &work) {
    try {
        work();
    } catch (const std::exception &error) {
        AddProblem(problem, error.what());
        OnNews();
    }
}

void TRecovery::AddProblem(const char *problem, const std::string &reason) {
    const std::string text = Filled(Translated("Recovery", problem), {reason});
    const std::lock_guard lock(mutex_);
    if (told_.insert(text).second)
        problems_.push_back(text);
}
