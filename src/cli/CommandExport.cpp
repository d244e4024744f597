// "export": a map as a table for spreadsheets.
#include "cli/Commands.h"
#include "cli/ImageChange.h"
#include "cli/MapCsv.h"
#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "model/Numbers.h"

#include <memory>

namespace {
struct TExportArguments {
    TMappedArguments image;
    std::string map;
    TTextOutput output;
    bool comma = false;
};

TExit Export(const TExportArguments &arguments, TConsole &console) {
    const TMapId id = NamedMap(arguments.map);
    arguments.output.Check({arguments.image.Image(), arguments.image.Spec()});
    const TMappedImage image = arguments.image.Read();
    std::string table;
    image.InForce([&] {
        const TMap &map = MapOf(image.Maps(), id);
        NeedMap(map, id, arguments.image.Name());
        const TSeparatorInForce separator(arguments.comma ? "," : ".");
        table = MapCsv(id, map, arguments.comma ? ';' : ',');
    });
    arguments.output.Write(console, table);
    return TExit::Done;
}
} // namespace

TRun DeclareExport(CLI::App &app) {
    const auto arguments = std::make_shared<TExportArguments>();
    arguments->image.Declare(app);
    app.add_option("MAP", arguments->map, "The map to write, one of those that --help names")
        ->required()
        ->type_name("");
    app.add_flag(decimalCommaOption, arguments->comma, decimalCommaHelp);
    arguments->output.Declare(app);
    return [arguments](TConsole &console) { return Export(*arguments, console); };
}
