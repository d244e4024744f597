// "copy": whole maps from one image into another, as "Copy Map" and "Paste Map" do it.
#include "cli/Commands.h"
#include "cli/ImageChange.h"
#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "maps/PasteBuffer.h"
#include "system/SafeFile.h"

#include <memory>

namespace {
struct TCopyArguments {
    std::string from;
    std::string to;
    std::vector<std::string> maps;
    std::vector<std::string> specs; ///< one for both images, or one for each
    TImageOutput output;

    std::filesystem::path FromSpec() const { return ToPath(specs.front()); }
    std::filesystem::path ToSpec() const { return ToPath(specs.back()); }
};

struct TCopiedMap {
    TMapId id;
    std::unique_ptr<TMap> map;
};

std::vector<TCopiedMap> CopiesOf(const TCopyArguments &arguments, const std::vector<TMapId> &ids) {
    const TMappedImage image = ReadMappedImage(ToPath(arguments.from), arguments.FromSpec());
    std::vector<TCopiedMap> copies;
    image.InForce([&] {
        for (const TMapId &id : ids) {
            const TMap &map = MapOf(image.Maps(), id);
            NeedMap(map, id, arguments.from);
            copies.push_back({id, map.CreateCopy()});
        }
    });
    return copies;
}

void Paste(const TCopiedMap &copied, TWorkspace &maps, const std::string &image) {
    TMap &map = MapOf(maps, copied.id);
    NeedMap(map, copied.id, image);
    const char *set = copied.id.set == TMapSetKind::Fuel ? "Fuel" : "Timing";
    const std::string problem = WhyNoPaste(copied.map.get(), map, set, copied.id.kind);
    if (!problem.empty())
        throw EWrongUse(image + ": " + NameOf(copied.id) + ": " + problem);
    copied.map->AssignTo(map);
    map.Save();
}

TExit Copy(const TCopyArguments &arguments) {
    const std::vector<TMapId> ids = NamedMaps(arguments.maps);
    if (arguments.specs.size() > 2)
        throw EWrongUse(arguments.specs[2] + ": a third spec file, and there are two images");
    const std::filesystem::path file = arguments.output.File(
        ToPath(arguments.to), {ToPath(arguments.from), arguments.FromSpec(), arguments.ToSpec()});
    const std::vector<TCopiedMap> copies = CopiesOf(arguments, ids);
    TMappedImage image = ReadMappedImage(ToPath(arguments.to), arguments.ToSpec());
    image.Change([&](TWorkspace &maps) {
        for (const TCopiedMap &copied : copies)
            Paste(copied, maps, arguments.to);
    });
    WriteFileSafely(file, image.Bytes());
    return TExit::Done;
}
} // namespace

TRun DeclareCopy(CLI::App &app) {
    const auto arguments = std::make_shared<TCopyArguments>();
    app.add_option("FROM", arguments->from, "ROM image whose maps are copied")
        ->required()
        ->type_name("");
    app.add_option("TO", arguments->to, "ROM image that takes them")->required()->type_name("");
    app.add_option("MAP", arguments->maps, "The maps to copy; without one all")->type_name("");
    app.add_option("--spec", arguments->specs,
                   "Spec file of both images, or given twice: that of FROM, then that of TO")
        ->required()
        ->allow_extra_args(false)
        ->type_name("FILE");
    arguments->output.Declare(app);
    return [arguments](TConsole &) { return Copy(*arguments); };
}
