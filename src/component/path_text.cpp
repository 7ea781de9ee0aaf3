#include "component/path_text.h"

#include "component/bstr.h"
#include "platform/format.h"
#include "platform/number.h"

#include <cstdint>

namespace tessaview {

namespace {

constexpr std::string_view kScheme = "file://";

bool standsForItself(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("/-._~").find(c) != std::string_view::npos;
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
        if (standsForItself(c))
            text += c;
        else
            text += formatted("%%%02X", unsigned{static_cast<unsigned char>(c)});
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
        const std::string_view digits = text.substr(i + 1, 2);
        const auto byte = wholeNumber<std::uint8_t>(digits, 16);
        if (!byte || digits.size() < 2)
            return text;
        bytes += static_cast<char>(*byte);
        i += 2;
    }
    return bytes;
}

} // namespace tessaview
