#pragma once

#include <string>
#include <string_view>

namespace tessaview {

// Everything shown to people goes through here: the results are valid UTF-8 without any control
// character, safe for a window, a terminal and a database.

/// A broadcast text, its character table selector still in front (EN 300 468 Annex A): without
/// one ISO 6937 with the euro sign at 0xA4. What a table has no character for is U+FFFD. The
/// control codes for emphasis are dropped, the one for a line break becomes a blank, others are
/// shown by their control picture.
std::string displayText(std::string_view broadcast);

/// A text of the Windows-1252 code page, as the identifier registries hold them.
std::string registryText(std::string_view text);

} // namespace tessaview
