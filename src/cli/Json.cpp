#include "cli/Json.h"

namespace {
constexpr const char *jsonSchema = "ferrolyn-cli/1";
constexpr int jsonIndent = 2;
} // namespace

TJson NewJson(const char *command) {
    return {{"schema", jsonSchema}, {"command", command}};
}

std::string JsonText(const TJson &json, TJsonLayout layout) {
    const int indent = layout == TJsonLayout::Pretty ? jsonIndent : -1;
    return json.dump(indent, ' ', false, TJson::error_handler_t::replace) + "\n";
}
