#include "charset/display_text.h"

#include "tests/support/bytes.h"
#include "tests/support/worked_cases.h"

#include <optional>
#include <regex>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

using namespace std::string_view_literals;
using tessaview::BroadcastText;
using tessaview::CharsetRule;

namespace {

CharsetRule rule(std::string_view text)
{
    std::string problem;
    const auto parsed = tessaview::parseCharsetRule(text, problem);
    EXPECT_TRUE(parsed) << problem;
    return parsed.value_or(CharsetRule());
}

} // namespace

TEST(DisplayText, readsTextsByTheirTableAndSendsNoControlCodeOn)
{
    test::expectWorked("charset/texts.txt", [](const std::string& input) {
        std::smatch parts;
        EXPECT_TRUE(std::regex_match(input, parts,
                                     std::regex(R"((?:([^:]+): *)?(?:\((..)\) *)?([0-9A-F ]*))")));
        const CharsetRule ruled = parts[1].matched ? rule(parts[1].str()) : CharsetRule();
        const auto bytes = test::hex(parts[3].str());
        const std::string content(bytes.begin(), bytes.end());
        BroadcastText text{content};
        if (parts[2].matched)
            text.selector = test::hex(parts[2].str()).at(0);
        std::string shown = displayText(text, ruled);
        return shown.insert(0, 1, '\'') + "' by " + charsetRemark(text, ruled);
    });
    EXPECT_EQ(tessaview::displayText(""), "");
    EXPECT_EQ(tessaview::displayText("\x01\xBC"), "М");
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
