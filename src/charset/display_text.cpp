#include "charset/display_text.h"

#include "platform/format.h"
#include "platform/utf8.h"

#include <algorithm>

namespace tessaview {

namespace {

/// Characters that move the text around them or break lines without being seen.
bool isInvisibleControl(char32_t c)
{
    return c == 0x2028 || c == 0x2029 || (c >= 0x200E && c <= 0x200F) ||
           (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069) || c == 0xFEFF;
}

/// One character as it is shown; the control codes of EN 300 468 Annex A.1 count in the two-byte
/// tables from U+E080 up.
void appendShown(std::string& out, char32_t c)
{
    const char32_t code = c >= 0xE080 && c <= 0xE09F ? c - 0xE000 : c;
    if (code == 0x86 || code == 0x87)
        return;
    if (code == 0x8A)
        out.push_back(' ');
    else if (code < 0x20)
        appendUtf8(out, 0x2400 + code);
    else if (code == 0x7F)
        appendUtf8(out, 0x2421);
    else if ((code >= 0x80 && code < 0xA0) || isInvisibleControl(c) ||
             (c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)
        appendUtf8(out, kReplacement);
    else
        appendUtf8(out, c);
}

std::string shown(const std::u32string& characters)
{
    std::string out;
    out.reserve(characters.size());
    for (const char32_t c : characters)
        appendShown(out, c);
    return out;
}

bool isPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

/// How one text is read.
struct Reading {
    Selection selection;         ///< by its own first bytes
    const CharacterTable* table; ///< by the rule too; null: only its ASCII can be read
    std::string_view body;       ///< without the selector
    bool isByRule;
};

Reading readingOf(const BroadcastText& broadcast, const CharsetRule& rule)
{
    std::string_view body = broadcast.text;
    Selection selection{};
    if (broadcast.selector) {
        // Only the first byte was taken off: operands are still in the text.
        const std::string front =
            static_cast<char>(*broadcast.selector) + std::string(body.substr(0, 2));
        selection = selectionOf(front);
        body.remove_prefix(static_cast<std::size_t>(std::max(selection.length, 1) - 1));
    } else {
        selection = selectionOf(body);
        body.remove_prefix(static_cast<std::size_t>(selection.length));
    }
    const bool isByRule = rule.table && (rule.beatsSelector || selection.length == 0);
    return {.selection = selection,
            .table = isByRule ? rule.table : selection.table,
            .body = body,
            .isByRule = isByRule};
}

/// What is plain can be read without knowing the table.
std::u32string asciiOf(std::string_view text)
{
    std::u32string out;
    for (const char c : text)
        out.push_back(static_cast<unsigned char>(c) < 0x80 ? static_cast<char32_t>(c)
                                                           : kReplacement);
    return out;
}

} // namespace

std::string displayText(const BroadcastText& broadcast, const CharsetRule& rule)
{
    if (!broadcast.selector && isPlain(broadcast.text))
        return std::string(broadcast.text);
    const Reading reading = readingOf(broadcast, rule);
    return shown(reading.table ? reading.table->decode(reading.body, *reading.table)
                               : asciiOf(reading.body));
}

std::string displayText(std::string_view broadcast)
{
    return displayText(BroadcastText{.text = broadcast});
}

std::string charsetRemark(const BroadcastText& broadcast, const CharsetRule& rule)
{
    const Reading reading = readingOf(broadcast, rule);
    const std::string table = reading.table ? reading.table->name : "unknown table";
    if (reading.isByRule) {
        std::string why = rule.beatsSelector ? ", set to beat the selector" : ", set";
        if (rule.original_network_id)
            why += formatted(" for network 0x%04X", *rule.original_network_id);
        else if (!rule.beatsSelector)
            why += " for texts without a selector";
        return table + why;
    }
    if (reading.selection.length == 0)
        return table + ", no selector";
    const unsigned selector = broadcast.selector
                                  ? *broadcast.selector
                                  : static_cast<unsigned char>(broadcast.text.front());
    return table + formatted(", by the text's selector 0x%02X", selector);
}

std::string codeText(std::string_view code)
{
    code = code.substr(0, code.find('\0'));
    if (isPlain(code))
        return std::string(code);
    const CharacterTable& latin = *findTable("iso-8859-1");
    return shown(latin.decode(code, latin));
}

std::string registryText(std::string_view text)
{
    if (isPlain(text))
        return std::string(text);
    const CharacterTable& windows = *findTable("windows-1252");
    return shown(windows.decode(text, windows));
}

} // namespace tessaview
