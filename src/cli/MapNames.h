// What the command line calls maps.
#pragma once

#include "changes/MapChanges.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// "fuel-pt".
std::string NameOf(TMapId map);

/// By that name; none for any other text.
std::optional<TMapId> FindMap(std::string_view name);

/// As FindMap; throws EWrongUse that says which names there are.
TMapId NamedMap(std::string_view name);

/// Those that are named, in that order; all without a name.
std::vector<TMapId> NamedMaps(const std::vector<std::string> &names);
