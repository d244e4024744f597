// The errors of a user whom permissions bind.
#pragma once

#include "system/FileErrors.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include <gtest/gtest.h>

inline std::string Reason(int code) {
    return std::generic_category().message(code);
}

/// Runs `step` in a child without an administrator's rights, whom permission bits bind, and with
/// files limited to `fileLimit` bytes. Returns the error's text, as ErrorOf.
template <class TStep>
std::string ErrorInChild(TStep step, rlim_t fileLimit = RLIM_INFINITY) {
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{fileLimit, RLIM_INFINITY};
        signal(SIGXFSZ, SIG_IGN);
        const bool ready =
            setrlimit(RLIMIT_FSIZE, &limit) == 0 && (geteuid() != 0 || setuid(65534) == 0);
        const std::string text = ready ? ErrorOf(step) : "the child could not be set up";
        const bool sent = write(ends[1], text.data(), text.size()) >= 0;
        _exit(sent ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char buffer[512];
    for (ssize_t count; (count = read(ends[0], buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0 ? text : "the child failed: " + text;
}

/// Opens a folder and its files to the child above.
inline void GiveAway(const std::filesystem::path &path, mode_t mode) {
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
}
