#include "cli/progress.h"

#include "log/log_line.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace tessaview {

namespace {

constexpr std::array<const char*, kScanLevelCount> kLevelNames{"satellite", "NIT entry",
                                                               "NIT section", "transport stream"};
constexpr std::string_view kEraseLine = "\r\x1B[K";

} // namespace

StatusLine::~StatusLine()
{
    erase();
    out_.flush();
}

void StatusLine::show(const std::string& text)
{
    if (!isTerminal())
        return;
    erase();
    // A line that fills the terminal would be continued on the next, where it cannot be erased.
    out_ << text.substr(0, columns_ - 1) << std::flush;
    isShown_ = true;
}

void StatusLine::erase()
{
    if (isShown_)
        out_ << kEraseLine;
    isShown_ = false;
}

ProgressDisplay::ProgressDisplay(std::ostream& out, std::size_t columns)
    : out_(out)
    , status_(out, columns)
{
    installOutputSink(this);
}

ProgressDisplay::~ProgressDisplay()
{
    installOutputSink(nullptr);
}

void ProgressDisplay::print(std::string_view line)
{
    const std::lock_guard lock(mutex_);
    printLine(line);
}

void ProgressDisplay::printLine(std::string_view line)
{
    const bool wasShown = status_.isShown();
    status_.erase();
    out_ << asOneLine(line) << '\n';
    if (wasShown)
        drawStatus();
}

void ProgressDisplay::reached(ScanLevel level, std::size_t number, std::size_t total)
{
    const std::lock_guard lock(mutex_);
    const auto index = static_cast<std::size_t>(level);
    levels_[index] = std::string(kLevelNames[index]).append(" ") + scanProgressText(number, total);
    for (std::size_t inner = index + 1; inner < levels_.size(); ++inner)
        levels_[inner].clear();
    if (status_.isTerminal())
        drawStatus();
    else
        printLine(levels_[index]);
}

void ProgressDisplay::hasRead(std::optional<unsigned> percent)
{
    const std::lock_guard lock(mutex_);
    read_ = percent ? std::to_string(*percent) + " % read" : "";
    drawStatus();
}

void ProgressDisplay::askForSatellite()
{
    print("You must select a satellite to scan");
}

void ProgressDisplay::drawStatus()
{
    std::string status;
    const auto add = [&](const std::string& part) {
        if (!part.empty())
            status += (status.empty() ? "" : ", ") + part;
    };
    for (const std::string& level : levels_)
        add(level);
    add(read_);
    status_.show(status);
}

ProblemsOnly::ProblemsOnly(std::ostream& out) : out_(out)
{
    installOutputSink(this);
}

ProblemsOnly::~ProblemsOnly()
{
    installOutputSink(nullptr);
}

void ProblemsOnly::printProblem(std::string_view line)
{
    out_ << asOneLine(line) << '\n';
}

std::size_t standardErrorColumns()
{
    constexpr std::size_t kUsual = 80;
    if (isatty(STDERR_FILENO) == 0)
        return 0;
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsual;
}

} // namespace tessaview
