#include "charset/character_table.h"

#include "charset/iso6937.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iconv.h>
#include <map>
#include <memory>
#include <type_traits>

namespace tessaview {

namespace {

struct ConverterCloser {
    void operator()(iconv_t converter) const { iconv_close(converter); }
};
using Converter = std::unique_ptr<std::remove_pointer_t<iconv_t>, ConverterCloser>;

Converter openConverter(const char* encoding)
{
    iconv_t converter = iconv_open("UTF-32LE", encoding);
    const bool isUnknown = reinterpret_cast<std::intptr_t>(converter) == -1;
    return Converter(isUnknown ? nullptr : converter);
}

/// Stands for what a converter stopped at, and gives how many bytes that is. A control code of a
/// two-byte table, 0xE080 to 0xE09F, is none of its characters.
std::size_t appendUnread(std::u32string& out, std::string_view rest, bool isTwoByte)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(rest[i]); };
    const bool isPair = isTwoByte && rest.size() > 1 && at(0) >= 0x80 && at(1) >= 0x80;
    const bool isControl = isPair && at(0) == 0xE0 && at(1) < 0xA0;
    out.push_back(isControl ? 0xE000U + at(1) : kReplacement);
    return isPair ? 2 : 1;
}

std::u32string converted(std::string_view text, const char* encoding, bool isTwoByte)
{
    std::u32string out;
    const Converter converter = openConverter(encoding);
    if (!converter) {
        out.assign(text.size(), kReplacement);
        return out;
    }
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
        const std::size_t skipped = appendUnread(out, {from, left}, isTwoByte);
        from += skipped;
        left -= skipped;
        iconv(converter.get(), nullptr, nullptr, nullptr, nullptr);
    }
    return out;
}

/// The upper half of a table of one byte a character.
using UpperHalf = std::array<char32_t, 128>;

UpperHalf upperHalf(const char* encoding)
{
    UpperHalf half{};
    for (std::size_t i = 0; i < half.size(); ++i) {
        const char byte = static_cast<char>(i + 0x80);
        half[i] = converted({&byte, 1}, encoding, false).front();
    }
    return half;
}

std::u32string singleByte(std::string_view text, const CharacterTable& table)
{
    // Asking iconv for every text would take most of the time that a large list takes.
    static const auto halves = [] {
        std::map<const CharacterTable*, UpperHalf> all;
        for (const CharacterTable& each : selectableTables())
            if (each.decode == singleByte)
                all.emplace(&each, upperHalf(each.encoding));
        return all;
    }();
    const UpperHalf& half = halves.at(&table);
    std::u32string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        out.push_back(byte < 0x80 ? byte : half[byte - 0x80U]);
    }
    return out;
}

std::u32string twoByte(std::string_view text, const CharacterTable& table)
{
    return converted(text, table.encoding, true);
}

std::u32string utf8(std::string_view text, const CharacterTable& /*table*/)
{
    return converted(text, "UTF-8", false);
}

/// Sixteen bits a character: a surrogate is none.
std::u32string sixteenBits(std::string_view text, const CharacterTable& /*table*/)
{
    std::u32string out;
    for (std::size_t i = 0; i + 1 < text.size(); i += 2)
        out.push_back(static_cast<char32_t>(static_cast<unsigned char>(text[i]) << 8 |
                                            static_cast<unsigned char>(text[i + 1])));
    if (text.size() % 2 != 0)
        out.push_back(kReplacement);
    return out;
}

std::u32string iso6937(std::string_view text, const CharacterTable& /*table*/)
{
    return fromIso6937(text);
}

