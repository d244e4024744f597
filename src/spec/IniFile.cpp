#include "spec/IniFile.h"

#include "model/ROMTypes.h"
#include "spec/PlainText.h"

#include <algorithm>

namespace {

bool SameName(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char left, char right) { return lower(left) == lower(right); });
}

// A header without its closing bracket heads nothing and is kept as an unknown line.
bool IsHeader(std::string_view line) {
    line = Trim(line);
    return line.starts_with('[') && line.find(']') != std::string_view::npos;
}

std::string_view HeaderName(std::string_view line) {
    line = Trim(line);
    return Trim(line.substr(1, line.find(']') - 1));
}

bool HasKey(std::string_view line, std::string_view key) {
    const std::size_t equals = line.find('=');
    return equals != std::string_view::npos && SameName(Trim(line.substr(0, equals)), key);
}

bool IsQuoted(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == '"' || value.front() == '\'');
}

std::string_view Value(std::string_view line) {
    const std::string_view value = Trim(line.substr(line.find('=') + 1));
    return IsQuoted(value) ? value.substr(1, value.size() - 2) : value;
}

std::string ValueForLine(std::string_view value) {
    std::string text(value);
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::replace(text.begin(), text.end(), '\r', ' ');
    return IsQuoted(text) || Trim(text).size() != text.size() ? '"' + text + '"' : text;
}

} // namespace

TIniFile::TIniFile(std::string_view bytes) {
    const std::string text = ToUtf8(bytes);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        lines_.push_back(text.substr(start, end - start));
        start = end + 1;
    }
}

TIniFile TIniFile::Load(const std::filesystem::path &path) {
    std::error_code error;
    if (std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found)
        return TIniFile();
    const std::vector<std::uint8_t> bytes = ReadWholeFile(path, maxIniFileSize);
    return TIniFile(std::string(bytes.begin(), bytes.end()));
}

std::string TIniFile::ReadString(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
    const std::size_t line = FindKey(FindSection(section), key);
    return std::string(line < lines_.size() ? Value(lines_[line]) : fallback);
}

std::int32_t TIniFile::ReadInteger(std::string_view section, std::string_view key,
                                   std::int32_t fallback) const {
    return ParseIntegerOr(ReadString(section, key, ""), fallback);
}

void TIniFile::WriteString(std::string_view section, std::string_view key, std::string_view value) {
    const std::size_t header = FindSection(section);
    if (header == lines_.size())
        Insert(header, "[" + std::string(section) + "]");
    const std::string line = std::string(key) + "=" + ValueForLine(value);
    const std::size_t old = FindKey(header, key);
    if (old < lines_.size()) {
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(old));
        Insert(old, line);
        return;
    }
    std::size_t end = SectionEnd(header);
    while (end > header + 1 && Trim(lines_[end - 1]).empty())
        --end;
    Insert(end, line);
}

std::string TIniFile::Text() const {
    std::string text;
    for (const std::string &line : lines_)
        text += line + '\n';
    return text;
}

void TIniFile::Save(const std::filesystem::path &path) const {
    const std::string text = Text();
    WriteFileSafely(path, std::vector<std::uint8_t>(text.begin(), text.end()));
}

// The line of the section's header, or the number of lines.
std::size_t TIniFile::FindSection(std::string_view section) const {
    const auto header = std::find_if(lines_.begin(), lines_.end(), [&](const std::string &line) {
        return IsHeader(line) && SameName(HeaderName(line), section);
    });
    return static_cast<std::size_t>(header - lines_.begin());
}

std::size_t TIniFile::SectionEnd(std::size_t header) const {
    std::size_t end = std::min(header + 1, lines_.size());
    while (end < lines_.size() && !IsHeader(lines_[end]))
        ++end;
    return end;
}

// The line of the key in the section that `header` heads, or the number of lines.
std::size_t TIniFile::FindKey(std::size_t header, std::string_view key) const {
    const std::size_t end = SectionEnd(header);
    for (std::size_t line = header + 1; line < end; ++line) {
        if (HasKey(lines_[line], key))
            return line;
    }
    return lines_.size();
}

// New lines end as the file's own do.
void TIniFile::Insert(std::size_t at, std::string line) {
    if (!lines_.empty() && lines_.front().ends_with('\r'))
        line += '\r';
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}
