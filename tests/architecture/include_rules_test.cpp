#include "tests/architecture/include_rules.h"

#include "tests/support/worked_cases.h"

#include <gmock/gmock.h>

#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;
namespace fs = std::filesystem;

namespace {

const fs::path kRoot = TESSAVIEW_SOURCE_DIR;

test::Arrows documentedArrows()
{
    return test::parseArrows(test::readFile(kRoot / "docs/architecture.md"));
}

bool isSource(const fs::path& file)
{
    return file.extension() == ".cpp" || file.extension() == ".h" || file.extension() == ".c";
}

TEST(Architecture, everyIncludePointsDown)
{
    const test::Arrows arrows = documentedArrows();
    std::set<std::string> seen;
    std::string problems;
    for (const char* folder : {"src", "drivers", "components"}) {
        for (const auto& entry : fs::recursive_directory_iterator(kRoot / folder)) {
            if (!entry.is_regular_file() || !isSource(entry.path()))
                continue;
            const fs::path file = fs::relative(entry.path(), kRoot);
            seen.insert(test::roomOf(file));
            for (const auto& line :
                 test::includeProblems(file, test::readFile(entry.path()), arrows))
                problems += line + "\n";
        }
    }
    EXPECT_EQ(problems, "");
    for (const std::string& room : seen)
        EXPECT_TRUE(arrows.contains(room)) << room << " has no row in docs/architecture.md";
    // A walk that goes past the sources would find nothing wrong with them.
    for (const char* room :
         {"component", "si", "log", "acquisition", "cli", "drivers", "components"})
        EXPECT_TRUE(seen.contains(room)) << room;
}

TEST(Architecture, reportsBadIncludesWithTheirPlace)
{
    const test::Arrows arrows = documentedArrows();
    test::expectWorked("architecture/includes.txt", [&](const std::string& input) {
        const std::size_t blank = input.find(' ');
        std::string problems;
        for (const std::string& line : test::includeProblems(
                 input.substr(0, blank),
                 "#pragma once\n// #include \"ui/x.h\"\n#include" + input.substr(blank), arrows))
            problems += line + '\n';
        return problems;
    });
    EXPECT_THAT(
        test::includeProblems("src/log/x.cpp", "  #  include \"model/tuning.h\" // why", arrows),
        ElementsAre(HasSubstr(":1: 'model/tuning.h' is not below 'log'")));
}

TEST(Architecture, acceptsNoTableWithAnArrowThatPointsUp)
{
    const auto parse = [](const char* table) { return test::parseArrows(table); };
    EXPECT_NO_THROW(parse("| `a` | | |\n| `b` | `a` | |\n"));
    EXPECT_THROW(parse("| `b` | `a` | |\n| `a` | | |\n"), std::runtime_error);
    EXPECT_THROW(parse("| `a` | `a` | |\n"), std::runtime_error);
    EXPECT_THROW(parse("| `a` | | |\n| `a` | | |\n"), std::runtime_error);
    EXPECT_THROW(parse("no table\n"), std::runtime_error);
}

} // namespace
