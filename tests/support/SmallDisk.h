#pragma once

#include <sys/resource.h>

#include <csignal>

namespace quillon {

/// While this lives no file can grow beyond some bytes: as a disk that runs full
/// in the midst of a write.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    void (*signal_)(int);
    rlimit before_{};
};

}  // namespace quillon
