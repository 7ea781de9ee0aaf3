#include "platform/settings_file.h"

#include "platform/settings.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tessaview {

namespace {

[[noreturn]] void fail(const std::filesystem::path& file, const std::string& what, int error)
{
    throw SettingsError(file.string() + " " + what + ": " + std::generic_category().message(error));
}

/// Owns an open file.
class Descriptor {
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }

    int get() const { return descriptor_; }
    explicit operator bool() const { return descriptor_ >= 0; }

private:
    int descriptor_;
};

bool writeWholly(int descriptor, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = ::write(descriptor, content.data(), content.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(descriptor) == 0;
}

} // namespace

std::filesystem::path resolvedFile(const std::filesystem::path& file)
{
    std::error_code failure;
    if (!std::filesystem::is_symlink(file, failure))
        return std::filesystem::absolute(file);
    std::filesystem::path target = std::filesystem::canonical(file, failure);
    if (failure)
        throw SettingsError(file.string() + " leads nowhere: " + failure.message());
    return target;
}

std::string readSmallFile(const std::filesystem::path& file, std::size_t limit)
{
    // Without O_NONBLOCK a pipe in the place of the file would hold the program up.
    const Descriptor in(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!in && errno == ENOENT)
        return {};
    if (!in)
        fail(file, "cannot be opened", errno);
    struct stat about {};
    if (::fstat(in.get(), &about) != 0 || !S_ISREG(about.st_mode))
        throw SettingsError(file.string() + " is not a regular file");
    std::string content;
    std::array<char, 16384> block{};
    ssize_t got = 0;
    while ((got = ::read(in.get(), block.data(), block.size())) != 0) {
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            fail(file, "cannot be read", errno);
        content.append(block.data(), static_cast<std::size_t>(got));
        if (content.size() > limit)
            break; // the caller sees that it is too large
    }
    return content;
}

void replaceFile(const std::filesystem::path& file, std::string_view content, mode_t mode)
{
    const std::string temporary = file.string() + ".new";
    {
        const Descriptor out(
            ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, mode));
        if (!out)
            fail(temporary, "cannot be written", errno);
        if (!writeWholly(out.get(), content)) {
            const int error = errno;
            ::unlink(temporary.c_str());
            fail(temporary, "cannot be written", error);
        }
    }
    if (::rename(temporary.c_str(), file.c_str()) != 0) {
        const int error = errno;
        ::unlink(temporary.c_str());
        fail(file, "cannot be replaced", error);
    }
    const Descriptor folder(::open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder)
        ::fsync(folder.get());
}

void setFileAside(const std::filesystem::path& file)
{
    for (int number = 1;; ++number) {
        const std::string aside = file.string() + ".broken-" + std::to_string(number);
        // A link, other than a new name, never replaces what bears the name already.
        if (::link(file.c_str(), aside.c_str()) == 0)
            break;
        if (errno != EEXIST)
            fail(file, "is broken and cannot be set aside", errno);
    }
    if (::unlink(file.c_str()) != 0)
        fail(file, "is broken and cannot be set aside", errno);
}

FileLock::FileLock(const std::filesystem::path& file, mode_t mode)
{
    constexpr auto kPatience = std::chrono::seconds(10);
    constexpr auto kPause = std::chrono::milliseconds(5);
    const std::string lockFile = file.string() + ".lock";
    descriptor_ = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode);
    if (descriptor_ < 0 && errno == EACCES) { // another user's, in a folder that users share
        descriptor_ = ::open(lockFile.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
        errno = EACCES;
    }
    if (descriptor_ < 0)
        fail(lockFile, "cannot be written", errno);
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        const int error = errno;
        if ((error == EWOULDBLOCK || error == EINTR) && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(kPause);
            continue;
        }
        ::close(descriptor_);
        if (error == EWOULDBLOCK)
            throw SettingsError(file.string() + " is in use by another program (" + lockFile +
                                " is locked)");
        fail(lockFile, "cannot be locked", error);
    }
}

FileLock::~FileLock()
{
    ::close(descriptor_);
}

} // namespace tessaview
