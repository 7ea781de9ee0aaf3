#include "drivers/capture/packet_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessaview {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20;
// Sync bytes in a row that make a stream; chance makes four only once in 2^32.
constexpr std::size_t kConvincing = 5;

struct Framing {
    std::size_t stride;
    std::size_t before; // bytes that a recorder puts in front of each packet
};
constexpr std::array kFramings{Framing{188, 0}, Framing{192, 4}, Framing{204, 0}};

/// Whether packets follow each other from here on, as many as convince or all there are.
bool packetsFrom(std::span<const uint8_t> bytes, std::size_t offset, std::size_t stride)
{
    std::size_t found = 0;
    for (; found < kConvincing && offset + kPacketSize <= bytes.size(); ++found) {
        if (bytes[offset] != kSyncByte)
            return false;
        offset += stride;
    }
    return found > 0;
}

/// A short file convinces only when it is packets from its start.
bool isConvincing(std::span<const uint8_t> bytes, std::size_t offset, const Framing& framing)
{
    if (!packetsFrom(bytes, offset, framing.stride))
        return false;
    return offset == framing.before ||
           offset + (kConvincing - 1) * framing.stride + kPacketSize <= bytes.size();
}

std::string reason(int error)
{
    return std::generic_category().message(error);
}

} // namespace

PacketLayout detectPackets(std::span<const uint8_t> start)
{
    for (std::size_t offset = 0; offset + kPacketSize <= start.size(); ++offset) {
        if (start[offset] != kSyncByte)
            continue;
        for (const Framing& framing : kFramings)
            if (isConvincing(start, offset, framing))
                return {.stride = framing.stride, .firstPacket = offset};
    }
    return {};
}

PacketFile::PacketFile(const std::filesystem::path& file)
    : path_(file)
    , file_(::open(file.c_str(), O_RDONLY | O_CLOEXEC))
{
    if (file_ < 0)
        throw CaptureError(file, "cannot be opened: " + reason(errno));
    try {
        struct stat status {};
        if (::fstat(file_, &status) == 0 && !S_ISREG(status.st_mode))
            throw CaptureError(file, "is not a regular file");
        buffer_.resize(kBlockSize);
        refill();
        if (filled_ == 0)
            throw CaptureError(file, "is empty");
        layout_ = detectPackets(std::span(buffer_).first(filled_));
        if (layout_.stride == 0)
            throw CaptureError(file, "is no MPEG-2 transport stream");
        position_ = layout_.firstPacket;
    } catch (...) {
        ::close(file_);
        throw;
    }
}

PacketFile::~PacketFile()
{
    ::close(file_);
}

bool PacketFile::findPacket()
{
    for (;;) {
        if (hasPacketHere())
            return true;
        if (position_ + kPacketSize <= filled_)
            resynchronise();
        else if (atEnd_)
            return false;
        else
            refill();
    }
}

/// Keeps what is not taken yet and reads on behind it.
void PacketFile::refill()
{
    const std::size_t taken = std::min(position_, filled_);
    std::memmove(buffer_.data(), buffer_.data() + taken, filled_ - taken);
    filled_ -= taken;
    position_ -= taken;
    while (filled_ < buffer_.size()) {
        const ssize_t count = ::read(file_, buffer_.data() + filled_, buffer_.size() - filled_);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            throw CaptureError(path_, "cannot be read: " + reason(errno));
        if (count == 0) {
            atEnd_ = true;
            return;
        }
        filled_ += static_cast<std::size_t>(count);
    }
}

/// To the next place from which packets follow each other.
void PacketFile::resynchronise()
{
    const std::span<const uint8_t> bytes = std::span(buffer_).first(filled_);
    for (++position_; position_ + kPacketSize <= filled_; ++position_)
        if (bytes[position_] == kSyncByte && packetsFrom(bytes, position_, layout_.stride))
            return;
}

} // namespace tessaview
