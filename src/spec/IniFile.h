// INI text: sections, keys, values. Reads and changes single values and keeps every other line as
// it stands, comments and unknown lines included. Numbers in values are Numbers.h's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// A larger INI file is refused; a ROM image under a wrong name may be one.
inline constexpr std::size_t maxIniFileSize = 16 * 1024 * 1024;

/// Names match without regard to (ASCII) case; the first section of a name, and in it the first key
/// of a name, count. Blanks round names and values are trimmed, one pair of equal quotes round a
/// value is removed, a line that begins with ";" is a comment. Line ends are LF or CRLF.
class TIniFile {
public:
    TIniFile() = default;

    /// Takes the bytes of a whole file: UTF-8, else Latin-1; a byte order mark is left out.
    explicit TIniFile(std::string_view bytes);

    /// A file that does not exist reads as an empty one. Throws EFileError for anything but a
    /// regular file that can be read and is not over maxIniFileSize.
    static TIniFile Load(const std::filesystem::path &path);

    /// The value as UTF-8; empty when the key is there without a value, `fallback` when it is not.
    std::string ReadString(std::string_view section, std::string_view key,
                           std::string_view fallback) const;

    /// Lenient: decimal, "$" or "0x" hexadecimal; `fallback` for anything else. Never throws.
    std::int32_t ReadInteger(std::string_view section, std::string_view key,
                             std::int32_t fallback) const;

    /// Replaces the value that ReadString finds; else adds the key behind the section's last line,
    /// else both at the end of the text. Line breaks in `value` become blanks, quotes are put round
    /// it where reading would lose its ends. The names must be fit for a line of their own.
    void WriteString(std::string_view section, std::string_view key, std::string_view value);

    /// The whole text as UTF-8, every line ended.
    std::string Text() const;

    /// Writes the text over `path`; on an error, EFileError, the old file stays as it was.
    void Save(const std::filesystem::path &path) const;

private:
    std::size_t FindSection(std::string_view section) const;
    std::size_t SectionEnd(std::size_t header) const;
    std::size_t FindKey(std::size_t header, std::string_view key) const;
    void Insert(std::size_t at, std::string line);

    std::vector<std::string> lines_; // without LF; a CR stays
};
