#include "component/bstr.h"

#include "component/task_memory.h"
#include "platform/utf8.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <new>

namespace {

// Room for the length keeps the text aligned for any unit size.
constexpr std::size_t kHeaderBytes = 8;
constexpr std::size_t kLengthBytes = sizeof(std::uint32_t);
constexpr char32_t kReplacement = 0xFFFD;

char* blockOf(const char16_t* bstr)
{
    // The text is the caller's view into a block that this file allocated.
    return const_cast<char*>(reinterpret_cast<const char*>(bstr)) - kHeaderBytes;
}

} // namespace

char16_t* TessaviewBstrAlloc(const char16_t* text, std::size_t units)
{
    if (units > (std::numeric_limits<std::uint32_t>::max() - 2) / sizeof(char16_t))
        return nullptr;
    const auto bytes = static_cast<std::uint32_t>(units * sizeof(char16_t));
    auto* const block = static_cast<char*>(
        TessaviewTaskMemAlloc(kHeaderBytes + std::size_t{bytes} + sizeof(char16_t)));
    if (!block)
        return nullptr;
    std::memset(block, 0, kHeaderBytes);
    std::memcpy(block + kHeaderBytes - kLengthBytes, &bytes, kLengthBytes);
    if (text)
        std::memcpy(block + kHeaderBytes, text, bytes);
    else
        std::memset(block + kHeaderBytes, 0, bytes);
    std::memset(block + kHeaderBytes + bytes, 0, sizeof(char16_t));
    return reinterpret_cast<char16_t*>(block + kHeaderBytes);
}

void TessaviewBstrFree(char16_t* bstr)
{
    if (bstr)
        TessaviewTaskMemFree(blockOf(bstr));
}

std::size_t TessaviewBstrLength(const char16_t* bstr)
{
    if (!bstr)
        return 0;
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, blockOf(bstr) + kHeaderBytes - kLengthBytes, kLengthBytes);
    return bytes / sizeof(char16_t);
}

namespace tessaview {

namespace {

/// Takes one character off the front of a UTF-8 text; a byte that starts none is taken alone.
char32_t nextCharacter(std::string_view& text)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = at(0);
    std::size_t length = 1;
    char32_t least = 0;
    char32_t value = first;
    if (first >= 0xC2 && first <= 0xDF) {
        length = 2;
        least = 0x80;
        value = first & 0x1F;
    } else if (first >= 0xE0 && first <= 0xEF) {
        length = 3;
        least = 0x800;
        value = first & 0x0F;
    } else if (first >= 0xF0 && first <= 0xF4) {
        length = 4;
        least = 0x10000;
        value = first & 0x07;
    } else if (first >= 0x80) {
        text.remove_prefix(1);
        return kReplacement;
    }
    bool wellFormed = text.size() >= length;
    for (std::size_t i = 1; wellFormed && i < length; ++i) {
        wellFormed = (at(i) & 0xC0) == 0x80;
        value = value << 6 | (at(i) & 0x3F);
    }
    const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
    if (!wellFormed || value < least || value > 0x10FFFF || isSurrogate) {
        text.remove_prefix(1);
        return kReplacement;
    }
    text.remove_prefix(length);
    return value;
}

} // namespace

std::string toUtf8(std::u16string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        const bool isHigh = unit >= 0xD800 && unit <= 0xDBFF;
        if (isHigh && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            const auto low = static_cast<char32_t>(text[++i] - 0xDC00);
            appendUtf8(out, 0x10000U + (static_cast<char32_t>(unit - 0xD800) << 10U) + low);
        } else if (unit >= 0xD800 && unit <= 0xDFFF) {
            appendUtf8(out, kReplacement);
        } else {
            appendUtf8(out, unit);
        }
    }
    return out;
}

std::u16string toUtf16(std::string_view utf8)
{
    std::u16string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t c = nextCharacter(utf8);
        if (c < 0x10000) {
            out.push_back(static_cast<char16_t>(c));
        } else {
            out.push_back(static_cast<char16_t>(0xD7C0U + (c >> 10U)));
            out.push_back(static_cast<char16_t>(0xDC00U + (c & 0x3FFU)));
        }
    }
    return out;
}

std::string bstrToUtf8(const char16_t* bstr)
{
    return toUtf8({bstr, TessaviewBstrLength(bstr)});
}

Bstr::Bstr(std::u16string_view text) : text_(TessaviewBstrAlloc(text.data(), text.size()))
{
    if (!text_)
        throw std::bad_alloc();
}

Bstr::Bstr(std::string_view utf8) : Bstr(std::u16string_view(toUtf16(utf8))) {}

char16_t** Bstr::put()
{
    TessaviewBstrFree(std::exchange(text_, nullptr));
    return &text_;
}

std::string Bstr::utf8() const
{
    return toUtf8(view());
}

} // namespace tessaview
