// The JSON that commands print: its beginning, and how it becomes text. Which fields a command has
// is its own; all of them are described in docs/ferrolyn-cli.schema.json.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

/// Fields stay in the order in which they are added.
using TJson = nlohmann::ordered_json;

/// An object with "schema" and the command's name as "command".
TJson NewJson(const char *command);

enum class TJsonLayout {
    Pretty, ///< for people too: a field to a line
    OneLine ///< one of many answers
};

/// The text with a line feed at its end. What is no UTF-8, as names of files may be, is replaced.
std::string JsonText(const TJson &json, TJsonLayout layout);
