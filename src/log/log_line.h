#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessaview {

/// The longest prefix of a UTF-8 text that has at most `limit` bytes and ends with a whole
/// character.
std::string_view cutAtCharacter(std::string_view text, std::size_t limit);

/// A UTF-8 text as one line: control characters become their symbols (U+2400 to U+2421), those of
/// the upper range and those that turn the direction of writing U+FFFD, so that no message can
/// forge a line of the log or disturb a terminal.
std::string asOneLine(std::string_view text);

/// The same with its line ends kept.
std::string asLines(std::string_view text);

} // namespace tessaview
