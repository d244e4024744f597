#include "system/PlainText.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The bytes of the character that `bytes` begin with; 0 when no valid one stands there.
std::size_t CharacterLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const int ones = std::countl_one(lead);
    const std::size_t length = ones == 0 ? 1 : static_cast<std::size_t>(ones);
    if (ones == 1 || ones > 4 || length > bytes.size())
        return 0;
    unsigned code = lead & (0x7FU >> ones);
    for (const char c : bytes.substr(1, length - 1)) {
        if (!IsContinuation(c))
            return 0;
        code = code << 6 | (static_cast<unsigned char>(c) & 0x3FU);
    }
    constexpr unsigned least[] = {0, 0, 0x80, 0x800, 0x10000}; // that takes so many bytes
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < least[length] || isSurrogate || code > 0x10FFFF ? 0 : length;
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const std::size_t length = CharacterLength(bytes);
        if (length == 0)
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string FromLatin1(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80)
            text += c;
        else
            text +=
                {static_cast<char>(0xC0 | (code >> 6)), static_cast<char>(0x80 | (code & 0x3F))};
    }
    return text;
}

} // namespace

std::string ToUtf8(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    return IsUtf8(bytes) ? std::string(bytes) : FromLatin1(bytes);
}

std::string_view Trim(std::string_view text) {
    const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    const auto first = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto last = std::find_if_not(text.rbegin(), std::reverse_iterator(first), isBlank).base();
    return {first, last};
}

bool SameName(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char left, char right) { return lower(left) == lower(right); });
}

std::string_view FirstCharacters(std::string_view utf8, std::size_t count) {
    std::size_t end = 0;
    for (; end < utf8.size(); ++end) {
        if (!IsContinuation(utf8[end]) && count-- == 0)
            break;
    }
    return utf8.substr(0, end);
}
