// The text of small files as people leave them lying about: bytes as UTF-8, blanks, letter case,
// characters. What the text means is the business of IniFile.h, SpecFile.h and Help.h.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// `bytes` without a byte order mark, as they are when they are valid UTF-8, else read as Latin-1.
std::string ToUtf8(std::string_view bytes);

/// `text` without blanks and control characters (everything up to ' ') at both ends; a part of
/// `text`, valid as long as that.
std::string_view Trim(std::string_view text);

/// Whether two names are the same but for the case of the letters A to Z.
bool SameName(std::string_view a, std::string_view b);

/// The first `count` code points of valid UTF-8; a part of `utf8`, valid as long as that.
std::string_view FirstCharacters(std::string_view utf8, std::size_t count);
