#include "drivers/capture/packet_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tessaview {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20;
// Sync bytes in a row that make a stream; chance makes four only once in 2^32.
constexpr std::size_t kConvincing = 5;
// So many that no other framing can be meant, whatever their bytes.
constexpr std::size_t kCertain = 200;
// How much of a file is looked at to find out how packets stand in it.
constexpr std::size_t kDetectionBytes = std::size_t{256} << 10;

struct Framing {
    std::size_t stride;
    std::size_t before; // bytes that a recorder puts in front of each packet
};
constexpr std::array kFramings{Framing{188, 0}, Framing{192, 4}, Framing{204, 0}};

/// How many packets follow each other from here on, `enough` at most.
std::size_t packetsFrom(std::span<const uint8_t> bytes, std::size_t offset, std::size_t stride,
                        std::size_t enough)
{
    std::size_t found = 0;
    for (; found < enough && offset + kPacketSize <= bytes.size(); ++found, offset += stride)
        if (bytes[offset] != kSyncByte)
            break;
    return found;
}

/// Whether what follows convinces, or is all packets if it is too short for that.
bool startsPackets(std::span<const uint8_t> bytes, std::size_t offset, std::size_t stride)
{
    const std::size_t found = packetsFrom(bytes, offset, stride, kConvincing);
    return found == kConvincing ||
           (found > 0 && offset + found * stride + kPacketSize > bytes.size());
}

/// How many packets stand in a row in this framing at most, wherever the row starts.
std::size_t longestRow(std::span<const uint8_t> bytes, std::size_t stride)
{
    std::size_t longest = 0;
    for (std::size_t phase = 0; phase < stride; ++phase) {
        std::size_t row = 0;
        for (std::size_t at = phase; at + kPacketSize <= bytes.size(); at += stride) {
            row = bytes[at] == kSyncByte ? row + 1 : 0;
            longest = std::max(longest, row);
        }
    }
    return longest;
}

/// The first place before `end` from which packets follow each other; `end` if there is none.
std::size_t firstPacket(std::span<const uint8_t> bytes, std::size_t from, std::size_t end,
                        std::size_t stride)
{
    while (from < end) {
        const void* const sync = std::memchr(&bytes[from], kSyncByte, end - from);
        if (!sync)
            break;
        from = static_cast<std::size_t>(static_cast<const uint8_t*>(sync) - bytes.data());
        if (startsPackets(bytes, from, stride))
            return from;
        ++from;
    }
    return end;
}

std::string reason(int error)
{
    return std::generic_category().message(error);
}

} // namespace

PacketLayout detectPackets(std::span<const uint8_t> start)
{
    start = start.first(std::min(start.size(), kDetectionBytes));
    // Nearly every file is packets from its start, which needs no search.
    for (const Framing& framing : kFramings)
        if (packetsFrom(start, framing.before, framing.stride, kCertain) == kCertain)
            return {.stride = framing.stride, .firstPacket = framing.before};
    PacketLayout best;
    std::size_t bestRow = 0;
    for (const Framing& framing : kFramings) {
        const std::size_t row = longestRow(start, framing.stride);
        // A file too short to convince must be packets from its start.
        const bool isConvincing =
            row >= kConvincing || startsPackets(start, framing.before, framing.stride);
        if (!isConvincing || row <= bestRow)
            continue;
        bestRow = row;
        best = {.stride = framing.stride,
                .firstPacket = firstPacket(start, 0, start.size(), framing.stride)};
    }
    return best;
}

// Without waiting: opening a pipe that no one writes to would never come back.
PacketFile::PacketFile(const std::filesystem::path& file, std::uintmax_t limit,
                       BlockObserver observer)
    : file_(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
    , left_(limit)
    , observer_(std::move(observer))
{
    if (file_ < 0)
        throw CaptureError("cannot be opened: " + reason(errno));
    try {
        struct stat status {};
        if (::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode))
            throw CaptureError(S_ISDIR(status.st_mode) ? "is a folder" : "is not a regular file");
        size_ = static_cast<std::uintmax_t>(status.st_size);
        buffer_.resize(kBlockSize);
        refill();
        if (filled_ == 0)
            throw CaptureError(problem_.empty() ? "is empty" : problem_);
        layout_ = detectPackets(std::span(buffer_).first(filled_));
        if (layout_.stride == 0)
            throw CaptureError("is no MPEG-2 transport stream");
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
    std::size_t done = std::min(position_, filled_);
    done -= std::min(done, layout_.stride);
    std::memmove(buffer_.data(), buffer_.data() + done, filled_ - done);
    filled_ -= done;
    position_ -= done;
    while (filled_ < buffer_.size() && !atEnd_) {
        if (observer_)
            observer_(read_, size_);
        const ssize_t count = ::read(file_, buffer_.data() + filled_, buffer_.size() - filled_);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            problem_ = "cannot be read: " + reason(errno);
        const std::uintmax_t taken =
            std::min<std::uintmax_t>(left_, count < 0 ? 0 : static_cast<std::size_t>(count));
        filled_ += taken;
        left_ -= taken;
        read_ += taken;
        atEnd_ = taken == 0;
    }
}

/// To the next place from which packets follow each other.
void PacketFile::resynchronise()
{
    const std::size_t stride = layout_.stride;
    if (!atEnd_ && position_ + (kConvincing + 1) * stride > filled_)
        refill();
    const std::span<const uint8_t> bytes = std::span(buffer_).first(filled_);
    if (startsPackets(bytes, position_ + stride, stride)) {
        position_ += stride; // only this packet's sync byte is damaged
        return;
    }
    // Where too little follows to convince, the next block tells.
    const std::size_t end = atEnd_ ? bytes.size() : bytes.size() - kConvincing * stride;
    // When bytes are missing, the next packet starts inside the one before.
    position_ = firstPacket(bytes, position_ - std::min(position_, stride - 1), end, stride);
}

} // namespace tessaview
