#include "Start.h"

#include <chrono>
#include <cstdio>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace {
using TClock = std::chrono::steady_clock;

struct TChild {
    pid_t process;
    FILE *told; ///< its standard output
};

TChild Spawn(const std::string &program, std::vector<std::string> arguments) {
    int channel[2];
    if (pipe(channel) != 0)
        throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, channel[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, channel[0]);
    posix_spawn_file_actions_addclose(&actions, channel[1]);
    std::string name = program;
    std::vector<char *> texts{name.data()};
    for (std::string &argument : arguments)
        texts.push_back(argument.data());
    texts.push_back(nullptr);
    pid_t child = 0;
    const int failed =
        posix_spawn(&child, program.c_str(), &actions, nullptr, texts.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(channel[1]);
    if (failed)
        throw std::runtime_error("cannot start " + program);
    return {child, fdopen(channel[0], "r")};
}
} // namespace

TStart Start(const std::string &name, std::vector<std::string> arguments) {
    const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const auto start = TClock::now();
    const TChild child = Spawn((folder / name).string(), std::move(arguments));
    char word[16] = {};
    long kibibytes = 0;
    const bool shown = std::fscanf(child.told, "%15s", word) == 1;
    const std::chrono::duration<double, std::milli> time = TClock::now() - start;
    const bool ended = std::fscanf(child.told, "%ld", &kibibytes) == 1;
    std::fclose(child.told);
    int status = 0;
    waitpid(child.process, &status, 0);
    if (!shown || !ended || status != 0)
        throw std::runtime_error(name + " failed");
    return {time.count(), static_cast<double>(kibibytes) / 1024};
}

int MeasureWithImage(const std::function<bool(const std::filesystem::path &image)> &measure) {
    namespace fs = std::filesystem;
    const fs::path image =
        fs::temp_directory_path() / ("ferrolyn-bench-" + std::to_string(getpid()) + ".BIN");
    bool good = false;
    try {
        good = measure(image);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "the benchmark failed: %s\n", error.what());
    }
    std::error_code ignored;
    fs::remove(image, ignored);
    return good ? 0 : 1;
}
