#include "maps/CellTable.h"

#include "model/Numbers.h"
#include "system/PlainText.h"
#include "system/Texts.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace {
constexpr double greatestByte = 255;
constexpr std::size_t longestQuote = 40; // characters of a text in a message

std::vector<std::string> FieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    for (std::size_t tab = line.find('\t'); tab != std::string_view::npos; tab = line.find('\t')) {
        fields.emplace_back(line.substr(0, tab));
        line.remove_prefix(tab + 1);
    }
    fields.emplace_back(line);
    return fields;
}

/// The number of an axis's cell, with or without its "%".
std::optional<double> HeaderNumber(const std::string &text) {
    return TryParseReal(std::string_view(text).substr(0, text.find('%')));
}

bool SameHeader(const std::string &field, const std::string &header) {
    const std::optional<double> number = HeaderNumber(field);
    return number && number == HeaderNumber(header);
}

/// A table above a grid, and which of its rows and columns are headers.
class TPlacedTable {
public:
    TPlacedTable(TTextTable table, const IMapGrid &grid, int column, int row)
        : table_(std::move(table)), grid_(grid), column_(column), row_(row) {
        for (const std::vector<std::string> &fields : table_)
            width_ = std::max(width_, static_cast<int>(fields.size()));
        const bool corner = Height() > 1 && width_ > 1 && Field(0, 0).empty();
        headerRows_ = corner || HasRPMHeader() ? 1 : 0;
        headerColumns_ = corner || (headerRows_ == 0 && HasLoadHeader()) ? 1 : 0;
    }

    TPasting Pasting() const {
        TPasting pasting{{}, Problem()};
        if (!pasting.problem.empty())
            return pasting;
        for (int row = headerRows_; row < Height(); ++row)
            for (int column = headerColumns_; column < width_; ++column)
                pasting.entries.push_back({GridColumn(column), GridRow(row), Field(column, row)});
        return pasting;
    }

private:
    int Height() const { return static_cast<int>(table_.size()); }
    int GridColumn(int column) const { return column_ + column - headerColumns_; }
    int GridRow(int row) const { return row_ + row - headerRows_; }

    std::string Field(int column, int row) const {
        const std::vector<std::string> &fields = table_[static_cast<std::size_t>(row)];
        const auto place = static_cast<std::size_t>(column);
        return place < fields.size() ? fields[place] : std::string();
    }
    /// The text of a cell; empty beside the grid.
    std::string Cell(int column, int row) const {
        const bool inside = column < grid_.ColCount() && row < grid_.RowCount();
        return inside ? grid_.Cell(column, row) : std::string();
    }

    bool HasRPMHeader() const {
        bool aboveBytes = false;
        for (int column = 0; column < width_; ++column) {
            const std::string field = Field(column, 0);
            if (!TryParseReal(field) || !SameHeader(field, Cell(column_ + column, 0)))
                return false;
            aboveBytes = aboveBytes || *TryParseReal(field) > greatestByte;
        }
        return aboveBytes && Height() > 1;
    }
    bool HasLoadHeader() const {
        for (int row = 0; row < Height(); ++row) {
            const std::string field = Field(0, row);
            if (field.find('%') == std::string::npos || !SameHeader(field, Cell(0, row_ + row)))
                return false;
        }
        return width_ > 1;
    }

    /// Of the first field in reading order that cannot be taken; empty when all can.
    std::string Problem() const {
        if (table_.empty())
            return Translated("CellTable", "There is no text on the clipboard");
        for (int row = 0; row < Height(); ++row)
            for (int column = 0; column < width_; ++column)
                if (std::string problem = ProblemOf(column, row); !problem.empty())
                    return problem;
        return {};
    }

    std::string ProblemOf(int column, int row) const {
        const bool header = row < headerRows_ || column < headerColumns_;
        if (row < headerRows_ && column < headerColumns_)
            return {}; // the corner
        if (GridColumn(column) >= grid_.ColCount() || GridRow(row) >= grid_.RowCount())
            return Told(Translated("CellTable", "%1: '%2' lies outside the map"), column, row);
        const std::string field = Field(column, row);
        if (header)
            return HeaderProblem(column, row);
        if (!TryParseReal(field))
            return Told(Translated("CellTable", "%1: '%2' is no number"), column, row);
        return {};
    }

    std::string HeaderProblem(int column, int row) const {
        const bool rpm = row < headerRows_;
        const std::string own = rpm ? Cell(GridColumn(column), 0) : Cell(0, GridRow(row));
        if (SameHeader(Field(column, row), own))
            return {};
        return Told(Translated("CellTable", "%1: '%2' is not the header of the map there, %3"),
                    column, row, own);
    }

    /// `text` with the place of a field, its text and what else is to be told.
    std::string Told(const std::string &text, int column, int row,
                     const std::string &more = {}) const {
        const std::string place =
            Filled(Translated("CellTable", "Row %1, column %2 of what is pasted"),
                   {std::to_string(row + 1), std::to_string(column + 1)});
        const std::string field = Field(column, row);
        const std::string_view quoted = FirstCharacters(field, longestQuote);
        return Filled(text, {place, quoted, more});
    }

    TTextTable table_;
    const IMapGrid &grid_;
    int column_;
    int row_;
    int width_ = 0;
    int headerRows_ = 0;
    int headerColumns_ = 0;
};
} // namespace

TTextTable TableOf(std::string_view text) {
    TTextTable table;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        table.push_back(FieldsOf(text.substr(0, end)));
        text.remove_prefix(end);
        text.remove_prefix(std::min<std::size_t>(text.starts_with("\r\n") ? 2 : 1, text.size()));
    }
    return table;
}

std::string TableText(const IMapGrid &grid, const TCellRange &range, bool withHeaders) {
    std::string text;
    const auto add = [&](const std::string &before, int left, int row) {
        text += before;
        for (int column = left; column <= range.right; ++column)
            text += (column > left ? "\t" : "") + grid.Cell(column, row);
    };
    if (withHeaders)
        add("\t", range.left, 0);
    for (int row = range.top; row <= range.bottom; ++row) {
        if (withHeaders || row > range.top)
            text += '\n';
        add(withHeaders ? grid.Cell(0, row) + "\t" : "", range.left, row);
    }
    return text;
}

TPasting PastingOf(std::string_view text, const IMapGrid &grid, int column, int row) {
    return TPlacedTable(TableOf(text), grid, column, row).Pasting();
}
