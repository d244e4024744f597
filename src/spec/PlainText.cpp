#include "spec/PlainText.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The bytes that a lead byte asks for; 0 for a byte that cannot lead.
std::size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

// Second bytes that would make a sequence too long for its character, a surrogate, or a character
// beyond the last one.
bool IsBadSecondByte(unsigned char lead, unsigned char second) {
    return (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
           (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
}

bool IsUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto lead = static_cast<unsigned char>(bytes[0]);
        const std::size_t length = SequenceLength(lead);
        if (length == 0 || length > bytes.size())
            return false;
        const std::string_view rest = bytes.substr(1, length - 1);
        if (!std::all_of(rest.begin(), rest.end(), IsContinuation))
            return false;
        if (length > 2 && IsBadSecondByte(lead, static_cast<unsigned char>(rest[0])))
            return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::string FromLatin1(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 0x80) {
            text += static_cast<char>(0xC0 | (code >> 6));
            text += static_cast<char>(0x80 | (code & 0x3F));
        } else {
            text += c;
        }
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

std::string_view FirstCharacters(std::string_view utf8, std::size_t count) {
    std::size_t end = 0;
    for (; end < utf8.size(); ++end) {
        if (!IsContinuation(utf8[end]) && count-- == 0)
            break;
    }
    return utf8.substr(0, end);
}
