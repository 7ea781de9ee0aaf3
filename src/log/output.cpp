#include "log/output.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <shared_mutex>
#include <string>

namespace tessaview {

namespace {

std::shared_mutex installing;
OutputSink* installed = nullptr; // guarded by installing

} // namespace

void OutputPrint(const char* format, ...)
{
    const std::shared_lock lock(installing);
    if (!installed)
        return;
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string line(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(line.data(), line.size() + 1, format, again);
    va_end(again);
    installed->print(line);
}

void OutputClear()
{
    const std::shared_lock lock(installing);
    if (installed)
        installed->clear();
}

void installOutputSink(OutputSink* sink)
{
    const std::unique_lock lock(installing);
    installed = sink;
}

} // namespace tessaview
