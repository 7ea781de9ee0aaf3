#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>

namespace tessaview {

/// The file that a recording grows in. One that was there before is emptied by the first block; a
/// new one that gets none goes away again.
class RecordingFile {
public:
    /// Throws std::runtime_error when the file cannot be written, or is there already and may not
    /// be replaced; a link is not followed.
    RecordingFile(std::filesystem::path path, bool mayReplace);
    RecordingFile(const RecordingFile&) = delete;
    RecordingFile& operator=(const RecordingFile&) = delete;
    ~RecordingFile();

    /// Gives how much was written, which is less than the block where `problem` tells why.
    std::size_t write(std::span<const std::uint8_t> block, int& problem);
    /// Sees to it that all is on disk. Throws std::runtime_error.
    void finish() const;

    std::runtime_error problem(int error) const;

private:
    std::filesystem::path path_;
    bool isNew_ = false;
    bool isEmpty_ = true; // of what is recorded
    int file_ = -1;
};

} // namespace tessaview
