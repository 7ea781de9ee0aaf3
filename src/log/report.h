#pragma once

#include "log/log_file.h"

#include <cstdint>

namespace tessaview {

/// One line by the printf rules for the user and for the log, there at `level`.
[[gnu::format(printf, 2, 3)]] void printAndLog(std::int32_t level, const char* format, ...);

/// The same for a line about something that went wrong, logged as an error.
[[gnu::format(printf, 1, 2)]] void reportProblem(const char* format, ...);

} // namespace tessaview
