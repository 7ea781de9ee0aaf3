#pragma once

#include <cstddef>
#include <pthread.h>

namespace test {

/// While it lives no thread can be started: there is no memory for a stack of this size.
class NoThreads {
public:
    NoThreads()
    {
        pthread_getattr_default_np(&former_);
        pthread_attr_t huge;
        pthread_attr_init(&huge);
        pthread_attr_setstacksize(&huge, std::size_t{1} << 50);
        pthread_setattr_default_np(&huge);
        pthread_attr_destroy(&huge);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads()
    {
        pthread_setattr_default_np(&former_);
        pthread_attr_destroy(&former_);
    }

private:
    pthread_attr_t former_{};
};

} // namespace test
