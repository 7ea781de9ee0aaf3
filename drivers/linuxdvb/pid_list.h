#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

/// The highest packet identifier of a transport stream.
constexpr std::uint16_t kHighestPid = 0x1FFF;

/// The PIDs that a user names, in order and each once: "0x100, 256, 17-20". Throws
/// std::invalid_argument, whose text tells the user what is wrong.
std::vector<std::uint16_t> parsePids(std::string_view text);

/// "PID 0x0100"
std::string pidName(std::uint16_t pid);

} // namespace tessaview
