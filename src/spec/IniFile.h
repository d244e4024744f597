// Reading of INI text: sections, keys, values. Numbers in values are Numbers.h's; the program
// writes INI text as spec files only (SpecFile.h).
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

private:
    std::vector<std::string> lines_; // without LF; a CR stays
};
