// The language of the texts that the core itself says: messages, errors. English unless a
// translator is set. Names in files (sections, keys) and formats are no such texts.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

/// Gives `english` (UTF-8) in the user's language, or unchanged where it has no translation.
using TTextTranslator = std::function<std::string(const char *context, const char *english)>;

/// Replaces the translator and returns the old one; an empty one leaves all texts English.
TTextTranslator SetTextTranslator(TTextTranslator translator);

/// `english` in the user's language. `context` tells translators where a text comes from; both are
/// literals, so that the tools that collect texts find them.
std::string Translated(const char *context, const char *english);

/// A text of a table, as it is; what Translated gets later. Both are literals here instead.
constexpr const char *Translatable(const char * /*context*/, const char *english) {
    return english;
}

/// The text with "%1", "%2" ... replaced by `arguments`, which may hold such marks themselves.
/// Marks without an argument stay.
std::string Filled(std::string_view text, std::initializer_list<std::string_view> arguments);
