#include "tests/cli/program.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace test {

namespace {

constexpr const char* kProgram = TESSAVIEW_BUILD_DIR "/bin/tessaview3-scan";

/// The array that `exec` takes, over texts that stay where they are.
std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Waits for a program to end: its exit status, or the signal that ended it, negated.
int exitStatusOf(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "waitpid");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// Standard streams of a program that is to be started.
class Redirections {
public:
    Redirections(const std::string& out, const std::string& err)
    {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, 0, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, 1, out.c_str(), kWrite, 0600);
        posix_spawn_file_actions_addopen(&actions_, 2, err.c_str(), kWrite, 0600);
    }
    Redirections(const std::string& out, int err) : Redirections(out, "/dev/null")
    {
        posix_spawn_file_actions_adddup2(&actions_, err, 2);
    }
    Redirections(const Redirections&) = delete;
    Redirections& operator=(const Redirections&) = delete;
    ~Redirections() { posix_spawn_file_actions_destroy(&actions_); }

    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    static constexpr int kWrite = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_t actions_{};
};

} // namespace

ShellTool::ShellTool()
{
    const std::string home = folder_.path();
    environment_ = {"HOME=" + home,
                    "PATH=/usr/bin:/bin",
                    "LC_ALL=C.UTF-8",
                    "XDG_CONFIG_HOME=" + home + "/config",
                    "XDG_DATA_HOME=" + home + "/data",
                    "XDG_STATE_HOME=" + home + "/state"};
}

Outcome ShellTool::run(const std::vector<std::string>& arguments) const
{
    const std::string out = folder_ / "standard-output";
    Outcome run = runInto(out, arguments);
    run.out = readFile(out);
    return run;
}

template <class ErrorOutput>
pid_t ShellTool::start(const std::string& out, const ErrorOutput& err,
                       const std::vector<std::string>& arguments) const
{
    const Redirections redirections(out, err);
    std::vector<std::string> words{kProgram};
    words.insert(words.end(), arguments.begin(), arguments.end());
    // Beside the program, the logs of tests that run at the same time would meet.
    if (std::find(words.begin(), words.end(), "--log") == words.end())
        words.insert(words.begin() + 1, {"--log", folder_ / "log.txt"});
    std::vector<std::string> environment = environment_;
    pid_t child = -1;
    const int error = posix_spawn(&child, kProgram, redirections.get(), nullptr,
                                  pointersTo(words).data(), pointersTo(environment).data());
    if (error != 0)
        throw std::system_error(error, std::generic_category(), kProgram);
    return child;
}

Outcome ShellTool::runInto(const std::string& output,
                           const std::vector<std::string>& arguments) const
{
    const std::string err = folder_ / "standard-error";
    const int status = exitStatusOf(start(output, err, arguments));
    return {.status = status, .out = {}, .err = readFile(err)};
}

Outcome ShellTool::runInterrupted(const std::string& text,
                                  const std::vector<std::string>& arguments, bool again) const
{
    constexpr int kMostPresses = 100;
    constexpr int kPause = 50; // ms
    const std::string out = folder_ / "standard-output";
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe2");
    const pid_t child = start(out, ends[1], arguments);
    close(ends[1]);
    Outcome run;
    int presses = 0;
    std::array<char, 256> part{};
    for (pollfd file{.fd = ends[0], .events = POLLIN, .revents = 0};;) {
        if (poll(&file, 1, presses > 0 && again ? kPause : -1) == 0) {
            kill(child, ++presses < kMostPresses ? SIGINT : SIGKILL);
            continue;
        }
        const ssize_t size = read(ends[0], part.data(), part.size());
        if (size <= 0)
            break;
        run.err.append(part.data(), static_cast<std::size_t>(size));
        if (presses == 0 && run.err.find(text) != std::string::npos)
            presses += kill(child, SIGINT) == 0 ? 1 : 0;
    }
    close(ends[0]);
    run.status = exitStatusOf(child);
    run.out = readFile(out);
    return run;
}

std::string ShellTool::file(const std::string& name, const Bytes& content) const
{
    const std::filesystem::path path = folder_ / name;
    writeFile(path, std::string(content.begin(), content.end()));
    return path;
}

} // namespace test
