// "adjust": ranges of cells by arithmetic, as the bulk tool and the menu "Selection" do it.
#include "cli/CellNames.h"
#include "cli/Commands.h"
#include "cli/MapEdits.h"
#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "maps/BlockCells.h"
#include "model/Numbers.h"
#include "system/Errors.h"

#include <array>

namespace {
/// An option that was given, with its value.
struct TOperation {
    std::string option;
    std::string value;
};

struct TAdjustArguments {
    TImageChange change;
    std::vector<std::string> places;
    std::vector<TOperation> operations;
};

/// What one operation does to the cells of a map.
using TAdjust = std::function<void(TMapEdit &edit, const TMap &map, const TCellNames &cells)>;

/// By a function of the menu "Selection".
TAdjust ByBlock(TBlockChange change) {
    return [change = std::move(change)](TMapEdit &edit, const TMap &map, const TCellNames &names) {
        const TCellRange cells = CellsNamed(names, map);
        if (const auto found = FirstNoNumber(edit.Grid(), cells))
            throw EWrongUse(CellName(names.map, map, found->column, found->row) + ": '" +
                            edit.Grid().Cell(found->column, found->row) + "' is no number");
        try {
            const TBlockEntries changed = ChangedCells(map, edit.Grid(), cells, change);
            if (!changed.problem.empty())
                throw EWrongUse(names.text + ": " + changed.problem);
            for (const auto &[column, row, text] : changed.entries)
                edit.Enter(column, row, text);
        } catch (const ERangeError &error) {
            throw EWrongUse(names.text + ": " + error.what());
        }
    };
}

/// By the bulk tool, which takes whole percent.
TAdjust ByPercent(std::string text) {
    text.pop_back();
    const std::optional<std::int32_t> percent = TryParseInteger(text);
    if (!percent)
        throw EWrongUse("--add: '" + text + "%' is no whole number of percent");
    return [percent = *percent](TMapEdit &edit, const TMap &map, const TCellNames &names) {
        edit.AddPercent(CellsNamed(names, map), percent);
    };
}

TAdjust Interpolating(const std::string &along) {
    if (along == "rpm")
        return ByBlock(InterpolateRows);
    if (along == "load")
        return ByBlock(InterpolateColumns);
    if (along == "both")
        return ByBlock(InterpolateBoth);
    throw EWrongUse("--interpolate: '" + along + "' is none of rpm, load and both");
}

TAdjust WithNumber(const TOperation &operation, std::string (*change)(TNumberBlock &, double)) {
    const std::optional<double> number = TryParseReal(operation.value);
    if (!number)
        throw EWrongUse(operation.option + ": '" + operation.value + "' is no number");
    return ByBlock([=](TNumberBlock &block) { return change(block, *number); });
}

TAdjust AdjustBy(const TOperation &operation) {
    if (operation.option == "--interpolate")
        return Interpolating(operation.value);
    if (operation.option == "--smooth")
        return ByBlock(Smooth);
    if (operation.option == "--set")
        return WithNumber(operation, SetTo);
    if (operation.option == "--multiply")
        return WithNumber(operation, MultiplyBy);
    return operation.value.ends_with('%') ? ByPercent(operation.value) : WithNumber(operation, Add);
}

const TOperation &OneOperation(const std::vector<TOperation> &operations) {
    if (operations.size() != 1)
        throw EWrongUse("exactly one of --add, --set, --multiply, --interpolate and --smooth is "
                        "to be given");
    return operations.front();
}

std::vector<TCellNames> BodyCells(const std::vector<std::string> &places) {
    std::vector<TCellNames> cells;
    for (const std::string &place : places) {
        cells.push_back(ReadCellNames(place));
        if (cells.back().part != TMapPart::Body)
            throw EWrongUse(place + ": a point of an axis; adjust changes cells alone");
    }
    return cells;
}

TExit Adjust(const TAdjustArguments &arguments, TConsole &console) {
    const TAdjust adjust = AdjustBy(OneOperation(arguments.operations));
    const std::vector<TCellNames> places = BodyCells(arguments.places);
    const std::string &image = arguments.change.Arguments().Name();
    arguments.change.Run(console, {}, [&](TWorkspace &maps, TNotes &notes) {
        TMapEdits edits(maps, notes, image);
        for (const TCellNames &place : places) {
            TMapEdit &edit = edits.Of(place.map);
            adjust(edit, MapOf(maps, place.map), place);
        }
        edits.Commit();
    });
    return TExit::Done;
}

void AddOperations(CLI::App &app, std::vector<TOperation> &operations) {
    struct TOption {
        const char *name;
        const char *valueName;
        const char *help;
    };
    static constexpr std::array<TOption, 4> options{
        {{"--add", "NUMBER|N%",
          "Add a number, or whole percent of each cell as the bulk tool does"},
         {"--set", "NUMBER", "Set each cell to a number"},
         {"--multiply", "PERCENT", "Make each cell so many percent of what it was"},
         {"--interpolate", "AXIS",
          "Put what lies between the edges on straight lines along rpm, load or both"}}};
    for (const TOption &option : options)
        app.add_option_function<std::string>(
               option.name,
               [&operations, name = option.name](const std::string &value) {
                   operations.push_back({name, value});
               },
               option.help)
            ->type_name(option.valueName);
    app.add_flag_callback(
        "--smooth",
        [&operations] {
            operations.push_back({"--smooth", {}});
        },
        "Make each cell that has eight neighbours the mean of the nine");
}
} // namespace

TRun DeclareAdjust(CLI::App &app) {
    const auto arguments = std::make_shared<TAdjustArguments>();
    arguments->change.Declare(app);
    app.add_option("PLACE", arguments->places,
                   "A map, MAP, or some of its cells: MAP[RPM:RPM,LOAD:LOAD], MAP[RPM:RPM] or by "
                   "numbers, MAP[#1:#4,#2:]. Several are adjusted one after the other")
        ->required()
        ->type_name("");
    AddOperations(app, arguments->operations);
    return [arguments](TConsole &console) { return Adjust(*arguments, console); };
}
