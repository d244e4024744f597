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
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::vector<char *> arguments;
    for (std::string &argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int failure = posix_spawn(&process, command.front().c_str(), &actions, nullptr,
                                    arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (failure != 0) {
        close(ends[0]);
        throw std::runtime_error("cannot start " + command.front());
    }
    process_ = process;
    output_ = ends[0];
}

TStartedProgram::~TStartedProgram() {
    Kill();
    close(static_cast<int>(output_));
}

bool TStartedProgram::Read(char &character) {
    return read(static_cast<int>(output_), &character, 1) == 1;
}

bool TStartedProgram::Kill() {
    if (process_ == none)
        return false;
    kill(static_cast<pid_t>(process_), SIGKILL);
    return WaitForEnd() == -1;
}

int TStartedProgram::WaitForEnd() {
    int status = 0;
    waitpid(static_cast<pid_t>(process_), &status, 0);
    process_ = none;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
