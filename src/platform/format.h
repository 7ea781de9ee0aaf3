#pragma once

#include <cstdarg>
#include <string>

namespace tessaview {

/// A text by the printf rules, of any length.
[[gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...);

/// The same over the arguments of a caller with an ellipsis of its own.
[[gnu::format(printf, 1, 0)]] std::string formattedList(const char* format, std::va_list arguments);

} // namespace tessaview
