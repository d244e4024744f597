// "set": single cells, points of axes, the rev limiter.
#include "cli/CellNames.h"
#include "cli/Commands.h"
#include "cli/MapEdits.h"
#include "cli/WrongUse.h"
#include "model/Numbers.h"
#include "model/ROMImage.h"

#include <algorithm>
#include <memory>

namespace {
constexpr const char *revLimiterName = "rev-limiter";

/// PLACE=VALUE.
struct TAssignment {
    std::string place;
    std::string value;
};

TAssignment ReadAssignment(const std::string &text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos)
        throw EWrongUse("'" + text + "': no '='; it is PLACE=VALUE, as fuel-pt[3120,56]=0.98");
    return {text.substr(0, equals), text.substr(equals + 1)};
}

void SetRevLimiter(TFuelMapSet &maps, const std::string &text, TNotes &notes,
                   const std::string &image) {
    TRPMVal &limiter = maps.revLimiter;
    if (!maps.HasRevLimiter() || !ROMImage()->IsInFile(limiter.offset))
        throw EWrongUse(image + ": the spec file places no rev limiter in it");
    CheckEntry(revLimiterName, limiter, axisPicture, text, notes);
    limiter.SetValue(ParseReal(text));
    limiter.Save();
}

/// Enters the cells and points of axes among the assignments; they go by the axes of the old image.
void SetPlaces(TWorkspace &maps, const std::vector<TAssignment> &assignments, TNotes &notes,
               const std::string &image) {
    TMapEdits edits(maps, notes, image);
    for (const auto &[place, value] : assignments) {
        if (place == revLimiterName)
            continue;
        const TCellNames names = ReadCellNames(place);
        TMapEdit &edit = edits.Of(names.map);
        const TCellRange cell = CellNamed(names, MapOf(maps, names.map));
        edit.Enter(cell.left, cell.top, value);
    }
    edits.Commit();
}

void Assign(TWorkspace &maps, const std::vector<std::string> &texts, TNotes &notes,
            const std::string &image) {
    std::vector<TAssignment> assignments(texts.size());
    std::transform(texts.begin(), texts.end(), assignments.begin(), ReadAssignment);
    SetPlaces(maps, assignments, notes, image);
    for (const auto &[place, value] : assignments)
        if (place == revLimiterName)
            SetRevLimiter(maps.fuelMapSet, value, notes, image);
}
} // namespace

TRun DeclareSet(CLI::App &app) {
    struct TArguments {
        TImageChange change;
        std::vector<std::string> assignments;
    };
    const auto arguments = std::make_shared<TArguments>();
    arguments->change.Declare(app);
    app.add_option("PLACE=VALUE", arguments->assignments,
                   "A cell, MAP[RPM,LOAD], MAP[RPM] or MAP[#COLUMN,#ROW]; a point of an axis, "
                   "MAP.rpm[N] or MAP.load[N]; rev-limiter. The first has the number 1")
        ->required()
        ->type_name("");
    return [arguments](TConsole &console) {
        const std::string &name = arguments->change.Arguments().Name();
        arguments->change.Run(console, {}, [&](TWorkspace &maps, TNotes &notes) {
            Assign(maps, arguments->assignments, notes, name);
        });
        return TExit::Done;
    };
}
