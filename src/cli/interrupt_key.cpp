#include "cli/interrupt_key.h"

#include <cerrno>
#include <csignal>
#include <semaphore.h>
#include <system_error>

namespace tessaview {

namespace {

/// A semaphore is all that a signal handler can wake a thread with.
sem_t isPressed;

void passOn(int signal)
{
    std::signal(signal, SIG_DFL);
    sem_post(&isPressed);
}

} // namespace

InterruptKey::InterruptKey(Cancellation& cancellation) : cancellation_(cancellation)
{
    sem_init(&isPressed, 0, 0);
    try {
        watcher_ = std::jthread([this] { watch(); });
        std::signal(SIGINT, passOn);
    } catch (const std::system_error&) { // NOLINT(bugprone-empty-catch): there can be no thread
    }
}

InterruptKey::~InterruptKey()
{
    std::signal(SIGINT, SIG_DFL); // from here on it ends the program
    isOver_ = true;
    sem_post(&isPressed);
}

void InterruptKey::watch()
{
    while (sem_wait(&isPressed) != 0 && errno == EINTR) {
    }
    if (isOver_)
        return;
    cancellation_.raise();
    cancellation_.tellDriver();
}

} // namespace tessaview
