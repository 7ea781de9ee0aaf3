#include "drivers/linuxdvb/recording_file.h"

#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tessaview {

namespace {

// A pipe that nobody reads must not keep the opening waiting.
constexpr int kFlags = O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY;

std::string openingProblem(int error)
{
    switch (error) {
    case EEXIST:
        return "is there already";
    case ELOOP:
        return "is a link; name the file itself";
    case EISDIR:
        return "is a folder";
    case ENXIO:
        return "is no file that can be replaced";
    case EACCES:
        return "cannot be written: it or its folder is write-protected";
    default:
        return "cannot be written: " + std::generic_category().message(error);
    }
}

} // namespace

RecordingFile::RecordingFile(std::filesystem::path path, bool mayReplace) : path_(std::move(path))
{
    file_ = ::open(path_.c_str(), kFlags | O_EXCL, 0666);
    isNew_ = file_ >= 0;
    if (!isNew_ && errno == EEXIST && mayReplace)
        file_ = ::open(path_.c_str(), kFlags);
    if (file_ < 0)
        throw std::runtime_error(path_.string() + " " + openingProblem(errno));
    struct stat status {};
    if (::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(file_);
        throw std::runtime_error(path_.string() + " " + openingProblem(ENXIO));
    }
}

RecordingFile::~RecordingFile()
{
    if (isNew_ && isEmpty_)
        ::unlink(path_.c_str());
    ::close(file_);
}

std::size_t RecordingFile::write(std::span<const std::uint8_t> block, int& problem)
{
    problem = 0;
    if (isEmpty_ && ::ftruncate(file_, 0) != 0) {
        problem = errno;
        return 0;
    }
    std::size_t written = 0;
    while (written < block.size()) {
        const ssize_t count = ::write(file_, block.data() + written, block.size() - written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0) {
            problem = count < 0 ? errno : ENOSPC;
            break;
        }
        isEmpty_ = false;
        written += static_cast<std::size_t>(count);
    }
    return written;
}

void RecordingFile::finish() const
{
    if (!isEmpty_ && ::fsync(file_) != 0)
        throw problem(errno);
}

std::runtime_error RecordingFile::problem(int error) const
{
    return std::runtime_error(path_.string() +
                              " cannot be written: " + std::generic_category().message(error));
}

} // namespace tessaview
