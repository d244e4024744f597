// Programs that save in turn, to be waited for or killed. How a program is started, heard and
// killed is each system's: SavingProgramLinux.cpp, SavingProgramWindows.cpp.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// A program that was started, and what it writes.
class TStartedProgram {
public:
    /// @param command  the program and its arguments, which hold no quotes
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
    static constexpr std::intptr_t none = -1;
    std::intptr_t process_ = none; ///< the system's; none once it was waited for
    std::intptr_t output_ = none;  ///< the end of the pipe from which its output is read
};

/// A run of saver/saver.cpp.
class TSavingProgram : public TStartedProgram {
public:
    /// @param rounds  0: until it is killed
    explicit TSavingProgram(const std::filesystem::path &folder, int rounds = 0);

    /// Waits until that many more rounds are done; false when the program ended before.
    bool WaitForRounds(int count);
};

/// How many kills; FERROLYN_KILLS asks for others than the daily share.
int KillsWanted(int dailyShare);
