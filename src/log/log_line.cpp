#include "log/log_line.h"

namespace tessaview {

std::string_view cutAtCharacter(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text;
    const auto continues = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0) == 0x80;
    };
    // A character has at most three bytes after its first; what goes on longer is no UTF-8.
    std::size_t end = limit;
    while (end > 0 && limit - end < 3 && continues(end))
        --end;
    return text.substr(0, continues(end) ? limit : end);
}

namespace {

/// A character that turns the direction of what follows it: U+202A to U+202E, U+2066 to U+2069.
bool isDirection(std::string_view character)
{
    const auto within = [&](std::string_view first, std::string_view last) {
        return character >= first && character <= last;
    };
    return character.size() == 3 &&
           (within("\xE2\x80\xAA", "\xE2\x80\xAE") || within("\xE2\x81\xA6", "\xE2\x81\xA9"));
}

} // namespace

std::string asOneLine(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
        if (c < 0x20) {
            line += "\xE2\x90";
            line += static_cast<char>(0x80 + c);
        } else if (c == 0x7F) {
            line += "\xE2\x90\xA1";
        } else if (c == 0xC2 && next >= 0x80 && next <= 0x9F) {
            line += "\xEF\xBF\xBD";
            ++i;
        } else if (isDirection(text.substr(i, 3))) {
            line += "\xEF\xBF\xBD";
            i += 2;
        } else {
            line += text[i];
        }
    }
    return line;
}

std::string asLines(std::string_view text)
{
    std::string lines;
    for (std::size_t end = 0; (end = text.find('\n')) != text.npos; text.remove_prefix(end + 1))
        lines += asOneLine(text.substr(0, end)) + '\n';
    return lines + asOneLine(text);
}

} // namespace tessaview
