#include "platform/format.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tessaview {

std::string formattedList(const char* format, std::va_list arguments)
{
    std::va_list again;
    va_copy(again, arguments);
    std::array<char, 256> shortText{};
    const int length = std::vsnprintf(shortText.data(), shortText.size(), format, arguments);
    std::string text;
    if (length >= 0 && static_cast<std::size_t>(length) < shortText.size()) {
        text.assign(shortText.data(), static_cast<std::size_t>(length));
    } else if (length >= 0) {
        text.resize(static_cast<std::size_t>(length));
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    }
    va_end(again);
    return text;
}

std::string formatted(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    std::string text = formattedList(format, arguments);
    va_end(arguments);
    return text;
}

std::string hexList(std::span<const std::uint8_t> bytes, std::size_t most)
{
    std::string text;
    for (const std::uint8_t byte : bytes.first(std::min(bytes.size(), most)))
        text += formatted(text.empty() ? "%02X" : " %02X", unsigned{byte});
    return text;
}

} // namespace tessaview
