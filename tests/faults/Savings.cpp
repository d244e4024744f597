#include "Savings.h"

#include "system/Errors.h"

#include <algorithm>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

const TFileBytes oldBytes(3000, 0x11);
constexpr int imageSize = 0x2000;
constexpr mode_t oldMode = 0640;

TFileBytes Pattern() {
    TFileBytes bytes(imageSize);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + (i >> 8));
    return bytes;
}

} // namespace

std::vector<TSaving> Savings() {
    using enum TCall;
    // A folder that cannot be listed may hold remains, and one that cannot be flushed may lose the
    // new name in a power cut: no reasons to call a save that stands a failure.
    constexpr TCalls created{Open, Create, Status, Write, Flush, Close, Rename, List, Lock};
    constexpr TCalls needed{Create, Status, Write, Flush, Rename};
    constexpr TCalls replaced = created | TCalls{Access, Permissions};
    constexpr TCalls neededToo = needed | TCalls{Access, Permissions};
    constexpr TCalls cleaned = replaced | TCalls{OpenToWrite, Unlink};
    constexpr TCalls overwritten{Open,  OpenToWrite, Create,   Status, Access, Read,
                                 Write, Seek,        Truncate, Flush,  Close,  List};
    constexpr TCalls neededInPlace{OpenToWrite, Create, Status,   Access, Read,
                                   Write,       Seek,   Truncate, Flush};
    return {
        {"image_over_a_file", false, true, false, false, false, replaced, neededToo},
        {"image_as_a_new_file", false, false, false, false, false, created, needed},
        {"image_through_a_link", false, true, true, false, false, replaced | TCalls{ReadLink},
         neededToo | TCalls{ReadLink}},
        {"image_through_a_dangling_link", false, false, true, false, false,
         created | TCalls{ReadLink}, needed | TCalls{ReadLink}},
        {"image_beside_remains", false, true, false, true, false, cleaned, neededToo},
        {"spec_over_a_file", true, true, false, false, false, replaced, neededToo},
        {"spec_as_a_new_file", true, false, false, false, false, created, needed},
        {"image_in_place", false, true, false, false, true, overwritten, neededInPlace},
    };
}

TSavingRun::TSavingRun(const TSaving &saving)
    : saving_(saving), newBytes_(Pattern()), image_(std::make_unique<TROMImage>()) {
    std::copy(newBytes_.begin(), newBytes_.end(), image_->data.begin());
    image_->size = imageSize;
    image_->modified = true;
    if (saving.spec) {
        const std::string text = NewSpecFile(label_, fuel_, timing_);
        newBytes_.assign(text.begin(), text.end());
    }
    if (saving.existed) {
        PutFile(Target(), oldBytes);
        chmod(Target().c_str(), oldMode);
    }
    if (saving.linked)
        fs::create_symlink("real.bin", folder_ / "link");
    if (saving.remains)
        PutFile(folder_ / RemainsName(), oldBytes);
}

std::string TSavingRun::RemainsName() {
    return ".ferrolyn-0123456789abcdef0123456789abcdef.tmp";
}

void TSavingRun::SaveIt() {
    if (saving_.spec)
        SaveNewSpecFile(Named(), label_, fuel_, timing_);
    else
        image_->SaveToFile(Named());
}

std::string TSavingRun::Save(const std::vector<TFault> &faults) {
    std::vector<TFault> all = faults;
    if (saving_.inPlace)
        all.push_back({TEffect::Fails, EACCES, {TCall::Create}, true});
    image_->modified = true;
    const TFaultInjection injection(folder_.Path(), all);
    std::string error;
    try {
        SaveIt();
    } catch (const EFileError &failure) {
        error = failure.what();
    }
    made_ = injection.Made();
    hits_ = faults.empty() ? 0 : injection.Hits();
    hitCalls_ = faults.empty() ? TCalls() : injection.HitCalls();
    return error;
}

std::optional<TFileBytes> TSavingRun::Contents() const {
    if (!fs::exists(Target()))
        return std::nullopt;
    return GetFile(Target());
}

bool TSavingRun::IsOld() const {
    const std::optional<TFileBytes> contents = Contents();
    return saving_.existed ? contents == oldBytes : !contents;
}

std::vector<std::string> TSavingRun::Remains() const {
    std::vector<std::string> names = folder_.Names();
    std::erase(names, "real.bin");
    std::erase(names, "link");
    return names;
}

void TSavingRun::ExpectTheRestAsItWas(bool modified) const {
    struct stat status {};
    if (saving_.existed && stat(Target().c_str(), &status) == 0) {
        EXPECT_EQ(status.st_mode & 07777, oldMode);
    }
    EXPECT_EQ(fs::is_symlink(folder_ / "link"), saving_.linked);
    EXPECT_FALSE(fs::is_symlink(Target()));
    if (!saving_.spec) {
        EXPECT_EQ(image_->modified, modified);
    }
    EXPECT_EQ(image_->size, imageSize);
    const TFileBytes pattern = Pattern();
    EXPECT_TRUE(std::equal(pattern.begin(), pattern.end(), image_->data.begin()));
}

void TSavingRun::ExpectNextSaveWorks() {
    EXPECT_EQ(Save(), "") << "the next save";
    EXPECT_TRUE(IsNew()) << "after the next save";
    EXPECT_EQ(Remains(), std::vector<std::string>());
    ExpectTheRestAsItWas(false);
}
