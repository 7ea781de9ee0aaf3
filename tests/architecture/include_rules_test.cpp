#include "tests/architecture/include_rules.h"

#include "tests/support/temporary_folder.h"

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

struct BadInclude {
    const char* file;
    const char* line;
    const char* problem;

    friend std::ostream& operator<<(std::ostream& out, const BadInclude& bad)
    {
        return out << bad.file << ": " << bad.line;
    }
};

class Refused : public testing::TestWithParam<BadInclude> {};

TEST_P(Refused, includeIsReportedWithItsPlace)
{
    const std::string content =
        std::string("#pragma once\n// #include \"ui/x.h\"\n") + GetParam().line + "\n";
    EXPECT_THAT(test::includeProblems(GetParam().file, content, documentedArrows()),
                ElementsAre(testing::AllOf(HasSubstr(std::string(GetParam().file) + ":3: "),
                                           HasSubstr(GetParam().problem))));
}

INSTANTIATE_TEST_SUITE_P(
    Architecture, Refused,
    testing::Values(
        BadInclude{"src/si/x.h", "#include \"model/network.h\"", "is not below 'si'"},
        BadInclude{"src/component/x.cpp", "#include \"platform/paths.h\"", "not below 'component'"},
        BadInclude{"src/log/x.cpp", "  #  include \"platform/format.h\" // why", "not below 'log'"},
        BadInclude{"src/explorer/x.cpp", "#include \"ui/main_frame.h\"", "not below 'explorer'"},
        BadInclude{"src/cli/x.cpp", "#include \"ui/main_frame.h\"", "not below 'cli'"},
        BadInclude{"src/cli/x.cpp", "#include \"drivers/capture/x.h\"", "belongs to a driver"},
        BadInclude{"src/model/x.cpp", "#include \"si/../acquisition/x.h\"", "'..'"},
        BadInclude{"src/si/descriptors/x.cpp", "#include \"../section.h\"", "'..'"},
        BadInclude{"src/si/x.cpp", "#include \"section.h\"", "is not in a room"},
        BadInclude{"src/si/x.cpp", "#include \"tests/support/bytes.h\"", "is not in a room"},
        BadInclude{"src/si/x.cpp", "#include <model/network.h>", "belongs in quotation marks"},
        BadInclude{"src/si/x.cpp", "#include TABLES", "names no file"},
        BadInclude{"src/attic/x.cpp", "#include \"si/section.h\"", "has no row"},
        BadInclude{"src/explorer/x.h", "#include <QString>", "is Qt"},
        BadInclude{"src/cli/x.cpp", "#include <QtCore/QString>", "is Qt"},
        BadInclude{"src/satlist/x.cpp", "#include \"components/satlist/x.h\"",
                   "not below 'satlist'"},
        BadInclude{"components/satlist/x.cpp", "#include \"log/log_file.h\"",
                   "not below 'components'"},
        BadInclude{"drivers/capture/x.cpp", "#include <QDialog>", "is Qt"},
        BadInclude{"drivers/capture/x.cpp", "#include \"model/network.h\"", "not below 'drivers'"},
        BadInclude{"drivers/capture/x.cpp", "#include \"log/log_file.h\"", "not below 'drivers'"},
        BadInclude{"drivers/capture/x.cpp", "#include \"drivers/capture/dialogs/x.h\"",
                   "not below 'drivers'"},
        BadInclude{"drivers/capture/x.cpp", "#include \"drivers/other/x.h\"",
                   "belongs to a driver"}));

TEST(Architecture, allowsWhatStandsBelow)
{
    const test::Arrows arrows = documentedArrows();
    EXPECT_THAT(test::includeProblems("src/ui/x.h",
                                      "#include \"ui/y.h\"\n#include \"explorer/tree.h\"\n"
                                      "#include <QWidget>\n#include <vector>\n",
                                      arrows),
                ElementsAre());
    EXPECT_THAT(test::includeProblems("drivers/capture/dialogs/x.h",
                                      "#include \"drivers/capture/driver.h\"\n#include <QDialog>\n",
                                      arrows),
                ElementsAre());
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
