// "show": maps as tables, for people and for programs.
#include "cli/CellNames.h"
#include "cli/Commands.h"
#include "cli/ImageChange.h"
#include "cli/MapCsv.h"
#include "cli/MapGridText.h"
#include "cli/MapJson.h"
#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <cmath>
#include <cstdlib>
#include <memory>

namespace {
struct TShowArguments {
    TMappedArguments image;
    TTextOutput output;
    std::vector<std::string> maps;
    std::string format = "table";
    std::string color = "auto";
};

/// A variable that is empty counts as none.
bool WantsNoColor() {
    const char *set = std::getenv("NO_COLOR");
    return set && *set != '\0';
}

bool WithColors(const TShowArguments &arguments, const TConsole &console) {
    if (arguments.color != "auto")
        return arguments.color == "always";
    return console.outIsTerminal && arguments.output.ToConsole() && !WantsNoColor();
}

/// None where the image has no place for it.
const TRPMVal *RevLimiterOf(const TWorkspace &maps) {
    const TFuelMapSet &set = maps.fuelMapSet;
    return set.HasRevLimiter() && ROMImage()->IsInFile(set.revLimiter.offset) ? &set.revLimiter
                                                                              : nullptr;
}

std::string RevLimiterLine(const TWorkspace &maps) {
    const TRPMVal *limiter = RevLimiterOf(maps);
    if (!limiter)
        return "rev-limiter: Not placed: the spec file places none in the image\n";
    return "rev-limiter: " + FormatReal(axisPicture, limiter->GetConverted()) + " rpm at " +
           FormatOffset(limiter->offset) + "\n";
}

std::string Tables(const TShowArguments &arguments, const TWorkspace &maps, bool colors) {
    std::string text;
    for (const TMapId id : NamedMaps(arguments.maps)) {
        const TMap &map = MapOf(maps, id);
        const std::string why = WhyUnusable(map);
        text += text.empty() ? "" : "\n";
        text += why.empty() ? MapTable(id, map, colors) : NameOf(id) + ": " + why + "\n";
    }
    return arguments.maps.empty() ? text + "\n" + RevLimiterLine(maps) : text;
}

std::string Json(const TShowArguments &arguments, const TWorkspace &maps) {
    TJson json = NewJson("show");
    json["image"] = arguments.image.Name();
    json["maps"] = TJson::array();
    json["unusable"] = TJson::array();
    for (const TMapId id : NamedMaps(arguments.maps)) {
        const TMap &map = MapOf(maps, id);
        const std::string why = WhyUnusable(map);
        if (why.empty())
            json["maps"].push_back(MapJson(id, map));
        else
            json["unusable"].push_back({{"name", NameOf(id)}, {"reason", why}});
    }
    const TRPMVal *limiter = RevLimiterOf(maps);
    json["rev_limiter"] = nullptr;
    if (limiter)
        json["rev_limiter"] = {{"offset", limiter->offset},
                               {"rpm", std::lround(limiter->GetConverted())},
                               {"raw", limiter->raw}};
    return JsonText(json, TJsonLayout::Pretty);
}

/// What is named has to be there; what is not may be missing.
void NeedNamed(const TShowArguments &arguments, const TWorkspace &maps) {
    if (!arguments.maps.empty())
        for (const TMapId id : NamedMaps(arguments.maps))
            NeedMap(MapOf(maps, id), id, arguments.image.Name());
}

std::string Shown(const TShowArguments &arguments, const TWorkspace &maps, bool colors) {
    NeedNamed(arguments, maps);
    if (arguments.format == "json")
        return Json(arguments, maps);
    if (arguments.format == "csv") {
        const TMapId id = NamedMap(arguments.maps.front());
        return MapCsv(id, MapOf(maps, id));
    }
    return Tables(arguments, maps, colors);
}

/// What is wrong with the names, before anything is read.
void CheckNames(const TShowArguments &arguments) {
    if (NamedMaps(arguments.maps).size() != 1 && arguments.format == "csv")
        throw EWrongUse("--format csv: it is the table of one map; name one");
}

TExit Show(const TShowArguments &arguments, TConsole &console) {
    CheckNames(arguments);
    arguments.output.Check({arguments.image.Image(), arguments.image.Spec()});
    const TMappedImage image = arguments.image.Read();
    std::string text;
    image.InForce([&] { text = Shown(arguments, image.Maps(), WithColors(arguments, console)); });
    arguments.output.Write(console, text);
    return TExit::Done;
}
} // namespace

TRun DeclareShow(CLI::App &app) {
    const auto arguments = std::make_shared<TShowArguments>();
    arguments->image.Declare(app);
    app.add_option("MAP", arguments->maps, "The maps to show; without one all, and the rev limiter")
        ->type_name("");
    app.add_option("--format", arguments->format,
                   "table, csv (of one map, as export writes it) or json")
        ->check(CLI::IsMember({"table", "csv", "json"}))
        ->type_name("FORMAT");
    app.add_option("--color", arguments->color,
                   "Cells on the colours of their values: auto (on a terminal), always or never")
        ->check(CLI::IsMember({"auto", "always", "never"}))
        ->type_name("WHEN");
    arguments->output.Declare(app);
    return [arguments](TConsole &console) { return Show(*arguments, console); };
}
