// The whole road, from a captured file to the decoded model: time and memory of the shell tool, or
// of other commands to compare it with, which take the stream as their last word.
//
//   whole_road_benchmark [--events=N] [--per-section=N] ["COMMAND WORD..."]...

#include "benchmarks/event_stream.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kRuns = 5;

struct Run {
    double seconds;
    double cpuSeconds;
    long kilobytes; // at the most
};

double secondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Run run(const std::string& command, const std::string& stream)
{
    std::istringstream text(command);
    std::vector<std::string> words{std::istream_iterator<std::string>(text), {}};
    words.push_back(stream);
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);

    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage used{};
    if (child < 0 || wait4(child, &status, 0, &used) != child || status != 0)
        throw std::runtime_error("it failed: " + command);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    return {.seconds = elapsed.count(),
            .cpuSeconds = secondsOf(used.ru_utime) + secondsOf(used.ru_stime),
            .kilobytes = used.ru_maxrss};
}

template <class Value>
Value median(std::vector<Run> runs, Value Run::*value)
{
    std::ranges::sort(runs, {}, value);
    return runs[runs.size() / 2].*value;
}

/// The number behind a word of a command line, or another one.
unsigned option(const std::string& word, const std::string& name, unsigned otherwise)
{
    return word.starts_with(name) ? static_cast<unsigned>(std::stoul(word.substr(name.size())))
                                  : otherwise;
}

} // namespace

int main(int argc, char** argv)
try {
    unsigned events = 700'000;
    unsigned perSection = 20;
    std::vector<std::string> commands;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        events = option(word, "--events=", events);
        perSection = option(word, "--per-section=", perSection);
        if (!word.starts_with("--"))
            commands.push_back(word);
    }
    if (commands.empty())
        commands.emplace_back(TESSAVIEW_SCAN " --tables all --format none --quiet");

    const std::filesystem::path stream = std::filesystem::temp_directory_path() /
                                         ("tessaview3-events-" + std::to_string(getpid()) + ".ts");
    writeEventStream(stream, events, perSection);
    std::printf("%u events in %ju bytes, medians of %d runs\n", events,
                std::uintmax_t{std::filesystem::file_size(stream)}, kRuns);
    std::vector<std::vector<Run>> runs(commands.size());
    for (int time = 0; time < kRuns; ++time) // one after the other, so that all meet the same load
        for (std::size_t i = 0; i < commands.size(); ++i)
            runs[i].push_back(run(commands[i], stream));
    for (std::size_t i = 0; i < commands.size(); ++i) {
        const long kilobytes = median(runs[i], &Run::kilobytes);
        std::printf("%6.2f s  %6.2f s CPU  %5ld MB  %5.0f bytes/event  %s\n",
                    median(runs[i], &Run::seconds), median(runs[i], &Run::cpuSeconds),
                    kilobytes / 1000, 1024.0 * static_cast<double>(kilobytes) / events,
                    commands[i].c_str());
    }
    std::filesystem::remove(stream);
} catch (const std::exception& problem) {
    std::fprintf(stderr, "%s\n", problem.what());
    return EXIT_FAILURE;
}
