#pragma once

#include "drivers/common/disk_space.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <stop_token>
#include <string>

namespace tessaview {

/// Writes a capture's stream, byte for byte, to another file.
///
/// The bytes go to a file beside the destination, with ".part" added to its name, which takes the
/// destination's name once everything is on disk. So what stood there before stays until then, and
/// a copy that does not come to its end leaves nothing behind, or says what.
class StreamCopy {
public:
    /// Gives the bytes that are free where a file is to be written.
    using FreeSpace = std::function<std::uintmax_t(const std::filesystem::path& folder)>;

    enum class End { Done, Cancelled, Failed };
    struct Result {
        End end;
        std::string text; ///< a sentence for the user, with what is left of the copy
    };

    /// Files and folders are looked at when the copy runs.
    StreamCopy(std::filesystem::path source, std::filesystem::path destination,
               FreeSpace free = freeSpace);

    /// Copies until the end or a request to stop. Once only, on any thread.
    Result run(const std::stop_token& stop);

    // How far it is, for any thread meanwhile; in bytes.
    std::uintmax_t copied() const { return copied_; }
    std::uintmax_t total() const { return total_; }
    std::uintmax_t free() const { return free_; }

private:
    std::filesystem::path target() const;
    void checkSpace(const std::filesystem::path& folder, std::uintmax_t wanted);
    void copyBlocks(int from, int to, const std::filesystem::path& folder,
                    const std::stop_token& stop);

    std::filesystem::path source_;
    std::filesystem::path destination_;
    FreeSpace spaceIn_;
    std::atomic<std::uintmax_t> copied_ = 0;
    std::atomic<std::uintmax_t> total_ = 0;
    std::atomic<std::uintmax_t> free_ = 0;
};

} // namespace tessaview
