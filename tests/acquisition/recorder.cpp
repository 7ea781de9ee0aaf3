#include "tests/acquisition/recorder.h"

#include "log/log_file.h"

#include <fstream>
#include <stdexcept>

namespace test {

Recorder::Recorder()
{
    using namespace tessaview; // NOLINT(google-build-using-namespace)
    constexpr std::int32_t everything = 4;
    if (g_log.Open((folder_ / "log.txt").string(), log_open::kFile, log_prefix::kLevel,
                   everything) != 0)
        throw std::runtime_error("no log");
    installOutputSink(this);
}

Recorder::~Recorder()
{
    tessaview::installOutputSink(nullptr);
    tessaview::g_log.Close();
}

void Recorder::print(std::string_view line)
{
    const std::lock_guard lock(mutex_);
    lines_.emplace_back(line);
}

void Recorder::clear()
{
    const std::lock_guard lock(mutex_);
    lines_.clear();
}

Lines Recorder::printed() const
{
    const std::lock_guard lock(mutex_);
    return lines_;
}

Lines Recorder::logged() const
{
    Lines lines;
    std::ifstream file(folder_ / "log.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

} // namespace test
