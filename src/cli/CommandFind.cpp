// "find": the maps of unknown images.
#include "cli/Commands.h"
#include "cli/FoundMapsText.h"
#include "cli/Images.h"
#include "cli/ManyImages.h"
#include "cli/MapNames.h"
#include "cli/NewSpec.h"
#include "cli/Output.h"
#include "cli/WrongUse.h"
#include "discovery/NotebookMaps.h"
#include "system/PathText.h"
#include "system/SafeFile.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace {
struct TFindArguments {
    TManyImages images;
    std::string specOut;
    std::optional<int> most;
    bool all = false;
    bool reasons = false;

    TFoundChoice Choice(const TFoundMaps &found) const {
        const std::size_t asked = all    ? mostFound
                                  : most ? static_cast<std::size_t>(*most)
                                         : found.likely;
        return {std::min(asked, found.maps.size()), reasons};
    }
};

TJson FindJson(const std::string &image) {
    TJson json = NewJson("find");
    json["image"] = image;
    return json;
}

std::string FindText(const TFindArguments &arguments, const std::string &file,
                     const TMappedImage &image, const TFoundMaps &found) {
    const TFoundChoice choice = arguments.Choice(found);
    std::string text;
    image.InForce([&] {
        if (arguments.images.Form() == TForm::Text) {
            text = FoundMapsText(found, choice);
            return;
        }
        TJson json = FindJson(file);
        AddFoundMaps(json, found, choice);
        text = arguments.images.Text(json);
    });
    return text;
}

std::string BrokenText(const TFindArguments &arguments, const std::string &file,
                       const std::string &error) {
    TJson json = FindJson(file);
    json["error"] = error;
    return arguments.images.Text(json);
}

/// Writes the proposal and says what is not in it.
void Propose(const TFindArguments &arguments, const std::string &image, const TFoundMaps &found,
             TConsole &console) {
    TSpecPlaces places;
    for (std::size_t i = 0; i < places.maps.size(); ++i)
        if (const std::optional<std::size_t> map = Proposed(found, notebookMaps[i]))
            places.maps[i] = found.maps[*map].place.offset;
    WriteNewSpec(ToPath(arguments.specOut), ToPath(image), places);
    for (std::size_t i = 0; i < places.maps.size(); ++i)
        if (places.maps[i].value_or(0) == 0) // which stands for no place
            console.err << NameOf(allMaps[i]) << ": no place is proposed; it is $0000 in "
                        << arguments.specOut << '\n';
}

void CheckFind(const TFindArguments &arguments, const std::vector<std::string> &files) {
    if (arguments.images.Many() && arguments.images.Form() == TForm::Text)
        throw EWrongUse("--format text is for one image; of many each is a line of JSON");
    if (arguments.specOut.empty())
        return;
    if (arguments.images.Many())
        throw EWrongUse("--spec-out is for one image");
    NeedOtherFile(ToPath(arguments.specOut), {ToPath(files.front())});
    CheckCanWrite(ToPath(arguments.specOut));
}

TExit Find(const TFindArguments &arguments, TConsole &console) {
    const std::vector<std::string> files = arguments.images.Files();
    CheckFind(arguments, files);
    const auto answer = [&](const std::string &file) -> TAnswer {
        const TMappedImage image(ReadImage(ToPath(file)));
        const TFoundMaps found = FindMaps(image.Bytes());
        std::string text = FindText(arguments, file, image, found);
        if (!arguments.specOut.empty())
            Propose(arguments, file, found, console);
        return {std::move(text)};
    };
    const auto broken = [&](const std::string &file, const std::string &error) {
        return BrokenText(arguments, file, error);
    };
    return arguments.images.Run(console, files, answer, broken);
}
} // namespace

TRun DeclareFind(CLI::App &app) {
    const auto arguments = std::make_shared<TFindArguments>();
    arguments->images.Declare(app, TForm::Lines);
    app.add_flag("--reasons", arguments->reasons, "Say what speaks for each map and against it");
    CLI::Option *most = app.add_option("--most", arguments->most,
                                       "Tell so many maps; without it those that are likely")
                            ->check(CLI::Range(1, static_cast<int>(mostFound)))
                            ->type_name("N");
    app.add_flag("--all", arguments->all, "Tell the whole list, 100 maps at most")->excludes(most);
    app.add_option("--spec-out", arguments->specOut,
                   "Write the six maps that are proposed into this new spec file")
        ->type_name("FILE");
    return [arguments](TConsole &console) { return Find(*arguments, console); };
}
