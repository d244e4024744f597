// A full disk, as far as this process can tell.
#pragma once

#include <csignal>
#include <sys/resource.h>

/// No file can grow beyond `limit` bytes while it lives, as on a full disk.
class TFullDisk {
public:
    explicit TFullDisk(rlim_t limit) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit small{limit, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    TFullDisk(const TFullDisk &) = delete;
    TFullDisk &operator=(const TFullDisk &) = delete;
    ~TFullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }

private:
    void (*oldHandler_)(int);
    rlimit old_{};
};
