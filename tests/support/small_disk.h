#pragma once

#include <sys/resource.h>

#include <csignal>
#include <cstddef>

namespace orvell::test {

/// As long as it lives, no file of this process grows beyond so many bytes: writing ends there as
/// on a disk that is full. Native builds only.
class SmallDisk {
  public:
    explicit SmallDisk(std::size_t bytes) : signalBefore_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{static_cast<rlim_t>(bytes), before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signalBefore_);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

  private:
    rlimit before_{};
    void (*signalBefore_)(int);
};

}  // namespace orvell::test
