// Programs that save in turn, to be waited for or killed.
#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

/// A program that was started, and what it writes.
class TStartedProgram {
public:
    /// @param command  the program and its arguments
    explicit TStartedProgram(std::vector<std::string> command);
    TStartedProgram(const TStartedProgram &) = delete;
    TStartedProgram &operator=(const TStartedProgram &) = delete;
    /// Kills it when it still runs.
    ~TStartedProgram();

    /// Waits for its next line; false when it has ended without one.
    bool ReadLine(std::string &line);
    /// Waits for its next character; false when it has ended without one.
    bool Read(char &character);
    /// Kills it where it stands; false when it had ended by itself.
    bool Kill();
    /// Waits for its own end; the exit code, -1 when it was killed.
    int WaitForEnd();

private:
    pid_t process_ = -1;
    int output_ = -1;
};

/// A run of saver/saver.cpp.
class TSavingProgram : public TStartedProgram {
public:
    /// @param rounds  0: until it is killed
    explicit TSavingProgram(const std::filesystem::path &folder, int rounds = 0);

    /// Waits until that many more rounds are done; false when the program ended before.
    bool WaitForRounds(int count);
};
