#include "cli/Csv.h"

#include "cli/WrongUse.h"

#include <algorithm>

namespace {
constexpr auto lineEnds = "\r\n";

char SeparatorOf(std::string_view text) {
    const std::string_view line = text.substr(0, text.find_first_of(lineEnds));
    for (const char separator : {',', ';', '\t'})
        if (line.find(separator) != std::string_view::npos)
            return separator;
    return ',';
}

class TCsvReader {
public:
    TCsvReader(std::string_view text, const std::string &name)
        : rest_(text), name_(name), separator_(SeparatorOf(text)), ends_(lineEnds) {
        ends_ += separator_;
    }

    TTextTable Table() {
        while (!rest_.empty())
            ReadRow();
        return std::move(table_);
    }

private:
    void ReadRow() {
        table_.emplace_back();
        do
            table_.back().push_back(Field());
        while (Skip(separator_));
        const bool carriageReturn = Skip('\r');
        if (!Skip('\n') && !carriageReturn && !rest_.empty())
            Refuse(table_.back().size(), "there is text behind the closing quote");
    }

    std::string Field() {
        if (Skip('"'))
            return Quoted();
        return Take(std::min(rest_.find_first_of(ends_), rest_.size()));
    }

    /// Behind the opening quote; a pair of quotes is one that belongs to the text.
    std::string Quoted() {
        std::string field;
        while (true) {
            const std::size_t end = rest_.find('"');
            if (end == std::string_view::npos)
                Refuse(table_.back().size() + 1, "the quote is not closed");
            field += Take(end);
            Skip('"');
            if (!Skip('"'))
                return field;
            field += '"';
        }
    }

    std::string Take(std::size_t length) {
        const std::string taken(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return taken;
    }
    bool Skip(char wanted) {
        const bool found = rest_.starts_with(wanted);
        rest_.remove_prefix(found ? 1 : 0);
        return found;
    }
    /// In the row that is being read.
    [[noreturn]] void Refuse(std::size_t column, const std::string &why) const {
        throw EWrongUse(CsvPlace(name_, table_.size(), column) + ": " + why);
    }

    std::string_view rest_;
    const std::string &name_;
    char separator_;
    std::string ends_;
    TTextTable table_;
};
} // namespace

TTextTable ReadCsv(std::string_view utf8, const std::string &name) {
    return TCsvReader(utf8, name).Table();
}

std::string CsvPlace(const std::string &name, std::size_t row, std::size_t column) {
    return name + ": row " + std::to_string(row) + ", column " + std::to_string(column);
}
