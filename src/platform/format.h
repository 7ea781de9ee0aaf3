#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tessaview {

/// A text by the printf rules, of any length.
[[gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...);

/// The same over the arguments of a caller with an ellipsis of its own.
[[gnu::format(printf, 1, 0)]] std::string formattedList(const char* format, std::va_list arguments);

/// At most the first `most` bytes, in upper case: "00 1F FF".
std::string hexList(std::span<const std::uint8_t> bytes, std::size_t most);

} // namespace tessaview
