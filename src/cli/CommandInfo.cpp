// "info": what an image file is, and which spec files beside it are for it.
#include "cli/Commands.h"
#include "cli/Findings.h"
#include "cli/Images.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "cli/WrongUse.h"
#include "spec/SpecFile.h"
#include "system/Errors.h"
#include "system/PathText.h"
#include "system/Sha256.h"

#include <algorithm>
#include <memory>

namespace {
struct TFittingSpec {
    TSpecEntry file;
    std::size_t maps;
};

struct TImageInfo {
    std::string name;
    std::size_t size;
    std::string sha256;
    std::vector<TFittingSpec> specs;
};

/// How many maps it places in the image; 0 also for a file that cannot be taken.
std::size_t MapsPlaced(const std::filesystem::path &image, const std::filesystem::path &spec) {
    try {
        return SensiblyPlaced(ReadMappedImage(image, spec));
    } catch (const EWrongUse &) {
        return 0;
    } catch (const EFileError &) {
        return 0;
    }
}

/// Those that place maps sensibly, by their names.
std::vector<TFittingSpec> FittingSpecs(const std::filesystem::path &image) {
    const std::filesystem::path folder = image.parent_path();
    std::vector<TFittingSpec> fitting;
    for (const TSpecEntry &spec : ScanSpecFiles(folder.empty() ? "." : folder).entries)
        if (const std::size_t maps = MapsPlaced(image, spec.path); maps > 0)
            fitting.push_back({spec, maps});
    std::sort(fitting.begin(), fitting.end(), [](const auto &one, const auto &other) {
        return one.file.path.filename() < other.file.path.filename();
    });
    return fitting;
}

TImageInfo InfoOf(const std::string &name) {
    const std::filesystem::path image = ToPath(name);
    const std::vector<std::uint8_t> bytes = ReadImage(image);
    return {name, bytes.size(), Sha256(bytes), FittingSpecs(image)};
}

std::string TextOf(const TImageInfo &info) {
    std::string text = info.name + "\n  size     " + std::to_string(info.size) +
                       " bytes\n  SHA-256  " + info.sha256 + "\n";
    for (const TFittingSpec &spec : info.specs)
        text += "  spec     " + PathText(spec.file.path.filename()) + ": " +
                std::to_string(spec.maps) + " maps; " + spec.file.label + "\n";
    return text;
}

TJson JsonOf(const TImageInfo &info) {
    TJson specs = TJson::array();
    for (const TFittingSpec &spec : info.specs)
        specs.push_back({{"file", PathText(spec.file.path.filename())},
                         {"label", spec.file.label},
                         {"maps", spec.maps}});
    return {{"name", info.name},
            {"size", info.size},
            {"sha256", info.sha256},
            {"specs", std::move(specs)}};
}

std::string AllTexts(const std::vector<TImageInfo> &images) {
    std::string text;
    for (const TImageInfo &info : images)
        text += TextOf(info);
    return text;
}

std::string AllJson(const std::vector<TImageInfo> &images) {
    TJson json = NewJson("info");
    json["images"] = TJson::array();
    for (const TImageInfo &info : images)
        json["images"].push_back(JsonOf(info));
    return JsonText(json, TJsonLayout::Pretty);
}
} // namespace

TRun DeclareInfo(CLI::App &app) {
    struct TArguments {
        std::vector<std::string> images;
        std::string format = "text";
    };
    const auto arguments = std::make_shared<TArguments>();
    app.add_option("IMAGE", arguments->images, "ROM images")->required()->type_name("");
    app.add_option("--format", arguments->format, "text or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    return [arguments](TConsole &console) {
        std::vector<TImageInfo> images;
        for (const std::string &image : arguments->images)
            images.push_back(InfoOf(image));
        console.out << (arguments->format == "json" ? AllJson(images) : AllTexts(images));
        return TExit::Done;
    };
}
