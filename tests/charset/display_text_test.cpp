#include "charset/display_text.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

using namespace std::string_view_literals;
using tessaview::BroadcastText;
using tessaview::CharsetRule;

namespace {

struct Case {
    std::string_view broadcast;
    const char* shown;
};

void expectShown(const std::vector<Case>& cases)
{
    for (const auto& [broadcast, shown] : cases)
        EXPECT_EQ(tessaview::displayText(broadcast), shown) << testing::PrintToString(broadcast);
}

CharsetRule rule(std::string_view text)
{
    std::string problem;
    const auto parsed = tessaview::parseCharsetRule(text, problem);
    EXPECT_TRUE(parsed) << problem;
    return parsed.value_or(CharsetRule());
}

} // namespace

TEST(DisplayText, readsTheTableThatTheFirstBytesSelect)
{
    expectShown({
        {""sv, ""},
        {"Das Erste"sv, "Das Erste"},
        {"Z\xC8urich \xA4"sv, "Zürich €"}, // ISO 6937: the mark stands before its letter
        {"\xC2 \xC2\x51"sv, "´Q\u0301"},
        {"\x01\xBC\xD8\xE0"sv, "Мир"},
        {"\x02\xD3"sv, "س"},
        {"\x03\xC1"sv, "Α"},
        {"\x04\xE0"sv, "א"},
        {"\x05\xDE"sv, "Ş"},
        {"\x06\xAA"sv, "Š"},
        {"\x07\xA1"sv, "ก"},
        {"\x09\xE0"sv, "ą"},
        {"\x0A\xA1"sv, "Ḃ"},
        {"\x0B\xA4"sv, "€"},
        {"\x10\x00\x01\xFF"sv, "ÿ"},
        {"\x10\x00\x02\xB1"sv, "ą"},
        {"\x10\x00\x0F\xA4"sv, "€"},
        {"\x11\x04\x1C\x04\x38"sv, "Ми"},
        {"\x12\xB0\xA1"sv, "가"},
        {"\x13\xD6\xD0"sv, "中"},
        {"\x14\x4E\x2D"sv, "中"},
        {"\x15\xE2\x82\xAC"sv, "€"},
    });
}

TEST(DisplayText, showsWhatCannotBeReadAsReplacement)
{
    expectShown({
        {"\x08\x41\xE1"sv, "A\uFFFD"},              // no ISO 8859-12
        {"\x10\x00\x0C\x41\xE1"sv, "A\uFFFD"},      // nor by its number
        {"\x10\x00\x10\x41"sv, "A"},                // no part 16
        {"\x10\x01\x02\x41\xB1"sv, "A\uFFFD"},      // the second byte is reserved
        {"\x10\x00"sv, ""},                         // cut within the selector
        {"\x1F\x01\x41"sv, "A"},                    // an encoding nobody publishes
        {"\x11\xD8\x3D\xDE\x00"sv, "\uFFFD\uFFFD"}, // surrogates are no characters
        {"\x11\x00\x41\x00"sv, "A\uFFFD"},          // half a character
        {"\x02\xA1"sv, "\uFFFD"},                   // a hole of ISO 8859-6
        {"\x15\x41\xFF\x42"sv, "A\uFFFD"
                               "B"},
        {"\x13\xD6"sv, "\uFFFD"},
        {"\xC1"sv, "\uFFFD"}, // a mark without its letter
    });
}

TEST(DisplayText, sendsNoControlCodeOn)
{
    expectShown({
        {"a\x86"
         "b\x87"
         "c\x8A"
         "d"sv,
         "abc d"},
        {"\x05"
         "a\x8A"
         "b\x1B"sv,
         "a b\u241B"},
        {"\x11\x00\x61\xE0\x86\xE0\x8A\x00\x62"sv, "a b"},
        {"\x12\xB0\xA1\xE0\x8A\xB0\xA1"sv, "가 가"},
        {"\x15\xEE\x82\x8A\xC2\x86x"sv, " x"},
        {"a\0b\x7F\x9B"sv, "a\u2400b\u2421\uFFFD"},
        {"\x15\xE2\x80\x8F"sv, "\uFFFD"}, // a mark that turns text around
    });
}

