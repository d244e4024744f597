// The text of small files as people leave them lying about: bytes as UTF-8, blanks, characters.
// What the text means is IniFile.h's and SpecFile.h's.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// `bytes` without a byte order mark, as they are when they are valid UTF-8, else read as Latin-1.
std::string ToUtf8(std::string_view bytes);

/// `text` without blanks and control characters (everything up to ' ') at both ends; a part of
/// `text`, valid as long as that.
std::string_view Trim(std::string_view text);

/// The first `count` code points of valid UTF-8; a part of `utf8`, valid as long as that.
std::string_view FirstCharacters(std::string_view utf8, std::size_t count);
