// "import": a map from a table as "export" writes it and spreadsheets save it.
#include "cli/Commands.h"
#include "cli/Csv.h"
#include "cli/GridValues.h"
#include "cli/MapCsv.h"
#include "cli/MapEdits.h"
#include "cli/MapNames.h"
#include "cli/WrongUse.h"
#include "maps/StoredValue.h"
#include "model/Numbers.h"
#include "system/PlainText.h"
#include "system/ReadFile.h"

namespace {
constexpr std::uint64_t maxTableSize = 1 << 20; // bytes; a map's table has some 5,000
constexpr std::size_t longestQuote = 40;        // characters of a text in a message

struct TImportArguments {
    TImageChange change;
    std::string map;
    std::string table;
    bool axes = false;
    bool comma = false;
};

/// A table over the grid of a map: its fields stand where the map's cells do.
class TTableOfMap {
public:
    TTableOfMap(TTextTable table, std::string name, const TMap &map)
        : table_(std::move(table)), name_(std::move(name)), map_(map) {}

    /// Throws EWrongUse for the first field that has no place, and for one that is missing.
    void CheckShape() const {
        for (int row = 0; row <= std::max(Height() - 1, map_.LoadCount()); ++row)
            for (int column = 0; column <= std::max(Width(row) - 1, map_.RPMCount()); ++column)
                CheckPlace(column, row);
    }

    /// Enters the cells, the axes' too if they are to be taken; otherwise these must be the map's.
    void Enter(TMapEdit &edit, bool axes) const {
        for (int column = 1; column <= map_.RPMCount(); ++column)
            EnterHeader(edit, column, 0, axes);
        for (int row = 1; row <= map_.LoadCount(); ++row)
            EnterHeader(edit, 0, row, axes && map_.axisCount > 1);
        for (int row = 1; row <= map_.LoadCount(); ++row)
            for (int column = 1; column <= map_.RPMCount(); ++column)
                edit.Enter(column, row, Number(column, row));
    }

private:
    int Height() const { return static_cast<int>(table_.size()); }
    int Width(int row) const {
        return row < Height() ? static_cast<int>(table_[static_cast<std::size_t>(row)].size()) : 0;
    }
    std::string Field(int column, int row) const {
        return column < Width(row)
                   ? table_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)]
                   : std::string();
    }

    void CheckPlace(int column, int row) const {
        if (row == 0 && column == 0)
            return; // the corner may say what people like
        const bool inside = column <= map_.RPMCount() && row <= map_.LoadCount();
        const bool empty = Trim(Field(column, row)).empty();
        if (inside == empty)
            Refuse(column, row,
                   (empty ? "there is no number" : Quoted(column, row) + " lies outside") +
                       std::string("; a table of this map has ") +
                       std::to_string(map_.LoadCount() + 1) + " rows and " +
                       std::to_string(map_.RPMCount() + 1) + " columns");
    }

    /// What stands in a cell as a number that it can store.
    std::string Number(int column, int row) const {
        const std::string field = Field(column, row);
        std::string number = column == 0 ? WithoutPercent(field) : field;
        if (!TryParseReal(number))
            Refuse(column, row,
                   Quoted(column, row) + " is no number; numbers have a point, as 0.98, or with " +
                       decimalCommaOption + " a comma");
        NeedStorable(CsvPlace(name_, At(row), At(column)), *ValueAt(map_, column, row), number);
        return number;
    }

    void EnterHeader(TMapEdit &edit, int column, int row, bool take) const {
        const std::string number = Number(column, row);
        const TVal &own = *ValueAt(map_, column, row);
        if (take)
            edit.Enter(column, row, number);
        else if (CountOf(own, number) != own.raw)
            Refuse(column, row,
                   Quoted(column, row) + " is not the map's, " +
                       EntryFor(own, PictureAt(map_, column, row), own.raw) +
                       (column == 0 ? "%" : "") +
                       (map_.axisCount > 1 || row == 0 ? "; --axes takes it over" : ""));
    }

    std::string Quoted(int column, int row) const {
        const std::string field = Field(column, row);
        return "'" + std::string(FirstCharacters(field, longestQuote)) + "'";
    }
    static std::size_t At(int place) { return static_cast<std::size_t>(place) + 1; }
    [[noreturn]] void Refuse(int column, int row, const std::string &why) const {
        throw EWrongUse(CsvPlace(name_, At(row), At(column)) + ": " + why);
    }

    TTextTable table_;
    std::string name_;
    const TMap &map_;
};

TTextTable ReadTable(const std::string &name) {
    const std::vector<std::uint8_t> bytes = ReadWholeFile(ToPath(name), maxTableSize);
    return ReadCsv(ToUtf8({reinterpret_cast<const char *>(bytes.data()), bytes.size()}), name);
}

TExit Import(const TImportArguments &arguments, TConsole &console) {
    const TMapId id = NamedMap(arguments.map);
    const TImageChange &change = arguments.change;
    change.Run(console, {ToPath(arguments.table)}, [&](TWorkspace &maps, TNotes &notes) {
        const TSeparatorInForce separator(arguments.comma ? "," : ".");
        TMapEdits edits(maps, notes, change.Arguments().Name());
        TMapEdit &edit = edits.Of(id);
        const TTableOfMap table(ReadTable(arguments.table), arguments.table, MapOf(maps, id));
        table.CheckShape();
        table.Enter(edit, arguments.axes);
        edits.Commit();
    });
    return TExit::Done;
}
} // namespace

TRun DeclareImport(CLI::App &app) {
    const auto arguments = std::make_shared<TImportArguments>();
    arguments->change.Declare(app);
    app.add_option("MAP", arguments->map, "The map to fill, one of those that --help names")
        ->required()
        ->type_name("");
    app.add_option("TABLE", arguments->table,
                   "Its table: comma-separated values, all of them or none are taken")
        ->required()
        ->type_name("");
    app.add_flag("--axes", arguments->axes,
                 "Take the table's axes over; without it they must be the map's");
    app.add_flag(decimalCommaOption, arguments->comma, decimalCommaHelp);
    return [arguments](TConsole &console) { return Import(*arguments, console); };
}
