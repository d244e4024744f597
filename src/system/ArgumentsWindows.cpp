#include "system/Arguments.h"
#include "system/FileWindows.h"

#include <shellapi.h>

// What main is given lacks the characters that the system's old code page lacks.
std::vector<std::string> Arguments(int, char **) {
    int count = 0;
    wchar_t **words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(Utf8(words[i]));
    LocalFree(words);
    return arguments;
}
