#include "tree/fields/field_text.h"

#include "platform/format.h"
#include "tree/tree.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace tessaview {

namespace {

void fillBroadcast(const BroadcastText& broadcast, const NodeView& node, ValueRow& row)
{
    row.data = displayText(broadcast, node.charsetRule());
    row.broadcast = broadcast;
}

/// Adds what printf makes of the conversion behind a '%' that `at` points to, and returns its last
/// character. Fields know d, u, x, X and s, a width and zeros before it: millions of rows are made
/// at once, and printf takes as long as all the rest of a row.
const char* appendConverted(std::string& text, const char* at, std::uint32_t number,
                            const char* words)
{
    const char padding = *at == '0' ? '0' : ' ';
    std::size_t width = 0;
    for (; *at >= '0' && *at <= '9'; ++at)
        width = width * 10 + static_cast<std::size_t>(*at - '0');
    if (*at == 'l')
        ++at;
    std::array<char, 16> digits{};
    char* end = digits.data();
    if (*at == 'd')
        end = std::to_chars(end, digits.end(), static_cast<std::int32_t>(number)).ptr;
    else if (*at != 's')
        end = std::to_chars(end, digits.end(), number, *at == 'u' ? 10 : 16).ptr;
    if (*at == 'X')
        std::transform(digits.data(), end, digits.data(),
                       [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    const std::string_view converted =
        *at == 's' ? std::string_view(words) : std::string_view(digits.data(), end);
    text.append(width - std::min(width, converted.size()), padding);
    text += converted;
    return at;
}

} // namespace

std::string numberText(const char* format, std::uint32_t number, const char* words)
{
    std::string text;
    for (const char* at = format; *at; ++at)
        if (*at == '%')
            at = appendConverted(text, at + 1, number, words);
        else
            text += *at;
    return text;
}

std::string realText(const char* format, double value)
{
    return formatted(format, value);
}

std::string timeText(const char* format, const lib13818::DateTime& time)
{
    return formatted(format, time.day, time.month, time.year, time.hour, time.minute, time.second);
}

void fillText(std::string_view broadcast, const NodeView& node, ValueRow& row)
{
    fillBroadcast(BroadcastText{.text = broadcast}, node, row);
}

void fillText(const lib13818::StrippedText& broadcast, const NodeView& node, ValueRow& row)
{
    fillBroadcast(BroadcastText{.text = broadcast.text, .selector = broadcast.selector}, node, row);
}

void fillText(const lib13818::Code& code, const NodeView& /*node*/, ValueRow& row)
{
    row.data = codeText({code.data(), code.size()});
}

void fillBytes(std::span<const std::uint8_t> bytes, ValueRow& row)
{
    constexpr std::size_t kMostBytes = 100;
    row.data = hexList(bytes, kMostBytes);
    row.item = RowItem::Bytes;
    row.bytes.assign(bytes.begin(), bytes.end());
    if (bytes.size() > kMostBytes)
        row.remark = "… " + std::to_string(bytes.size()) + " bytes";
}

void fillPid(int pid, ValueRow& row)
{
    row.item = RowItem::Pid;
    row.pid = pid;
}

} // namespace tessaview
