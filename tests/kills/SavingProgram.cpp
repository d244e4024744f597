#include "SavingProgram.h"

#include <algorithm>
#include <cstdlib>

bool TStartedProgram::ReadLine(std::string &line) {
    line.clear();
    char next = 0;
    while (Read(next)) {
        if (next == '\n')
            return true;
        line += next;
    }
    return false;
}

TSavingProgram::TSavingProgram(const std::filesystem::path &folder, int rounds)
    : TStartedProgram({FERROLYN_SAVER, folder.string(), std::to_string(rounds)}) {}

bool TSavingProgram::WaitForRounds(int count) {
    char mark = 0;
    for (int i = 0; i < count; ++i)
        if (!Read(mark))
            return false;
    return true;
}

int KillsWanted(int dailyShare) {
    const char *wanted = std::getenv("FERROLYN_KILLS");
    return wanted ? std::max(1, std::atoi(wanted)) : dailyShare;
}
