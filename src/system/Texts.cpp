#include "system/Texts.h"

#include <utility>

namespace {
TTextTranslator textTranslator;
}

TTextTranslator SetTextTranslator(TTextTranslator translator) {
    return std::exchange(textTranslator, std::move(translator));
}

std::string Translated(const char *context, const char *english) {
    return textTranslator ? textTranslator(context, english) : english;
}

std::string Filled(std::string_view text, std::initializer_list<std::string_view> arguments) {
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool mark = text[at] == '%' && at + 1 < text.size();
        const auto number = mark ? static_cast<std::size_t>(text[at + 1] - '0') : 0;
        if (number < 1 || number > arguments.size()) {
            filled += text[at];
            continue;
        }
        filled += arguments.begin()[number - 1];
        ++at;
    }
    return filled;
}
