// "patch": applies a patch file, takes it back, or looks whether it fits.
#include "changes/PatchStore.h"
#include "cli/Commands.h"
#include "cli/Images.h"
#include "cli/Notes.h"
#include "cli/Output.h"
#include "cli/WrongUse.h"
#include "system/PathText.h"
#include "system/SafeFile.h"
#include "system/Sha256.h"

#include <memory>

namespace {
struct TPatchArguments {
    std::string image;
    std::string patch;
    bool reverse = false;
    bool check = false;
    TImageOutput output;
};

TPatch ReadGivenPatch(const TPatchArguments &arguments) {
    try {
        const TPatch patch = ReadPatch(ToPath(arguments.patch));
        return arguments.reverse ? Reversed(patch) : patch;
    } catch (const EPatchError &error) {
        throw EWrongUse(arguments.patch + ": " + error.what());
    }
}

/// An image, and what is odd about how a patch fits it.
struct TPatched {
    std::vector<std::uint8_t> bytes;
    std::string note; ///< empty when it is the image that the patch was made for
};

/// Throws EPatchError where a byte does not fit; a patch also fits an image that is another
/// elsewhere.
TPatched Patched(const TPatchArguments &arguments, const TPatch &patch) {
    const std::vector<std::uint8_t> before = ReadImage(ToPath(arguments.image));
    TPatched patched{before, {}};
    ApplyPatch(patch, patched.bytes);
    if (Sha256(arguments.reverse ? patched.bytes : before) != patch.sha256)
        patched.note = arguments.image + ": all bytes fit, but " +
                       (arguments.reverse ? "what comes out" : "it") +
                       " is not the image that the patch is for: another SHA-256";
    return patched;
}

TExit CheckPatch(const TPatchArguments &arguments, TConsole &console) {
    const TPatch patch = ReadGivenPatch(arguments);
    std::string why;
    try {
        const std::string note = Patched(arguments, patch).note;
        if (arguments.output.Strict())
            why = note;
        else if (!note.empty())
            console.err << note << '\n';
    } catch (const EPatchError &error) {
        why = arguments.image + ": " + error.what();
    }
    if (why.empty())
        return TExit::Done;
    console.out << why << '\n';
    return TExit::Found;
}

TExit Patch(const TPatchArguments &arguments, TConsole &console) {
    const std::filesystem::path file =
        arguments.output.File(ToPath(arguments.image), {ToPath(arguments.patch)});
    const TPatch patch = ReadGivenPatch(arguments);
    TPatched patched;
    try {
        patched = Patched(arguments, patch);
    } catch (const EPatchError &error) {
        throw EWrongUse(arguments.image + ": " + error.what());
    }
    TNotes notes;
    if (!patched.note.empty())
        notes.Add(patched.note);
    notes.Tell(console, arguments.output.Strict());
    WriteFileSafely(file, patched.bytes);
    return TExit::Done;
}
} // namespace

TRun DeclarePatch(CLI::App &app) {
    const auto arguments = std::make_shared<TPatchArguments>();
    app.add_option("IMAGE", arguments->image, "ROM image")->required()->type_name("");
    app.add_option("PATCH", arguments->patch, "Patch file, as diff --format patch writes it")
        ->required()
        ->type_name("");
    app.add_flag("--reverse", arguments->reverse, "Take the patch back");
    arguments->output.Declare(app);
    arguments->output.DeclareStrict(app, "Refuse an image of another SHA-256, though all fits");
    app.add_flag("--check", arguments->check,
                 "Write nothing; say which byte does not fit, and exit with 1")
        ->excludes(app.get_option("--output"), app.get_option("--in-place"));
    return [arguments](TConsole &console) {
        return arguments->check ? CheckPatch(*arguments, console) : Patch(*arguments, console);
    };
}
