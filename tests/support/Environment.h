// The process's environment, which systems set in ways of their own, and the reasons that they
// give.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#ifdef _WIN32
inline void SetVariable(const char *name, const std::string &value) {
    _putenv_s(name, value.c_str());
}
/// Below its value the program keeps its state.
inline constexpr const char *stateVariable = "LOCALAPPDATA";
/// How the system numbers its reasons; some are another one for reading than for writing.
enum class TReason {
    NoFile = 2,
    NoFolder = 3,
    FileAsFolder = 3,
    FolderToRead = 5,
    FolderToWrite = 267,
    NoName = 3,
    LongName = 206
};
#else
inline void SetVariable(const char *name, const std::string &value) {
    setenv(name, value.c_str(), 1);
}
/// Below its value the program keeps its state.
inline constexpr const char *stateVariable = "XDG_STATE_HOME";
/// How the system numbers its reasons; some are another one for reading than for writing.
enum class TReason {
    NoFile = ENOENT,
    NoFolder = ENOENT,
    FileAsFolder = ENOTDIR,
    FolderToRead = EISDIR,
    FolderToWrite = EISDIR,
    NoName = ENOENT,
    LongName = ENAMETOOLONG
};
#endif

/// Empty for one that is not set.
inline std::string Variable(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}

/// The system's words for it.
inline std::string Words(TReason reason) {
    return std::system_category().message(static_cast<int>(reason));
}
