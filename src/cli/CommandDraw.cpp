// "draw": the chart of a map as a picture.
#include "cli/ChartSvg.h"
#include "cli/Commands.h"
#include "cli/ImageChange.h"
#include "cli/MapChartContents.h"
#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "model/Numbers.h"
#include "system/PlainText.h"

#include <memory>
#include <optional>

namespace {
constexpr int smallestSide = 50; // pixels
constexpr int largestSide = 10000;

struct TDrawArguments {
    TMappedArguments image;
    TTextOutput output;
    std::string map;
    std::string size = "900x600";
    int rotation = TChartView().rotation;
    int elevation = TChartView().elevation;
};

struct TPictureSize {
    int width;
    int height;
};

std::optional<int> Side(const std::string &text) {
    const std::optional<std::int32_t> side = TryParseInteger(text);
    return side && *side >= smallestSide && *side <= largestSide ? side : std::nullopt;
}

TPictureSize SizeOf(const std::string &text) {
    const std::size_t by = text.find('x');
    const std::optional<int> width = Side(text.substr(0, by));
    const std::optional<int> height =
        by == std::string::npos ? std::nullopt : Side(text.substr(by + 1));
    if (!width || !height)
        throw EWrongUse("--size " + text + ": it is WIDTHxHEIGHT, as 900x600, of 50 to 10000 each");
    return {*width, *height};
}

/// What is named like another picture would be taken for one.
void NeedSvg(const TTextOutput &output) {
    const std::string extension = PathText(output.File().extension());
    if (!output.ToConsole() && !SameName(extension, ".svg"))
        throw EWrongUse(PathText(output.File()) +
                        ": charts are written as SVG alone: name it .svg, and convert that file");
}

TExit Draw(const TDrawArguments &arguments, TConsole &console) {
    const TMapId id = NamedMap(arguments.map);
    const TPictureSize size = SizeOf(arguments.size);
    NeedSvg(arguments.output);
    arguments.output.Check({arguments.image.Image(), arguments.image.Spec()});
    const TMappedImage image = arguments.image.Read();
    TChartContents contents;
    image.InForce([&] {
        const TMap &map = MapOf(image.Maps(), id);
        NeedMap(map, id, arguments.image.Name());
        contents = MapChartContents(id, map);
    });
    contents.view.rotation = arguments.rotation;
    contents.view.elevation = arguments.elevation;
    arguments.output.Write(console, ChartSvg(contents, size.width, size.height));
    return TExit::Done;
}
} // namespace

TRun DeclareDraw(CLI::App &app) {
    const auto arguments = std::make_shared<TDrawArguments>();
    arguments->image.Declare(app);
    app.add_option("MAP", arguments->map, "The map to draw")->required()->type_name("");
    app.add_option("--size", arguments->size, "Width and height in pixels, 900x600 unless given")
        ->type_name("WIDTHxHEIGHT");
    app.add_option("--rotation", arguments->rotation,
                   "Degrees about the vertical axis; 360 is from the front, 340 the window's view")
        ->type_name("DEGREES");
    app.add_option("--elevation", arguments->elevation,
                   "Degrees about the horizontal axis; 360 is level, 351 the window's view")
        ->type_name("DEGREES");
    arguments->output.Declare(app);
    return [arguments](TConsole &console) { return Draw(*arguments, console); };
}
