#pragma once

#include "charset/charset_policy.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaview {

// Everything shown to people goes through here: the results are valid UTF-8 without any control
// character, safe for a window, a terminal and a database.

/// A text as it was broadcast. Its character table selector (EN 300 468 Annex A) still stands in
/// front, or the first byte of it was taken off and is kept beside.
struct BroadcastText {
    std::string_view text;
    std::optional<std::uint8_t> selector = {};
};

/// A broadcast text, read with the table that its selector or the rule says. What a table has no
/// character for is U+FFFD, as is a text of a table nobody knows, but for its ASCII. The control
/// codes for emphasis are dropped, the one for a line break becomes a blank, others are shown by
/// their control picture.
std::string displayText(const BroadcastText& broadcast, const CharsetRule& rule = {});
/// The same for a text whose selector is where it was broadcast.
std::string displayText(std::string_view broadcast);

/// Which table a text is read with, and why: "ISO/IEC 8859-9, by the text's selector 0x05".
std::string charsetRemark(const BroadcastText& broadcast, const CharsetRule& rule = {});

/// A language or country code, which is ISO/IEC 8859-1 and has no selector; it ends at a zero.
std::string codeText(std::string_view code);

/// A text of the Windows-1252 code page, as the identifier registries hold them.
std::string registryText(std::string_view text);

} // namespace tessaview
