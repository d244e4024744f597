#include "changes/OtherImage.h"

#include "spec/SpecFile.h"
#include "system/ReadFile.h"

#include <utility>

TOtherImage::TOtherImage(const std::filesystem::path &file)
    : name_(file.string()), bytes_(ReadWholeFile(file, TROMImage::capacity)) {
    for (const TSpecEntry &entry : ScanSpecFiles(absolute(file).parent_path()).entries)
        specs_.push_back({entry.label, entry.path});
}

TOtherImage::TOtherImage(std::string name, std::vector<std::uint8_t> bytes)
    : name_(std::move(name)), bytes_(std::move(bytes)) {}

TMappedImage TOtherImage::Mapped(const TWorkspace &inForce, std::optional<std::size_t> spec) const {
    TMappedImage image(bytes_);
    if (!spec) {
        image.PlaceAs(inForce);
        return image;
    }
    image.ShowAs(inForce);
    image.PlaceBySpec(specs_.at(*spec).path);
    return image;
}
