#include "cli/MapCsv.h"

#include "cli/CellNames.h"
#include "cli/GridValues.h"
#include "cli/WrongUse.h"
#include "maps/StoredValue.h"

namespace {
/// No field needs quotes: none has a separator, a quote or a line end in it.
std::string Field(TMapId id, const TMap &map, int column, int row) {
    const TVal *value = ValueAt(map, column, row);
    std::string text =
        value ? EntryFor(*value, PictureAt(map, column, row), value->raw) : std::string();
    if (text.empty())
        throw EWrongUse(CellName(id, map, column, row) +
                        ": no number stands for its byte; --raw writes the byte");
    return column == 0 ? text + '%' : text;
}
} // namespace

std::string MapCsv(TMapId id, const TMap &map, char between) {
    std::string table;
    for (int row = 0; row <= map.LoadCount(); ++row) {
        if (row > 0)
            table += Field(id, map, 0, row);
        for (int column = 1; column <= map.RPMCount(); ++column)
            table += between + Field(id, map, column, row);
        table += "\r\n";
    }
    return table;
}
