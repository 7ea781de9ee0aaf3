#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessaview {

/// A capture that cannot be used; what() says why, without the file's name.
class CaptureError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The size of a transport stream packet, and where it stands in what a file holds of each: alone,
/// behind four bytes of time code, or before sixteen of error protection.
constexpr std::size_t kPacketSize = 188;
constexpr uint8_t kSyncByte = 0x47;

struct PacketLayout {
    std::size_t stride = 0;      ///< 188, 192 or 204
    std::size_t firstPacket = 0; ///< offset of the first sync byte
};

/// Finds out how packets stand in the first part of a stream, past leading rubbish; a stride of 0
/// when these are no packets.
PacketLayout detectPackets(std::span<const uint8_t> start);

/// Is told, before each block of a file is read, how many bytes were read and how many there are.
/// What it throws ends the reading.
using BlockObserver = std::function<void(std::uintmax_t position, std::uintmax_t total)>;

/// Reads the packets of a captured stream, a large block at a time, and finds them again behind
/// damage. A file that shrinks or vanishes meanwhile only ends early.
class PacketFile {
public:
    /// Throws CaptureError for what is no regular file, cannot be read, is empty or is no
    /// transport stream. Never waits for the other end of a pipe. Packets end behind about `limit`
    /// bytes.
    explicit PacketFile(const std::filesystem::path& file, std::uintmax_t limit = UINTMAX_MAX,
                        BlockObserver observer = {});
    PacketFile(const PacketFile&) = delete;
    PacketFile& operator=(const PacketFile&) = delete;
    ~PacketFile();

    /// Hands every whole packet to `take(packet)`, 188 bytes from its sync byte, until it answers
    /// false.
    template <class Take>
    void forEachPacket(Take take)
    {
        while (findPacket()) {
            do {
                if (!take(static_cast<const uint8_t*>(buffer_.data() + position_)))
                    return;
                position_ += layout_.stride;
            } while (hasPacketHere());
        }
    }

    /// Why packets ended before the file did; empty when they did not.
    const std::string& problem() const { return problem_; }

private:
    bool hasPacketHere() const
    {
        return position_ + kPacketSize <= filled_ && buffer_[position_] == kSyncByte;
    }
    /// Moves on to the next packet, reading on and resynchronising as needed.
    bool findPacket();
    void refill();
    void resynchronise();

    int file_;
    PacketLayout layout_;
    std::vector<uint8_t> buffer_;
    std::size_t filled_ = 0;
    std::size_t position_ = 0;
    std::uintmax_t left_; // of the limit
    std::uintmax_t read_ = 0;
    std::uintmax_t size_ = 0;
    BlockObserver observer_;
    bool atEnd_ = false;
    std::string problem_;
};

} // namespace tessaview
