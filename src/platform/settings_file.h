#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace tessaview {

/// The largest settings file that is read, in bytes.
inline constexpr std::size_t kMaxSettingsBytes = 1U << 20U;

/// Where a file really is: a link that stands in its place stays. Throws SettingsError when the
/// link leads nowhere.
std::filesystem::path resolvedFile(const std::filesystem::path& file);

/// The content of a small regular file, or its beginning with more than `limit` bytes; throws
/// SettingsError, which tells why it cannot be read. A file that does not exist has no content.
std::string readSmallFile(const std::filesystem::path& file, std::size_t limit = kMaxSettingsBytes);

/// Replaces a file in one step, so that a reader sees the old content or the new, also after a
/// crash. The new file has the mode as far as the umask lets it. Throws SettingsError and leaves
/// the old content.
void replaceFile(const std::filesystem::path& file, std::string_view content, mode_t mode = 0600);

/// Gives a file another name beside its own that is not in use; throws SettingsError.
void setFileAside(const std::filesystem::path& file);

/// The right to write a file, held against other programs and threads; made with a file of its
/// own beside that one.
class FileLock {
public:
    /// Waits up to ten seconds for who holds it; throws SettingsError.
    explicit FileLock(const std::filesystem::path& file, mode_t mode = 0600);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    int descriptor_;
};

} // namespace tessaview
