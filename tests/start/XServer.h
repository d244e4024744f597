// An X server without a screen, for the tests that need a real one.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>

/// Runs from construction to destruction, at the latest to the end of this process. Started without
/// QProcess, whose way of sharing memory with the child the thread sanitizer takes for a fork.
class TXServer {
public:
    TXServer() {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        process_ = fork();
        if (process_ == 0) {
            prctl(PR_SET_PDEATHSIG, SIGTERM);
            dup2(ends[1], STDOUT_FILENO);
            dup2(open("/dev/null", O_WRONLY), STDERR_FILENO); // it tells of every display taken
            execlp("Xvfb", "Xvfb", "-displayfd", "1", "-screen", "0", "640x480x24", "-noreset",
                   nullptr);
            _exit(127);
        }
        close(ends[1]);
        for (char c = 0; read(ends[0], &c, 1) == 1 && c != '\n';)
            number_ += c;
        close(ends[0]);
    }
    ~TXServer() {
        if (process_ <= 0)
            return;
        kill(process_, SIGTERM);
        waitpid(process_, nullptr, 0);
    }
    TXServer(const TXServer &) = delete;
    TXServer &operator=(const TXServer &) = delete;

    /// For the variable DISPLAY; names no server when none could be started.
    QByteArray Display() const { return ':' + number_; }

private:
    pid_t process_ = -1;
    QByteArray number_;
};
