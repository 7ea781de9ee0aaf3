#pragma once

#include "drivers/common/disk_space.h"
#include "drivers/linuxdvb/kernel.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace tessaview {

class RecordingFile;

/// What is recorded, and where to.
struct Recording {
    std::string demultiplexer;       ///< "adapter0/demux0"
    std::vector<std::uint16_t> pids; ///< none for the whole stream
    std::filesystem::path destination;
    bool mayReplace = false; ///< a file that is there already
};

/// Writes what a tuned receiver delivers to a file, packet by packet, through the demultiplexer,
/// which others may use at the same time.
///
/// A recording goes on while nothing comes in, and ends by a request to stop, a device that fails,
/// and a disk that is full but for `kDiskReserve` or cannot be written. What was written until then
/// stays in every case. A file that is to be replaced stays as it is until the first packets come.
class StreamRecorder {
public:
    /// Gives the bytes that are free where a file is to be written.
    using FreeSpace = std::function<std::uintmax_t(const std::filesystem::path& folder)>;

    enum class End { Stopped, Failed };
    struct Result {
        End end;
        std::string text; ///< a sentence for the user, with what was written where
    };

    /// Device and file are looked at when the recording runs.
    StreamRecorder(Kernel& kernel, Recording recording, FreeSpace free = freeSpace);

    /// Records until a request to stop. Once only, on any thread.
    Result run(const std::stop_token& stop);

    // How far it is, for any thread meanwhile; sizes in bytes.
    std::uintmax_t written() const { return written_; }
    std::uintmax_t free() const { return free_; }
    /// How often packets were lost because they came faster than they could be fetched.
    unsigned gaps() const { return gaps_; }

private:
    void checkSpace();
    void recordInto(RecordingFile& file, const std::stop_token& stop);
    void write(RecordingFile& file, std::span<const std::uint8_t> block);
    std::string outcome(const std::string& problem) const;

    Kernel& kernel_;
    Recording recording_;
    FreeSpace spaceIn_;
    std::atomic<std::uintmax_t> written_ = 0;
    std::atomic<std::uintmax_t> free_ = 0;
    std::atomic<unsigned> gaps_ = 0;
};

} // namespace tessaview
