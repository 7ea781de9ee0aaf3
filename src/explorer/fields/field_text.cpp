#include "explorer/fields/field_text.h"

#include "explorer/node_text.h"
#include "platform/format.h"

#include <string_view>

namespace tessaview {

namespace {

void fillBroadcast(const BroadcastText& broadcast, const NodeView& node, ValueRow& row)
{
    const CharsetRule& rule = charsetRuleOf(node);
    row.data = displayText(broadcast, rule);
    if (!broadcast.text.empty())
        row.remark = charsetRemark(broadcast, rule);
}

} // namespace

std::string numberText(const char* format, std::uint32_t number, const char* words)
{
    const std::string_view text(format);
    if (text.find("ld") != std::string_view::npos)
        return formatted(format, static_cast<long>(static_cast<std::int32_t>(number)));
    if (text.find("lu") != std::string_view::npos)
        return formatted(format, static_cast<unsigned long>(number));
    return formatted(format, number, words);
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
}

void fillPid(int pid, ValueRow& row)
{
    row.item = RowItem::Pid;
    row.pid = pid;
}

} // namespace tessaview
