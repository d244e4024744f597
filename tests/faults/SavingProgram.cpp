#include "SavingProgram.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

TSavingProgram::TSavingProgram(const std::filesystem::path &folder, int rounds) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    output_ = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string program = FERROLYN_SAVER;
    std::string where = folder.string();
    std::string count = std::to_string(rounds);
    const std::array<char *, 4> arguments{program.data(), where.data(), count.data(), nullptr};
    const int failure =
        posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (failure != 0) {
        close(output_);
        throw std::runtime_error("cannot start " + program);
    }
}

TSavingProgram::~TSavingProgram() {
    Kill();
    close(output_);
}

bool TSavingProgram::WaitForRounds(int count) {
    char mark = 0;
    for (int i = 0; i < count; ++i)
        if (read(output_, &mark, 1) != 1)
            return false;
    return true;
}

bool TSavingProgram::Kill() {
    if (process_ < 0)
        return false;
    kill(process_, SIGKILL);
    return WaitForEnd() == -1;
}

int TSavingProgram::WaitForEnd() {
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
