#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace tessaview {

/// The number that the whole text is; nothing for another text and for one that does not fit.
template <class Integer>
std::optional<Integer> wholeNumber(std::string_view text, int base = 10)
{
    Integer value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, value, base);
    if (problem != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

/// The same for a decimal number, or a hexadecimal one behind "0x", which has no sign.
template <class Integer>
std::optional<Integer> decimalOrHexadecimal(std::string_view text)
{
    if (!text.starts_with("0x") && !text.starts_with("0X"))
        return wholeNumber<Integer>(text);
    text.remove_prefix(2);
    return text.starts_with('-') ? std::nullopt : wholeNumber<Integer>(text, 16);
}

} // namespace tessaview
