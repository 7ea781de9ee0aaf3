#include "log/output.h"

#include "platform/format.h"

#include <condition_variable>
#include <cstdarg>
#include <memory>
#include <mutex>
#include <utility>

namespace tessaview {

namespace {

/// A sink from its installation until its last call has returned.
struct Installation {
    OutputSink* sink = nullptr;
    int running = 0; ///< calls
};

std::mutex installing;
std::condition_variable callEnded;
std::shared_ptr<Installation> installed; // guarded by installing, as are its calls

/// The right to call the installed sink, if there is one.
class Call {
public:
    Call()
    {
        const std::lock_guard lock(installing);
        installation_ = installed;
        if (installation_)
            ++installation_->running;
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call()
    {
        if (!installation_)
            return;
        const std::lock_guard lock(installing);
        --installation_->running;
        callEnded.notify_all();
    }

    OutputSink* sink() const { return installation_ ? installation_->sink : nullptr; }

private:
    std::shared_ptr<Installation> installation_;
};

/// Hands a line to the sink, if there is one, by one of its functions.
void hand(void (OutputSink::*show)(std::string_view), const char* format, std::va_list arguments)
{
    const Call call;
    if (call.sink())
        (call.sink()->*show)(formattedList(format, arguments));
}

} // namespace

void OutputPrint(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    hand(&OutputSink::print, format, arguments);
    va_end(arguments);
}

void OutputProblem(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    hand(&OutputSink::printProblem, format, arguments);
    va_end(arguments);
}

void OutputClear()
{
    const Call call;
    if (call.sink())
        call.sink()->clear();
}

void installOutputSink(OutputSink* sink)
{
    auto next = sink ? std::make_shared<Installation>(Installation{.sink = sink}) : nullptr;
    std::unique_lock lock(installing);
    const auto former = std::exchange(installed, std::move(next));
    if (former)
        callEnded.wait(lock, [&] { return former->running == 0; });
}

} // namespace tessaview
