#include "charset/display_text.h"

#include "charset/iso6937.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iconv.h>
#include <memory>
#include <string>
#include <type_traits>

namespace tessaview {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// What a text's first bytes select: the bytes that do, and the name of the table for iconv; null
/// for the default table, "" for one that is reserved.
struct Selected {
    std::size_t length;
    const char* table;
};

// Selector 0x01 and up, and the third byte behind 0x10 0x00.
constexpr std::array kSingleBytes{"",           "ISO-8859-5",  "ISO-8859-6",  "ISO-8859-7",
                                  "ISO-8859-8", "ISO-8859-9",  "ISO-8859-10", "ISO-8859-11",
                                  "",           "ISO-8859-13", "ISO-8859-14", "ISO-8859-15"};
constexpr std::array kIsoParts{"",           "ISO-8859-1",  "ISO-8859-2",  "ISO-8859-3",
                               "ISO-8859-4", "ISO-8859-5",  "ISO-8859-6",  "ISO-8859-7",
                               "ISO-8859-8", "ISO-8859-9",  "ISO-8859-10", "ISO-8859-11",
                               "",           "ISO-8859-13", "ISO-8859-14", "ISO-8859-15"};
// Selector 0x11 and up.
constexpr std::array kMultiBytes{"UTF-16BE", "EUC-KR", "GB2312", "UTF-16BE", "UTF-8"};

Selected selected(std::string_view text)
{
    const auto at = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0xFFU;
    };
    const unsigned first = at(0);
    if (text.empty() || first >= 0x20)
        return {.length = 0, .table = nullptr};
    if (first >= 1 && first < kSingleBytes.size())
        return {.length = 1, .table = kSingleBytes[first]};
    if (first == 0x10) {
        const bool isKnown = at(1) == 0 && at(2) < kIsoParts.size();
        return {.length = std::min<std::size_t>(3, text.size()),
                .table = isKnown ? kIsoParts[at(2)] : ""};
    }
    if (first >= 0x11 && first - 0x11 < kMultiBytes.size())
        return {.length = 1, .table = kMultiBytes[first - 0x11]};
    // 0x1F names a registered encoding in its second byte, of which none is public.
    return {.length = std::min<std::size_t>(first == 0x1F ? 2 : 1, text.size()), .table = ""};
}

struct ConverterCloser {
    void operator()(iconv_t converter) const { iconv_close(converter); }
};
using Converter = std::unique_ptr<std::remove_pointer_t<iconv_t>, ConverterCloser>;

Converter openConverter(const char* table)
{
    const iconv_t converter = iconv_open("UTF-32LE", table);
    return Converter(converter == reinterpret_cast<iconv_t>(-1) ? nullptr : converter);
}

/// Through iconv; what it cannot read becomes U+FFFD, one for each byte.
std::u32string converted(std::string_view text, const char* table)
{
    const Converter converter = openConverter(table);
    if (!converter)
        return std::u32string(text.size(), kReplacement);
    std::u32string out;
    std::string input(text);
    char* from = input.data();
    std::size_t left = input.size();
    while (left > 0) {
        std::array<char32_t, 256> block{};
        char* to = reinterpret_cast<char*>(block.data());
        std::size_t room = sizeof(block);
        const std::size_t result = iconv(converter.get(), &from, &left, &to, &room);
        out.append(block.data(), (sizeof(block) - room) / sizeof(char32_t));
        if (result != static_cast<std::size_t>(-1) || room < sizeof(char32_t))
            continue;
        out.push_back(kReplacement);
        ++from;
        --left;
        iconv(converter.get(), nullptr, nullptr, nullptr, nullptr);
    }
    return out;
}

void appendUtf8(std::string& out, char32_t c)
{
    const auto put = [&](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

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

} // namespace

std::string displayText(std::string_view broadcast)
{
    if (isPlain(broadcast))
        return std::string(broadcast);
    const Selected selection = selected(broadcast);
    const std::string_view text = broadcast.substr(selection.length);
    if (!selection.table)
        return shown(fromIso6937(text));
    if (*selection.table == '\0') // a table nobody knows: what is plain can still be read
        return shown(converted(text, "ASCII"));
    return shown(converted(text, selection.table));
}

std::string registryText(std::string_view text)
{
    if (isPlain(text))
        return std::string(text);
    return shown(converted(text, "WINDOWS-1252"));
}

} // namespace tessaview
