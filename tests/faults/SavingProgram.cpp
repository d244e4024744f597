#include "SavingProgram.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

TStartedProgram::TStartedProgram(std::vector<std::string> command) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::vector<char *> arguments;
    for (std::string &argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const int failure = posix_spawn(&process_, command.front().c_str(), &actions, nullptr,
                                    arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (failure != 0) {
        close(output_);
        throw std::runtime_error("cannot start " + command.front());
    }
}

TStartedProgram::~TStartedProgram() {
    Kill();
    close(output_);
}

bool TStartedProgram::Read(char &character) {
    return read(output_, &character, 1) == 1;
}

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

bool TStartedProgram::Kill() {
    if (process_ < 0)
        return false;
    kill(process_, SIGKILL);
    return WaitForEnd() == -1;
}

int TStartedProgram::WaitForEnd() {
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
