#include "spec/IniFile.h"

#include "model/ROMTypes.h"
#include "system/Files.h"
#include "system/PlainText.h"
#include "system/ReadFile.h"
#include "system/SafeFile.h"

#include <algorithm>

namespace {

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
    if (TypeAt(path, error) == std::filesystem::file_type::not_found)
        return TIniFile();
    const std::vector<std::uint8_t> bytes = ReadWholeFile(path, maxIniFileSize);
    return TIniFile(std::string(bytes.begin(), bytes.end()));
}

std::string TIniFile::ReadString(std::string_view section, std::string_view key,
                                 std::string_view fallback) const {
    auto line = std::find_if(lines_.begin(), lines_.end(), [&](const std::string &each) {
        return IsHeader(each) && SameName(HeaderName(each), section);
    });
    if (line == lines_.end())
        return std::string(fallback);
    const auto next = std::find_if(line + 1, lines_.end(), IsHeader);
    line = std::find_if(line + 1, next, [&](const std::string &each) { return HasKey(each, key); });
    return std::string(line == next ? fallback : Value(*line));
}

std::int32_t TIniFile::ReadInteger(std::string_view section, std::string_view key,
                                   std::int32_t fallback) const {
    return ParseIntegerOr(ReadString(section, key, ""), fallback);
}
