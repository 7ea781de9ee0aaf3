#include "log/log_file.h"

#include "log/log_line.h"
#include "platform/format.h"
#include "platform/paths.h"

#include <array>
#include <cctype>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <system_error>
#include <unistd.h>

namespace tessaview {

constinit CLogFile g_log;

namespace {

constexpr std::size_t kBufferBytes = 1024;

std::string formattedTime(const LogTime& time)
{
    // Unlike strftime, this form does not change with the user's language.
    std::array<char, 64> text{};
    if (!ctime_r(&time.seconds, text.data()))
        return "??? ?? ??:??:??";
    return {text.data() + 4, 15};
}

/// Milliseconds as "%.3lf" seconds, with a point in every locale.
std::string formattedSeconds(long long milliseconds)
{
    const unsigned long long size = milliseconds < 0
                                        ? 0ULL - static_cast<unsigned long long>(milliseconds)
                                        : static_cast<unsigned long long>(milliseconds);
    return formatted("%s%llu.%03llu", milliseconds < 0 ? "-" : "", size / 1000, size % 1000);
}

bool hasThreeLetterExtension(const std::string& path)
{
    const auto isLetter = [&](std::size_t fromEnd) {
        return std::isalpha(static_cast<unsigned char>(path[path.size() - fromEnd])) != 0;
    };
    return path[path.size() - 4] == '.' && isLetter(3) && isLetter(2) && isLetter(1);
}

bool isWritable(const std::filesystem::path& file)
{
    if (::access(file.c_str(), F_OK) == 0)
        return ::access(file.c_str(), W_OK) == 0;
    const std::filesystem::path folder = file.parent_path();
    return ::access(folder.empty() ? "." : folder.c_str(), W_OK) == 0;
}

/// Whether a program lies among those of others, as an installation puts it there: a log beside it
/// is nobody's wish, even for those who could write it. The folder that it was built in is no
/// installation.
bool isInstalled(const std::filesystem::path& executable)
{
    const std::filesystem::path folder = executable.parent_path();
    std::error_code failure;
    return folder.filename() == "bin" &&
           !std::filesystem::exists(folder.parent_path() / "CMakeCache.txt", failure);
}

constexpr int kInUse = 3;

constexpr std::string_view kFirstMessage = "Starting Tessaview 3";

/// Whether a file may be emptied for a log: it is empty, or its first line is that of a log.
bool isOurs(int descriptor)
{
    std::array<char, kBufferBytes> text{};
    const ssize_t size = ::pread(descriptor, text.data(), text.size(), 0);
    if (size <= 0)
        return size == 0;
    const std::string_view begin(text.data(), static_cast<std::size_t>(size));
    return begin.substr(0, begin.find('\n')).find(kFirstMessage) != std::string_view::npos;
}

/// Opens an empty file that is locked until it is closed; null when it cannot be opened or, then
/// it stays as it is, when another holds the lock or it holds something else than a log. Devices
/// and pipes are anybody's.
std::FILE* openUnshared(const std::string& path, int& status)
{
    int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (descriptor < 0)
        descriptor =
            ::open(path.c_str(), O_WRONLY | O_CLOEXEC); // a device that can only be written
    if (descriptor < 0)
        return nullptr;
    struct stat about {};
    if (::fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode)) {
        if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
            status = kInUse;
        else if (!isOurs(descriptor))
            status = kForeignLog;
        if (status == kInUse || status == kForeignLog || ::ftruncate(descriptor, 0) != 0) {
            ::close(descriptor);
            return nullptr;
        }
    }
    std::FILE* const file = ::fdopen(descriptor, "w");
    if (!file)
        ::close(descriptor);
    return file;
}

/// "name.txt" with the number put in: "name-2.txt".
std::string numbered(const std::string& path, int number)
{
    const std::filesystem::path file(path);
    std::filesystem::path name = file.stem();
    name += '-';
    name += std::to_string(number);
    name += file.extension();
    return (file.parent_path() / name).string();
}

} // namespace

LogTime currentTime()
{
    timeval now{};
    gettimeofday(&now, nullptr);
    return {.seconds = now.tv_sec, .milliseconds = static_cast<std::uint16_t>(now.tv_usec / 1000)};
}

