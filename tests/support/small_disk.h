#pragma once

#include <csignal>
#include <sys/resource.h>

namespace test {

/// While it lives files cannot grow beyond a size, as on a disk that gives out.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t size)
    {
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit small{size, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk()
    {
        setrlimit(RLIMIT_FSIZE, &former_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit former_{};
    void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

} // namespace test
