// Another image, to be compared with the image in force: a file, or bytes that were kept.
#pragma once

#include "changes/MappedImage.h"

#include <optional>
#include <string>
#include <vector>

class TOtherImage {
public:
    struct TSpec {
        std::string label; ///< UTF-8; may be empty
        std::filesystem::path path;
    };

    /// Reads it, and lists the spec files of its folder. Throws EFileError as
    /// TROMImage::LoadFromFile does.
    explicit TOtherImage(const std::filesystem::path &file);

    /// Has no spec files.
    TOtherImage(std::string name, std::vector<std::uint8_t> bytes);

    /// What it is called: a file's name with its folder.
    const std::string &Name() const { return name_; }
    const std::vector<TSpec> &Specs() const { return specs_; }

    /// The image with its maps where those in force are, or where a spec file has them; shown as
    /// those in force. Throws what TMappedImage::PlaceBySpec throws.
    TMappedImage Mapped(const TWorkspace &inForce, std::optional<std::size_t> spec) const;

private:
    std::string name_;
    std::vector<std::uint8_t> bytes_;
    std::vector<TSpec> specs_;
};
