#include "tests/support/temporary_folder.h"

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

// From a captured file to the tree that the shell tool prints. The captures are not part of the
// project; without them there is nothing to compare.

namespace {

namespace fs = std::filesystem;
using namespace test;

/// The folder of captures: $TESSAVIEW_CAPTURES, or one beside the sources.
fs::path captureFolder()
{
    if (const char* named = std::getenv("TESSAVIEW_CAPTURES")) // NOLINT(concurrency-mt-unsafe)
        return named;
    return fs::path(TESSAVIEW_SOURCE_DIR) / "../shared/captures";
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> printedTree(const fs::path& capture)
{
    const std::string command = std::string("'") + TESSAVIEW_BUILD_DIR +
                                "/bin/tessaview3-scan' --log /dev/null --quiet --tables all '" +
                                capture.string() + "' 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string text;
    std::array<char, 4096> block{};
    while (const std::size_t size = std::fread(block.data(), 1, block.size(), pipe.get()))
        text.append(block.data(), size);
    return linesOf(text);
}

/// An asterisk stands for any text.
bool matches(const std::string& line, const std::string& expected)
{
    const std::size_t star = expected.find('*');
    if (star == std::string::npos)
        return line == expected;
    return line.size() + 1 >= expected.size() && line.starts_with(expected.substr(0, star)) &&
           line.ends_with(expected.substr(star + 1));
}

TEST(WholeRoad, endsInTheTreeThatTheCaptureSignals)
{
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path().c_str());
    const Environment components("TESSAVIEW_COMPONENT_PATH", nullptr);
    const fs::path captures = captureFolder();
    std::error_code absent;
    int compared = 0;
    for (const auto& each : fs::directory_iterator(captures / "expected", absent)) {
        if (each.path().extension() != ".tree")
            continue;
        const auto expected = linesOf(readFile(each.path()));
        const auto tree = printedTree(captures / each.path().stem().concat(".ts"));
        ASSERT_FALSE(expected.empty()) << each.path();
        for (std::size_t i = 0; i < std::max(tree.size(), expected.size()); ++i) {
            const std::string line = i < tree.size() ? tree[i] : "(no line)";
            const std::string wanted = i < expected.size() ? expected[i] : "(no line)";
            ASSERT_TRUE(matches(line, wanted)) << each.path() << ", line " << i + 1 << ":\n"
                                               << line << "\ninstead of\n"
                                               << wanted;
        }
        ++compared;
    }
    if (compared == 0)
        GTEST_SKIP() << "no captures in " << captures;
}

} // namespace
