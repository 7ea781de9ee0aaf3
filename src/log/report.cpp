#include "log/report.h"

#include "log/output.h"
#include "platform/format.h"

#include <cstdarg>
#include <string>

namespace tessaview {

void printAndLog(std::int32_t level, const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string text = formattedList(format, arguments);
    va_end(arguments);
    OutputPrint("%s", text.c_str());
    LogPrint(g_log, level, "%s", text.c_str());
}

void reportProblem(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    const std::string text = formattedList(format, arguments);
    va_end(arguments);
    OutputProblem("%s", text.c_str());
    LogPrint(g_log, log_level::kError, "%s", text.c_str());
}

} // namespace tessaview
