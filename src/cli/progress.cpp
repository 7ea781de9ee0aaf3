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

ProgressDisplay::ProgressDisplay(std::ostream& out, std::size_t columns)
    : out_(out)
    , columns_(columns)
{
    installOutputSink(this);
}

ProgressDisplay::~ProgressDisplay()
{
    installOutputSink(nullptr);
    eraseStatus();
    out_.flush();
}

void ProgressDisplay::print(std::string_view line)
{
    const bool wasShown = isStatusShown_;
    eraseStatus();
    out_ << asOneLine(line) << '\n';
    if (wasShown)
        drawStatus();
}

void ProgressDisplay::reached(ScanLevel level, std::size_t number, std::size_t total)
{
    const auto index = static_cast<std::size_t>(level);
    levels_[index] = std::string(kLevelNames[index]).append(" ") + scanProgressText(number, total);
    for (std::size_t inner = index + 1; inner < levels_.size(); ++inner)
        levels_[inner].clear();
    if (columns_ == 0) {
        print(levels_[index]);
        return;
    }
    eraseStatus();
    drawStatus();
}

void ProgressDisplay::askForSatellite()
{
    print("You must select a satellite to scan");
}

void ProgressDisplay::drawStatus()
{
    std::string status;
    for (const std::string& level : levels_)
        if (!level.empty())
            status += (status.empty() ? "" : ", ") + level;
    // A line that fills the terminal would be continued on the next, where it cannot be erased.
    out_ << status.substr(0, columns_ - 1) << std::flush;
    isStatusShown_ = true;
}

void ProgressDisplay::eraseStatus()
{
    if (isStatusShown_)
        out_ << kEraseLine;
    isStatusShown_ = false;
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
