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
// How much of a file is looked at to find out how packets stand in it.
constexpr std::size_t kDetectionBytes = std::size_t{256} << 10;

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

/// How many packets stand in a row in this framing at most, wherever the row starts.
std::size_t longestRow(std::span<const uint8_t> bytes, std::size_t stride)
{
    std::vector<std::size_t> rows(stride); // by phase: the row that ends here
    std::size_t longest = 0;
    for (std::size_t offset = 0; offset + kPacketSize <= bytes.size(); ++offset) {
        std::size_t& row = rows[offset % stride];
        row = bytes[offset] == kSyncByte ? row + 1 : 0;
        longest = std::max(longest, row);
    }
    return longest;
}

/// The first place from which packets follow each other; the size of `bytes` if there is none.
std::size_t firstPacket(std::span<const uint8_t> bytes, std::size_t from, std::size_t stride)
{
    for (; from + kPacketSize <= bytes.size(); ++from)
        if (packetsFrom(bytes, from, stride))
            return from;
    return bytes.size();
}

std::string reason(int error)
{
    return std::generic_category().message(error);
}

} // namespace

PacketLayout detectPackets(std::span<const uint8_t> start)
{
    start = start.first(std::min(start.size(), kDetectionBytes));
    PacketLayout best;
    std::size_t bestRow = 0;
    for (const Framing& framing : kFramings) {
        const std::size_t row = longestRow(start, framing.stride);
        // A file too short to convince must be packets from its start.
        const bool isConvincing =
            row >= kConvincing || packetsFrom(start, framing.before, framing.stride);
        if (!isConvincing || row <= bestRow)
            continue;
        bestRow = row;
        best = {.stride = framing.stride, .firstPacket = firstPacket(start, 0, framing.stride)};
    }
    return best;
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

/// Keeps what is not taken yet, and the packet before it, and reads on behind it.
void PacketFile::refill()
{
    std::size_t taken = std::min(position_, filled_);
    taken -= std::min(taken, layout_.stride);
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
    const std::size_t stride = layout_.stride;
    if (!atEnd_ && position_ + (kConvincing + 1) * stride > filled_)
        refill();
    const std::span<const uint8_t> bytes = std::span(buffer_).first(filled_);
    if (packetsFrom(bytes, position_ + stride, stride)) {
        position_ += stride; // only this packet's sync byte is damaged
        return;
    }
    // When bytes are missing, the next packet starts inside the one before.
    position_ = firstPacket(bytes, position_ - std::min(position_, stride - 1), stride);
}

} // namespace tessaview