int CLogFile::Open(const std::string& path, std::uint32_t openFlags, std::uint32_t prefixFlags,
                   std::int32_t maxLevel)
{
    const std::lock_guard lock(mutex_);
    if (isOpen_)
        return 4;
    if (openFlags == 0)
        return 6;
    prefixFlags_ = prefixFlags;
    maxLevel_ = maxLevel;
    lineNumber_ = 0;
    start_ = clock_();
    if (!(openFlags & log_open::kFile) && !(openFlags & log_open::kDebugger))
        return 5;
    if (openFlags & log_open::kFile) {
        int status = 1;
        file_.reset(openFlags & log_open::kUnshared ? openUnshared(path, status)
                                                    : std::fopen(path.c_str(), "we"));
        if (!file_)
            return status;
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only read
    isMirrored_ = (openFlags & log_open::kDebugger) && std::getenv("TESSAVIEW_DEBUG");
    isOpen_ = true;
    return 0;
}

void CLogFile::SetLevel(std::int32_t maxLevel)
{
    const std::lock_guard lock(mutex_);
    maxLevel_ = maxLevel;
}

bool CLogFile::accepts(std::int32_t level) const
{
    const std::lock_guard lock(mutex_);
    return isAccepted(level);
}

bool CLogFile::isAccepted(std::int32_t level) const
{
    return isOpen_ && maxLevel_ >= 0 && level <= maxLevel_;
}

std::string CLogFile::prefixes(std::int32_t level) const
{
    const LogTime now = clock_();
    std::string line;
    if (prefixFlags_ & log_prefix::kLineNumber)
        line += formatted("%4ld - ", static_cast<long>(lineNumber_));
    if (prefixFlags_ & log_prefix::kTime)
        line += formatted("%.15s.%3hu - ", formattedTime(now).c_str(), now.milliseconds);
    if (prefixFlags_ & log_prefix::kElapsed) {
        const long long elapsed = (static_cast<long long>(now.seconds) - start_.seconds) * 1000 +
                                  now.milliseconds - start_.milliseconds;
        line += formatted("(%s) - ", formattedSeconds(elapsed).c_str());
    }
    if (prefixFlags_ & log_prefix::kLevel)
        line += formatted("<%ld> - ", static_cast<long>(level));
    return line;
}

int CLogFile::WriteLine(std::string_view text, std::int32_t level)
{
    const std::lock_guard lock(mutex_);
    if (!isAccepted(level))
        return 0;
    ++lineNumber_;
    std::string line = prefixes(level);
    const std::string message = asOneLine(text);
    line += cutAtCharacter(message, kBufferBytes - 2 - line.size());
    if (file_) {
        static_cast<void>(std::fputs((line + "\r\n").c_str(), file_.get()));
        static_cast<void>(std::fflush(file_.get()));
    }
    if (isMirrored_)
        static_cast<void>(std::fputs((line + "\n").c_str(), stderr));
    return 0;
}

int CLogFile::Close()
{
    const std::lock_guard lock(mutex_);
    if (!isOpen_)
        return 2;
    const bool hadFile = file_ != nullptr;
    file_.reset();
    isOpen_ = false;
    return hadFile ? 0 : 2;
}

int LogPrint(CLogFile& log, std::int32_t level, const char* format, ...)
{
    if (!log.accepts(level))
        return 0;
    std::va_list arguments;
    va_start(arguments, format);
    const std::string message = formattedList(format, arguments);
    va_end(arguments);
    return log.WriteLine(message, level);
}

std::filesystem::path stateFolder()
{
    const std::filesystem::path base = userBaseFolder("XDG_STATE_HOME", ".local/state");
    if (base.empty())
        return base;
    std::filesystem::path folder = base / "tessaview3";
    std::error_code failure;
    std::filesystem::create_directories(folder, failure);
    return folder;
}

std::string logPathFor(const std::filesystem::path& executable)
{
    std::string path = executable.string();
    if (path.size() < 5)
        return "quorva.txt";
    if (hasThreeLetterExtension(path))
        path.replace(path.size() - 3, 3, "txt");
    else
        path += ".txt";
    if (isWritable(path) && !isInstalled(executable))
        return path;
    const std::filesystem::path folder = stateFolder();
    return folder.empty() ? path : (folder / std::filesystem::path(path).filename()).string();
}

int openApplicationLog(const std::string& path)
{
    const auto open = [](const std::string& file) {
        return g_log.Open(file, log_open::kFile | log_open::kDebugger | log_open::kUnshared,
                          log_prefix::kTime | log_prefix::kElapsed | log_prefix::kLevel |
                              log_prefix::kLineNumber,
                          0);
    };
    std::string file = path;
    int status = open(file);
    for (int number = 2; status == kInUse; ++number) {
        file = numbered(path, number);
        status = open(file);
    }
    g_log.SetLevel(log_level::kDetail);
    LogPrint(g_log, log_level::kInformation, "%s", kFirstMessage.data());
    if (status == 0 && file != path) {
        constexpr const char* kSaying = "another explorer writes the log %s; this one writes %s";
        LogPrint(g_log, log_level::kInformation, kSaying, path.c_str(), file.c_str());
        std::fprintf(stderr, kSaying, asOneLine(path).c_str(), asOneLine(file).c_str());
        std::fputc('\n', stderr);
    }
    return status;
}

} // namespace tessaview
