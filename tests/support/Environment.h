// The process's environment, which systems set in ways of their own.
#pragma once

#include <cstdlib>
#include <string>

#ifdef _WIN32
inline void SetVariable(const char *name, const std::string &value) {
    _putenv_s(name, value.c_str());
}
/// Below its value the program keeps its state.
inline constexpr const char *stateVariable = "LOCALAPPDATA";
#else
inline void SetVariable(const char *name, const std::string &value) {
    setenv(name, value.c_str(), 1);
}
/// Below its value the program keeps its state.
inline constexpr const char *stateVariable = "XDG_STATE_HOME";
#endif

/// Empty for one that is not set.
inline std::string Variable(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}
