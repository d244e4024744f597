#include "system/TemporaryName.h"

#include <random>

namespace {
constexpr std::string_view prefix = ".ferrolyn-";
constexpr std::string_view suffix = ".tmp";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t digitsEnd = prefix.size() + 32;
} // namespace

std::string TemporaryName() {
    std::random_device source;
    std::string name(prefix);
    while (name.size() < digitsEnd)
        name += digits[source() % digits.size()];
    return name.append(suffix);
}

bool IsTemporaryName(std::string_view name) {
    return name.starts_with(prefix) && name.find_first_not_of(digits, prefix.size()) == digitsEnd &&
           name.substr(digitsEnd) == suffix;
}
