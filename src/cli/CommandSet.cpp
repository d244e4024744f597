// "set": single cells, points of axes, the rev limiter.
#include "cli/CellNames.h"
#include "cli/Commands.h"
#include "cli/ImageChange.h"
#include "cli/MapNames.h"
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

/// Enters assignments into the maps of an image and commits them.
class TAssigning {
public:
    TAssigning(TWorkspace &maps, TNotes &notes, std::string name)
        : maps_(maps), notes_(notes), name_(std::move(name)) {}

    void Enter(const TAssignment &assignment) {
        if (assignment.place == revLimiterName)
            return SetRevLimiter(assignment.value);
        const TCellNames names = ReadCellNames(assignment.place);
        TMapEdit &edit = EditOf(names.map);
        const TCellRange cell = CellNamed(names, MapOf(maps_, names.map));
        edit.Enter(cell.left, cell.top, assignment.value);
    }

    void Commit() {
        for (const TOneMap &each : edits_)
            each.edit->Commit();
    }

private:
    struct TOneMap {
        TMapId map;
        std::unique_ptr<TMapEdit> edit;
    };

    TMapEdit &EditOf(TMapId map) {
        const auto known = std::find_if(edits_.begin(), edits_.end(),
                                        [&](const TOneMap &each) { return each.map == map; });
        if (known != edits_.end())
            return *known->edit;
        TMap &edited = MapOf(maps_, map);
        NeedMap(edited, map, name_);
        edits_.push_back({map, std::make_unique<TMapEdit>(map, edited, notes_)});
        return *edits_.back().edit;
    }

    void SetRevLimiter(const std::string &text) {
        TRPMVal &limiter = maps_.fuelMapSet.revLimiter;
        if (!maps_.fuelMapSet.HasRevLimiter() || !ROMImage()->IsInFile(limiter.offset))
            throw EWrongUse(name_ + ": the spec file places no rev limiter in it");
        CheckEntry(revLimiterName, limiter, axisPicture, text, notes_);
        limiter.SetValue(ParseReal(text));
        limiter.Save();
    }

    TWorkspace &maps_;
    TNotes &notes_;
    std::string name_;
    std::vector<TOneMap> edits_;
};
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
            TAssigning assigning(maps, notes, name);
            for (const std::string &text : arguments->assignments)
                assigning.Enter(ReadAssignment(text));
            assigning.Commit();
        });
        return TExit::Done;
    };
}
