#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace tessaview {

/// A capture that cannot be used; what() names the file and what is wrong with it.
class CaptureError : public std::runtime_error {
public:
    CaptureError(const std::filesystem::path& file, const std::string& problem)
        : std::runtime_error(file.string() + ": " + problem)
    {
    }
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

/// Reads the packets of a captured stream, a large block at a time, and finds them again behind
/// damage. A file that shrinks or vanishes meanwhile only ends early.
class PacketFile {
public:
    /// Throws CaptureError for a file that cannot be read, is empty or is no transport stream.
    explicit PacketFile(const std::filesystem::path& file);
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

private:
    bool hasPacketHere() const
    {
        return position_ + kPacketSize <= filled_ && buffer_[position_] == kSyncByte;
    }
    /// Moves on to the next packet, reading on and resynchronising as needed.
    bool findPacket();
    void refill();
    void resynchronise();

    std::filesystem::path path_;
    int file_;
    PacketLayout layout_;
    std::vector<uint8_t> buffer_;
    std::size_t filled_ = 0;
    std::size_t position_ = 0;
    bool atEnd_ = false;
};

} // namespace tessaview
