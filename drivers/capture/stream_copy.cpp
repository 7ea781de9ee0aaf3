#include "drivers/capture/stream_copy.h"

#include "drivers/capture/packet_file.h"
#include "platform/format.h"

#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tessaview {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlockSize = std::size_t{4} << 20;

struct Cancelled {};

std::string reason(int error)
{
    return std::generic_category().message(error);
}

class File {
public:
    File(const fs::path& path, int flags)
        : descriptor_(::open(path.c_str(), flags | O_CLOEXEC, 0666))
    {
        if (descriptor_ < 0)
            throw CaptureError(path.string() + " cannot be opened: " + reason(errno));
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { ::close(descriptor_); }

    int get() const { return descriptor_; }
    std::uintmax_t regularSize(const fs::path& path) const
    {
        struct stat status {};
        if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
            throw CaptureError(path.string() + " is not a regular file");
        return static_cast<std::uintmax_t>(status.st_size);
    }

private:
    int descriptor_;
};

std::size_t readBlock(int file, std::vector<char>& block)
{
    for (;;) {
        const ssize_t count = ::read(file, block.data(), block.size());
        if (count >= 0)
            return static_cast<std::size_t>(count);
        if (errno != EINTR)
            throw CaptureError("the capture cannot be read: " + reason(errno));
    }
}

void writeBlock(int file, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t count = ::write(file, bytes, size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            throw CaptureError("the copy cannot be written: " + reason(count < 0 ? errno : ENOSPC));
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
}

/// The file that a copy grows in; removed unless it was given its name.
class PartFile {
public:
    explicit PartFile(const fs::path& destination)
        : path_(destination.string() + ".part")
        , file_(path_, O_WRONLY | O_CREAT | O_EXCL)
    {
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() { remove(); }

    int get() const { return file_.get(); }

    void finish(const fs::path& destination)
    {
        if (::fsync(file_.get()) != 0)
            throw CaptureError("the copy cannot be written: " + reason(errno));
        std::error_code failure;
        fs::rename(path_, destination, failure);
        if (failure)
            throw CaptureError("the copy cannot be named " + destination.string() + ": " +
                               failure.message());
        isThere_ = false;
    }

    /// What there is to say of it afterwards.
    std::string remove()
    {
        if (!std::exchange(isThere_, false))
            return "";
        std::error_code failure;
        fs::remove(path_, failure);
        return failure ? "An incomplete copy is left in " + path_.string() + "."
                       : "Nothing of the copy is left.";
    }

private:
    fs::path path_;
    File file_;
    bool isThere_ = true;
};

} // namespace

StreamCopy::StreamCopy(fs::path source, fs::path destination, FreeSpace free)
    : source_(std::move(source))
    , destination_(std::move(destination))
    , spaceIn_(std::move(free))
{
}

/// A link in the destination's place stays: the file it leads to is written.
fs::path StreamCopy::target() const
{
    std::error_code failure;
    fs::path target = fs::weakly_canonical(destination_, failure);
    if (failure)
        throw CaptureError(destination_.string() + " cannot be used: " + failure.message());
    const fs::file_status status = fs::status(target, failure);
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw CaptureError(destination_.string() + " is no file that can be replaced");
    if (fs::exists(status) && ::access(target.c_str(), W_OK) != 0)
        throw CaptureError(destination_.string() + " is write-protected");
    if (fs::equivalent(source_, target, failure))
        throw CaptureError(destination_.string() + " is the capture itself");
    return target;
}

void StreamCopy::checkSpace(const fs::path& folder, std::uintmax_t wanted)
{
    free_ = spaceIn_(folder);
    if (free_ < wanted + kDiskReserve)
        throw CaptureError(formatted("%s has %s free; the copy needs %s more and leaves %s free",
                                     folder.c_str(), sizeText(free_).c_str(),
                                     sizeText(wanted).c_str(), sizeText(kDiskReserve).c_str()));
}

void StreamCopy::copyBlocks(int from, int to, const fs::path& folder, const std::stop_token& stop)
{
    std::vector<char> block(kBlockSize);
    while (const std::size_t size = readBlock(from, block)) {
        checkSpace(folder, size);
        writeBlock(to, block.data(), size);
        copied_ += size;
        if (stop.stop_requested())
            throw Cancelled();
    }
    if (copied_ < total_)
        throw CaptureError("the capture became shorter while it was copied");
}

StreamCopy::Result StreamCopy::run(const std::stop_token& stop)
{
    std::string left;
    try {
        const fs::path destination = target();
        const fs::path folder = destination.parent_path();
        const File source(source_, O_RDONLY | O_NONBLOCK | O_NOCTTY);
        total_ = source.regularSize(source_);
        checkSpace(folder, total_);
        PartFile part(destination);
        try {
            copyBlocks(source.get(), part.get(), folder, stop);
            part.finish(destination);
        } catch (...) {
            left = " " + part.remove();
            throw;
        }
        return {End::Done, sizeText(copied_) + " were written to " + destination_.string() + "."};
    } catch (const Cancelled&) {
        return {End::Cancelled, "Cancelled." + left};
    } catch (const std::runtime_error& e) {
        return {End::Failed, "The stream was not copied: " + std::string(e.what()) + "." + left};
    }
}

} // namespace tessaview
