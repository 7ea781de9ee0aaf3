#include "component/path_text.h"

#include "component/bstr.h"

#include <optional>

namespace tessaview {

namespace {

constexpr std::string_view kScheme = "file://";
constexpr std::string_view kDigits = "0123456789ABCDEF";

bool standsForItself(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("/-._~").find(c) != std::string_view::npos;
}

/// The byte that two hexadecimal digits at the start of a text mean.
std::optional<char> byteAt(std::string_view digits)
{
    if (digits.size() < 2)
        return std::nullopt;
    unsigned value = 0;
    for (char c : digits.substr(0, 2)) {
        const std::size_t digit =
            kDigits.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
        if (digit == std::string_view::npos)
            return std::nullopt;
        value = value * 16 + static_cast<unsigned>(digit);
    }
    return static_cast<char>(value);
}

} // namespace

std::string pathText(const std::filesystem::path& path)
{
    const std::string& bytes = path.native();
    // A path that looks like an address is written as one, too, so that it comes back as it was.
    if (toUtf8(toUtf16(bytes)) == bytes && !bytes.starts_with(kScheme))
        return bytes;
    std::string text(kScheme);
    for (const char c : bytes) {
        const auto value = static_cast<unsigned char>(c);
        if (standsForItself(c))
            text += c;
        else
            text.append({'%', kDigits[value >> 4U], kDigits[value & 0xFU]});
    }
    return text;
}

std::filesystem::path pathFromText(std::string_view text)
{
    if (!text.starts_with(kScheme))
        return text;
    std::string bytes;
    for (std::size_t i = kScheme.size(); i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes += text[i];
            continue;
        }
        const auto byte = byteAt(text.substr(i + 1));
        if (!byte)
            return text;
        bytes += *byte;
        i += 2;
    }
    return bytes;
}

} // namespace tessaview