// clang-format off
constexpr std::array kSelectable{
    CharacterTable{"iso-6937",     "ISO 6937",        "Latin, the broadcast default", iso6937},
    CharacterTable{"iso-8859-1",   "ISO/IEC 8859-1",  "Western European",      singleByte, "ISO-8859-1"},
    CharacterTable{"iso-8859-2",   "ISO/IEC 8859-2",  "Central European",      singleByte, "ISO-8859-2"},
    CharacterTable{"iso-8859-3",   "ISO/IEC 8859-3",  "Southern European",     singleByte, "ISO-8859-3"},
    CharacterTable{"iso-8859-4",   "ISO/IEC 8859-4",  "Northern European",     singleByte, "ISO-8859-4"},
    CharacterTable{"iso-8859-5",   "ISO/IEC 8859-5",  "Cyrillic",              singleByte, "ISO-8859-5"},
    CharacterTable{"iso-8859-6",   "ISO/IEC 8859-6",  "Arabic",                singleByte, "ISO-8859-6"},
    CharacterTable{"iso-8859-7",   "ISO/IEC 8859-7",  "Greek",                 singleByte, "ISO-8859-7"},
    CharacterTable{"iso-8859-8",   "ISO/IEC 8859-8",  "Hebrew",                singleByte, "ISO-8859-8"},
    CharacterTable{"iso-8859-9",   "ISO/IEC 8859-9",  "Western European, Turkish", singleByte, "ISO-8859-9"},
    CharacterTable{"iso-8859-10",  "ISO/IEC 8859-10", "Nordic",                singleByte, "ISO-8859-10"},
    CharacterTable{"iso-8859-11",  "ISO/IEC 8859-11", "Thai",                  singleByte, "ISO-8859-11"},
    CharacterTable{"iso-8859-13",  "ISO/IEC 8859-13", "Baltic",                singleByte, "ISO-8859-13"},
    CharacterTable{"iso-8859-14",  "ISO/IEC 8859-14", "Celtic",                singleByte, "ISO-8859-14"},
    CharacterTable{"iso-8859-15",  "ISO/IEC 8859-15", "Western European, euro sign", singleByte, "ISO-8859-15"},
    CharacterTable{"utf-8",        "UTF-8",           "all languages",         utf8},
    CharacterTable{"ks-x-1001",    "KS X 1001",       "Korean",                twoByte, "EUC-KR"},
    CharacterTable{"gb-2312",      "GB-2312",         "Simplified Chinese",    twoByte, "GB2312"},
    CharacterTable{"gb-18030",     "GB 18030",        "Chinese", twoByte, "GB18030"},
    CharacterTable{"big5",         "Big5",            "Traditional Chinese", twoByte, "BIG5"},
    CharacterTable{"windows-1250", "Windows-1250",    "Central European", singleByte, "WINDOWS-1250"},
    CharacterTable{"windows-1251", "Windows-1251",    "Cyrillic", singleByte, "WINDOWS-1251"},
    CharacterTable{"windows-1252", "Windows-1252",    "Western European", singleByte, "WINDOWS-1252"},
};

// Sixteen bits a character; never sent without the selector, so there is no need to choose them.
constexpr CharacterTable kUcs2{"ucs-2", "ISO/IEC 10646", "all languages", sixteenBits};
constexpr CharacterTable kBig5Ucs2{"ucs-2", "Big5 subset of ISO/IEC 10646", "Traditional Chinese", sixteenBits};
// clang-format on

consteval const CharacterTable* tableOf(std::string_view key)
{
    for (const CharacterTable& table : kSelectable)
        if (key == table.key)
            return &table;
    throw "no table has this key";
}

/// A part of ISO/IEC 8859; null for one that there is not.
constexpr const CharacterTable* isoPart(unsigned part)
{
    if (part < 1 || part > 15 || part == 12)
        return nullptr;
    return &kSelectable[part < 12 ? part : part - 1];
}
static_assert(isoPart(1) == tableOf("iso-8859-1") && isoPart(11) == tableOf("iso-8859-11") &&
              isoPart(13) == tableOf("iso-8859-13") && isoPart(15) == tableOf("iso-8859-15"));

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

std::span<const CharacterTable> selectableTables()
{
    return kSelectable;
}

const CharacterTable* findTable(std::string_view key)
{
    const auto* const found =
        std::find_if(kSelectable.begin(), kSelectable.end(), [&](const CharacterTable& table) {
            return std::ranges::equal(key, std::string_view(table.key), {}, lowered);
        });
    return found == kSelectable.end() ? nullptr : found;
}

const CharacterTable& defaultTable()
{
    return kSelectable.front();
}

Selection selectionOf(std::string_view text)
{
    const auto at = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0xFFU;
    };
    const auto selected = [&](const CharacterTable* table, std::size_t length) {
        return Selection{.table = table, .length = static_cast<int>(std::min(length, text.size()))};
    };
    const unsigned first = at(0);
    if (first >= 0x20)
        return selected(&defaultTable(), 0);
    switch (first) {
    case 0x10:
        return selected(at(1) == 0 ? isoPart(at(2)) : nullptr, 3);
    case 0x11:
        return selected(&kUcs2, 1);
    case 0x12:
        return selected(tableOf("ks-x-1001"), 1);
    case 0x13:
        return selected(tableOf("gb-2312"), 1);
    case 0x14:
        return selected(&kBig5Ucs2, 1);
    case 0x15:
        return selected(tableOf("utf-8"), 1);
    case 0x1F: // an encoding_type_id follows, none of which is public
        return selected(nullptr, 2);
    default: // 0x01 to 0x0B are the parts 5 to 15
        return selected(first >= 0x01 && first <= 0x0B ? isoPart(first + 4) : nullptr, 1);
    }
}

} // namespace tessaview
