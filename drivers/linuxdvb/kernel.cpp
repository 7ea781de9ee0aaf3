#include "drivers/linuxdvb/kernel.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tessaview {

namespace {

int failureOr(int result)
{
    return result < 0 ? -errno : result;
}

class SystemKernel final : public Kernel {
public:
    std::vector<std::string> entries(const std::string& folder) override
    {
        std::vector<std::string> names;
        std::error_code failure;
        for (std::filesystem::directory_iterator at(folder, failure), end; at != end;
             at.increment(failure))
            names.push_back(at->path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    int open(const std::string& path, int flags) override
    {
        return failureOr(::open(path.c_str(), flags | O_CLOEXEC));
    }

    int control(int file, unsigned long request, std::uintptr_t argument) override
    {
        return failureOr(::ioctl(file, request, argument));
    }

    long read(int file, std::span<std::uint8_t> buffer) override
    {
        const ssize_t size = ::read(file, buffer.data(), buffer.size());
        return size < 0 ? -errno : size;
    }

    int wait(std::span<pollfd> files, std::chrono::milliseconds limit) override
    {
        return failureOr(::poll(files.data(), files.size(), static_cast<int>(limit.count())));
    }

    void close(int file) noexcept override { ::close(file); }

    Clock::time_point now() override { return Clock::now(); }
};

} // namespace

Kernel& systemKernel()
{
    static SystemKernel kernel;
    return kernel;
}

void pause(Kernel& kernel, std::chrono::milliseconds time, const StopRequested& stop)
{
    const Kernel::Clock::time_point end = kernel.now() + time;
    for (;;) {
        if (stop && stop())
            throw Interrupted();
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - kernel.now());
        if (left.count() <= 0)
            return;
        kernel.wait({}, std::min(left, kStopInterval));
    }
}

} // namespace tessaview
