#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tessaview {

/// The largest settings file that is read, in bytes.
inline constexpr std::size_t kMaxSettingsBytes = 1U << 20U;

/// The content of a small regular file; throws SettingsError, which tells why it cannot be read
/// or that it is too large. A file that does not exist has no content.
std::string readSmallFile(const std::filesystem::path& file);

/// Replaces a file in one step, so that a reader sees the old content or the new, also after a
/// crash. Throws SettingsError and leaves the old content.
void replaceFile(const std::filesystem::path& file, std::string_view content);

/// Gives a file another name beside its own that is not in use; throws SettingsError.
void setFileAside(const std::filesystem::path& file);

/// The right to write a file, held against other programs and threads; made with a file of its
/// own beside that one.
class FileLock {
public:
    /// Waits up to ten seconds for who holds it; throws SettingsError.
    explicit FileLock(const std::filesystem::path& file);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    int descriptor_;
};

} // namespace tessaview
