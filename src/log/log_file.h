#pragma once

#include <cstdint>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace tessaview {

/// A wall-clock time.
struct LogTime {
    std::time_t seconds;
    std::uint16_t milliseconds; ///< 0 to 999
};

LogTime currentTime();

/// What each line of the log carries in front of the message.
namespace log_prefix {
constexpr std::uint32_t kTime = 0x01;
constexpr std::uint32_t kElapsed = 0x02; ///< seconds since the log was opened
constexpr std::uint32_t kLevel = 0x04;
constexpr std::uint32_t kLineNumber = 0x08;
} // namespace log_prefix

/// Where the lines of the log go.
namespace log_open {
constexpr std::uint32_t kFile = 0x01;
constexpr std::uint32_t kDebugger = 0x40; ///< standard error, when $TESSAVIEW_DEBUG is set
/// Only a file that no other log with this flag writes, in this program or another.
constexpr std::uint32_t kUnshared = 0x100;
} // namespace log_open

/// What `CLogFile::Open` returns for a file that is not emptied because it is no log.
constexpr int kForeignLog = 7;

namespace log_level {
constexpr std::int32_t kError = 1;
constexpr std::int32_t kInformation = 2;
constexpr std::int32_t kDetail = 4;
} // namespace log_level

/// The log: numbered lines with time stamps, each on disk when the call returns. All operations
/// may be called from any thread; while the log is closed, lines are dropped.
class CLogFile {
public:
    explicit constexpr CLogFile(LogTime (*clock)() = currentTime) : clock_(clock) {}

    /// Starts a new log in the named file. `openFlags` are log_open's, `prefixFlags` log_prefix's;
    /// lines above `maxLevel` are dropped, a negative one drops all. Returns 0, or 1 when the file
    /// cannot be opened, 4 when the log is open already, 5 when no flag says where lines go, 6
    /// when the open flags are 0, with kUnshared 3 when another log writes the file and
    /// `kForeignLog` when it holds something else than a log; it then stays as it is.
    int Open(const std::string& path, std::uint32_t openFlags, std::uint32_t prefixFlags,
             std::int32_t maxLevel);
    void SetLevel(std::int32_t maxLevel);
    /// Whether a line of this level would be written now.
    bool accepts(std::int32_t level) const;
    /// Writes one line. Control characters in the text, line breaks too, are shown as their
    /// symbols; the text is cut so that the line has at most 1,023 bytes. Returns 0.
    int WriteLine(std::string_view text, std::int32_t level);
    /// Returns 0, or 2 when no file is open.
    int Close();

private:
    struct FileCloser {
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
    };

    bool isAccepted(std::int32_t level) const;
    std::string prefixes(std::int32_t level) const;

    mutable std::mutex mutex_;
    LogTime (*clock_)();
    std::unique_ptr<std::FILE, FileCloser> file_;
    bool isOpen_ = false;
    bool isMirrored_ = false;
    std::uint32_t prefixFlags_ = 0;
    std::int32_t maxLevel_ = 0;
    std::int32_t lineNumber_ = 0;
    LogTime start_{};
};

/// The log of this program.
extern CLogFile g_log;

/// Writes one line to the log by the printf rules; texts are UTF-8. Returns 0.
[[gnu::format(printf, 3, 4)]] int LogPrint(CLogFile& log, std::int32_t level, const char* format,
                                           ...);

/// The program's folder below the user's folder for state, which is created; empty when there is
/// no place for it.
std::filesystem::path stateFolder();

/// Where a program keeps its log: beside the executable, with "txt" for a three-letter extension
/// or added after a dot. Where that cannot be written, and where the program is installed, a file
/// of the same name in the user's folder for state, which is created. A path of less than 5
/// characters gives "quorva.txt" in the current folder.
std::string logPathFor(const std::filesystem::path& executable);

/// Starts the program's log with its first line; returns the status of `CLogFile::Open`. While
/// another explorer writes that file, this one takes the first free one of "name-2.txt",
/// "name-3.txt" and so on, and says so in it and on standard error.
int openApplicationLog(const std::string& path);

} // namespace tessaview