TEST(DisplayText, putsAStrippedSelectorBack)
{
    struct Stripped {
        BroadcastText text;
        const char* shown;
    };
    const std::vector<Stripped> cases{
        {{"\xDE", 0x05}, "Ş"},
        {{"\x00\x02\xB1"sv, 0x10}, "ą"}, // its operands are still in the text
        {{"\x00"sv, 0x10}, ""},
        {{"\x01"
          "A",
          0x1F},
         "A"},
        {{"\x04\x1C", 0x11}, "М"},
        {{"A\xB1", 0x00}, "A\uFFFD"},
        {{"", 0x05}, ""},
        {{"\x15\xE2\x82\xAC", std::nullopt}, "€"}, // one that is never stripped
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(displayText(text), shown) << testing::PrintToString(text.text);
}

TEST(DisplayText, obeysARule)
{
    struct Ruled {
        const char* rule;
        BroadcastText text;
        const char* shown;
        const char* remark;
    };
    const std::vector<Ruled> cases{
        {"auto", {"\xB1"}, "±", "ISO 6937, no selector"},
        {"auto", {"\xDE", 0x05}, "Ş", "ISO/IEC 8859-9, by the text's selector 0x05"},
        {"auto", {"\x15x"}, "x", "UTF-8, by the text's selector 0x15"},
        {"auto", {"x", 0x0F}, "x", "unknown table, by the text's selector 0x0F"},
        {"iso-8859-2", {"\xB1"}, "ą", "ISO/IEC 8859-2, set for texts without a selector"},
        {"iso-8859-2", {"\xDE", 0x05}, "Ş", "ISO/IEC 8859-9, by the text's selector 0x05"},
        {"133=ISO-8859-2", {"\xB1"}, "ą", "ISO/IEC 8859-2, set for network 0x0085"},
        {"iso-8859-15,always", {"\xA4", 0x05}, "€", "ISO/IEC 8859-15, set to beat the selector"},
        {"0x0085=utf-8,always",
         {"\x10\x00\x02\xC4\x85"sv},
         "ą",
         "UTF-8, set to beat the selector for network 0x0085"},
        {"windows-1252", {"\x8A"}, "Š", "Windows-1252, set for texts without a selector"},
    };
    for (const auto& [text, broadcast, shown, remark] : cases) {
        EXPECT_EQ(displayText(broadcast, rule(text)), shown) << text;
        EXPECT_EQ(charsetRemark(broadcast, rule(text)), remark) << text;
    }
}

TEST(DisplayText, readsCodesAndRegistryTextsByTheirOwnTables)
{
    EXPECT_EQ(tessaview::codeText("d\xE9u\0"sv), "déu");
    EXPECT_EQ(tessaview::codeText("\x05 a"sv), "\u2405 a"); // no selector there
    EXPECT_EQ(tessaview::codeText("\0ab"sv), "");
    EXPECT_EQ(tessaview::registryText("19,2\xB0 \x80"), "19,2° €");
}

TEST(CharsetPolicy, findsTheRuleOfANetwork)
{
    tessaview::CharsetPolicy policy;
    policy.set(rule("iso-8859-2"));
    policy.set(rule("0x0085=auto"));
    EXPECT_EQ(toText(policy.ruleFor(0x85)), "0x0085=auto");
    EXPECT_EQ(toText(policy.ruleFor(0x86)), "iso-8859-2");
    EXPECT_EQ(toText(policy.ruleFor(std::nullopt)), "iso-8859-2");
    policy.forget(0x85);
    EXPECT_EQ(toText(policy.ruleFor(0x85)), "iso-8859-2");
}

TEST(CharsetPolicy, refusesRulesItDoesNotUnderstand)
{
    for (const char* const text :
         {"", "latin", "auto,always", "=utf-8", "0x=utf-8", "0x10000=utf-8", "12a=utf-8",
          "-1=utf-8", "utf-8,sometimes", "1=2=utf-8"}) {
        std::string problem;
        EXPECT_FALSE(tessaview::parseCharsetRule(text, problem)) << text;
        EXPECT_NE(problem, "") << text;
    }
    for (const tessaview::CharacterTable& table : tessaview::selectableTables())
        EXPECT_EQ(toText(rule(std::string("7=") + table.key + ",always")),
                  std::string("0x0007=") + table.key + ",always");
}
