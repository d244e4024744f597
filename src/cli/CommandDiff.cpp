// "diff": where two images differ.
#include "changes/ChangesTable.h"
#include "cli/ChangesView.h"
#include "cli/Commands.h"
#include "cli/Images.h"
#include "cli/Output.h"
#include "cli/WrongUse.h"
#include "system/PathText.h"

#include <memory>

namespace {
struct TDiffArguments {
    std::string before;
    std::string after;
    std::string specBefore;
    std::string specAfter;
    std::string format = "text";
    TTextOutput output;

    std::vector<std::filesystem::path> Inputs() const {
        std::vector<std::filesystem::path> inputs{ToPath(before), ToPath(after)};
        for (const std::string &spec : {specBefore, specAfter})
            if (!spec.empty())
                inputs.push_back(ToPath(spec));
        return inputs;
    }
};

/// Without a spec file no map has a place.
TMappedImage ReadWithSpec(const std::string &image, const std::string &spec) {
    return spec.empty() ? TMappedImage(ReadImage(ToPath(image)))
                        : ReadMappedImage(ToPath(image), ToPath(spec));
}

std::string PatchFile(const TExported &images) {
    try {
        return PatchText(ExportedPatch(images));
    } catch (const EPatchError &error) {
        throw EWrongUse(images.nameBefore + ", " + images.nameAfter + ": " + error.what());
    }
}

std::string InFormat(const std::string &format, const TImageChanges &changes,
                     const TExported &images) {
    if (format == "csv")
        return ChangesTable(changes, images.before, images.after);
    if (format == "patch")
        return PatchFile(images);
    if (format == "text")
        return ChangesText(changes, images);
    TJson json = NewJson("diff");
    AddChanges(json, changes, images);
    return JsonText(json, TJsonLayout::Pretty);
}

TExit Diff(const TDiffArguments &arguments, TConsole &console) {
    arguments.output.Check(arguments.Inputs());
    const TMappedImage before = ReadWithSpec(arguments.before, arguments.specBefore);
    const TMappedImage after = ReadWithSpec(
        arguments.after, arguments.specAfter.empty() ? arguments.specBefore : arguments.specAfter);
    const TImageChanges changes = ImageChanges(before, after);
    const TExported images{before, after, arguments.before, arguments.after};
    arguments.output.Write(console, InFormat(arguments.format, changes, images));
    return AnyDiffers(changes) ? TExit::Found : TExit::Done;
}
} // namespace

TRun DeclareDiff(CLI::App &app) {
    const auto arguments = std::make_shared<TDiffArguments>();
    app.add_option("A", arguments->before, "The image before, called there")
        ->required()
        ->type_name("");
    app.add_option("B", arguments->after, "The image after, called here")
        ->required()
        ->type_name("");
    CLI::Option *spec =
        app.add_option("--spec", arguments->specBefore,
                       "Spec file that says where both have their maps; without it bytes alone")
            ->type_name("FILE");
    app.add_option("--spec-b", arguments->specAfter, "Spec file for B alone")
        ->needs(spec)
        ->type_name("FILE");
    app.add_option("--format", arguments->format,
                   "text, csv (a line for each byte), json, or patch (what makes B of A)")
        ->check(CLI::IsMember({"text", "csv", "json", "patch"}))
        ->type_name("FORMAT");
    arguments->output.Declare(app);
    return [arguments](TConsole &console) { return Diff(*arguments, console); };
}
