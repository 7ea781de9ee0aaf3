#include "app/quit_signals.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

#include <QSocketNotifier>

namespace tessaview {

namespace {

constexpr std::array kSignals{SIGHUP, SIGINT, SIGTERM};

volatile std::sig_atomic_t writeEnd = -1;

void passOn(int signal)
{
    std::signal(signal, SIG_DFL);
    const char byte = 0;
    if (::write(writeEnd, &byte, 1) < 0)
        std::raise(signal);
}

} // namespace

QuitSignals::QuitSignals(std::function<void()> quit)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals end the program as they always do
    readEnd_ = ends[0];
    writeEnd = ends[1];
    auto* const notifier = new QSocketNotifier(readEnd_, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [notifier, quit = std::move(quit)] {
        notifier->setEnabled(false);
        quit();
    });
    for (const int signal : kSignals)
        std::signal(signal, passOn);
}

QuitSignals::~QuitSignals()
{
    if (readEnd_ < 0)
        return;
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    ::close(std::exchange(writeEnd, -1));
    ::close(readEnd_);
}

} // namespace tessaview
