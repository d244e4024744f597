// A run of the program that saves in turn (saver/saver.cpp), to be waited for or killed.
#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>

class TSavingProgram {
public:
    /// @param rounds  0: until it is killed
    explicit TSavingProgram(const std::filesystem::path &folder, int rounds = 0);
    TSavingProgram(const TSavingProgram &) = delete;
    TSavingProgram &operator=(const TSavingProgram &) = delete;
    /// Kills it when it still runs.
    ~TSavingProgram();

    /// Waits until that many more rounds are done; false when the program ended before.
    bool WaitForRounds(int count);
    /// Kills it where it stands; false when it had ended by itself.
    bool Kill();
    /// Waits for its own end; the exit code, -1 when it was killed.
    int WaitForEnd();

private:
    pid_t process_ = -1;
    int output_ = -1;
};
