// "move": the maps of a known image in another one of its family.
#include "cli/Commands.h"
#include "cli/Images.h"
#include "cli/MapNames.h"
#include "cli/MovedView.h"
#include "cli/NewSpec.h"
#include "cli/Output.h"
#include "cli/WrongUse.h"
#include "model/Numbers.h"
#include "spec/SpecFile.h"
#include "system/PathText.h"
#include "system/SafeFile.h"

#include <memory>

namespace {
struct TMoveArguments {
    std::string from;
    std::string spec;
    std::string to;
    std::string output;
    std::string format = "text";
    bool unsure = false;
    bool strict = false;

    void CheckOutput() const {
        NeedOtherFile(ToPath(output), {ToPath(from), ToPath(spec), ToPath(to)});
        CheckCanWrite(ToPath(output));
    }
};

void NeedAllSure(const TMovedMaps &moved, const std::string &image) {
    for (std::size_t i = 0; i < moved.maps.size(); ++i)
        if (moved.maps[i].sureness != TSureness::Sure)
            throw EWrongUse(image + ": " + NameOf(allMaps[i]) +
                            (moved.maps[i].place ? " is unsure" : " is not found") +
                            "; nothing is written");
}

/// What goes into the spec file.
TSpecPlaces PlacesToWrite(const TMovedMaps &moved, bool unsure) {
    TSpecPlaces places{{}, moved.revLimiter.offset};
    for (std::size_t i = 0; i < moved.maps.size(); ++i)
        if (const TMovedMap &map = moved.maps[i];
            map.place && (unsure || map.sureness == TSureness::Sure))
            places.maps[i] = map.place->offset;
    return places;
}

/// A new spec file has no timing constants; unusual ones would be lost.
void TellTiming(TConsole &console, const TTimingConstants &timing, const std::string &spec) {
    if (timing.divider == usualTiming.divider && timing.subtractor == usualTiming.subtractor)
        return;
    const auto number = [](double value) { return FormatReal("0.0####", value); };
    console.err << spec
                << ": to be added by hand, in [Main]: timing_divider=" << number(timing.divider)
                << ", timing_subtractor=" << number(timing.subtractor) << '\n';
}

std::string MoveText(const TMoveArguments &arguments, const TMovedMaps &moved,
                     const TKnownImage &known) {
    if (arguments.format == "text")
        return MovedText(moved, known);
    TJson json = NewJson("move");
    json["from"] = arguments.from;
    json["to"] = arguments.to;
    AddMoved(json, moved, known);
    return JsonText(json, TJsonLayout::Pretty);
}

TExit Move(const TMoveArguments &arguments, TConsole &console) {
    arguments.CheckOutput();
    const TMappedImage from = ReadMappedImage(ToPath(arguments.from), ToPath(arguments.spec));
    const TMappedImage to(ReadImage(ToPath(arguments.to)));
    const TKnownImage known = KnownImage(from);
    const TMovedMaps moved = FindMovedMaps(known, to.Bytes());
    if (arguments.strict)
        NeedAllSure(moved, arguments.to);
    WriteNewSpec(ToPath(arguments.output), ToPath(arguments.to),
                 PlacesToWrite(moved, arguments.unsure));
    console.out << MoveText(arguments, moved, known);
    TellTiming(console, from.Timing(), arguments.output);
    return TExit::Done;
}
} // namespace

TRun DeclareMove(CLI::App &app) {
    const auto arguments = std::make_shared<TMoveArguments>();
    const auto file = [&](const char *name, std::string &value, const char *text) {
        app.add_option(name, value, text)->required()->type_name("FILE");
    };
    file("--from", arguments->from, "The image whose maps are known");
    file("--spec", arguments->spec, "Spec file that says where it has them");
    file("--to", arguments->to, "The image in which they are looked for");
    file("-o,--output", arguments->output, "Write this new spec file for it, of what is sure");
    app.add_flag("--unsure", arguments->unsure, "Also of what is unsure");
    app.add_flag("--strict", arguments->strict, "Write nothing unless all six maps are sure");
    app.add_option("--format", arguments->format, "text or json")
        ->check(CLI::IsMember({"text", "json"}))
        ->type_name("FORMAT");
    return [arguments](TConsole &console) { return Move(*arguments, console); };
}
