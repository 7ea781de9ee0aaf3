#include "tests/cli/program.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

// The shell tool reading one captured stream, from the command line to the exit status.

namespace {

using namespace test;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr unsigned kNetwork = 0x3001;
constexpr unsigned kStream = 0x0451;

Bytes patSection()
{
    return pat(kStream, {{0, 0x10}, {0x1001, 0x100}});
}

Bytes nitSection()
{
    return nit(
        0x40, 0x3002, {networkName("Hill")},
        {{kStream, kNetwork, {satelliteDelivery({.frequency = 1218750, .orbitalPosition = 192})}}});
}

Bytes sdtSection()
{
    return sdt(0x42, kStream, kNetwork, {{.id = 0x1001, .descriptors = {service(1, "Co", "One")}}});
}

Bytes pmtSection()
{
    return pmt(0x1001, 0x101, {{0x02, 0x101, {}}, {0x04, 0x102, {language("eng")}}});
}

Bytes wholeStream()
{
    StreamBuilder stream;
    stream.put(0x00, patSection()).put(0x10, nitSection()).put(0x11, sdtSection());
    return stream.put(0x100, pmtSection()).build();
}

const char* const kTree = R"(ALL NETWORKS
  3001 - German Digital Terrestrial Television
    0451 - 12187H 3/4 27500
      NIT - actual network
        NID 3002
          SECTION 0000
            NETWORK_NAME_DESCRIPTOR
            STREAM_INFO
              0451
                SATELLITEDELIVERYSYSTEM_DESCRIPTOR
      SDT - actual transport stream
        ORIGINAL NID 3001
          TID 0451
            SECTION 0000
              1001
                SERVICE_DESCRIPTOR
      PAT
        0000
        1001
      PMT
        1001 - One
          STREAM_INFO
            ISO13818-2 VIDEO
            ISO13818-3 AUDIO
              ISO639LANGUAGE_DESCRIPTOR
                ISO639LANGUAGESUB_DESCRIPTOR
)";

TEST(ShellTool, printsTheTreeOfACaptureAndItsProgressApart)
{
    const ShellTool tool;
    const std::string capture = tool.file("hill.ts", wholeStream());
    const Outcome run = tool.run({capture, "--tables", "pat,pmt,nit,sdt"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, kTree);
    EXPECT_EQ(
        run.err,
        "Scanning current transponder\nGot SI tables\nGot 1 PAT sections\nGot 1 NIT sections\n"
        "Got 1 SDT sections\nGot 1 PMT section(s) for SID 1001\n");
    const Outcome quiet = tool.run({"--quiet", "--format", "none", capture});
    EXPECT_EQ(quiet.status, 0);
    EXPECT_THAT(quiet.out + quiet.err, IsEmpty());
}

/// The labels of a JSON tree as the text format prints them.
void appendLabels(std::string& out, const nlohmann::json& node, std::size_t depth)
{
    out += std::string(2 * depth, ' ') + node.at("label").get<std::string>() + "\n";
    for (const auto& child : node.at("children"))
        appendLabels(out, child, depth + 1);
}

TEST(ShellTool, printsTheSameTreeAsJson)
{
    const ShellTool tool;
    const Outcome run = tool.run({"--quiet", "--tables", "pat,pmt,nit,sdt", "--format", "json",
                                  tool.file("hill.ts", wholeStream())});
    std::string labels;
    appendLabels(labels, nlohmann::json::parse(run.out), 0);
    EXPECT_EQ(labels, kTree);
}

struct Refusal {
    std::vector<std::string> arguments;
    const char* complaint;
};

TEST(ShellTool, refusesWhatItCannotUseWithOneClearLine)
{
    const ShellTool tool;
    const std::string good = tool.file("good.ts", wholeStream());
    const std::string folder = tool.folder() / "empty-folder";
    std::filesystem::create_directory(folder);
    const std::vector<Refusal> refusals{
        {{}, "name a capture to read, or a driver with --driver"},
        {{"--colour", good}, "--colour"},
        {{good, "--format", "html"}, "--format"},
        {{good, "--tables", "pat,pmd"}, "pmd"},
        {{good, "--driver", "Toaster"}, "no driver is called 'Toaster'"},
        {{tool.folder() / "missing.ts"}, "missing.ts: cannot be opened: No such file or directory"},
        {{tool.file("empty.ts", {})}, "empty.ts: is empty"},
        {{tool.file("text.ts", Bytes(5000, 0x20))}, "text.ts: is no MPEG-2 transport stream"},
        {{folder}, "empty-folder: holds no transport streams"},
        {{"/dev/null"}, "/dev/null: is not a regular file"},
        {{good, "--log", "/proc/no/such.txt"}, "the log '/proc/no/such.txt' cannot be written"},
    };
    for (const Refusal& each : refusals) {
        const Outcome run = tool.run(each.arguments);
        EXPECT_EQ(run.status, 2) << each.complaint;
        EXPECT_THAT(run.err, HasSubstr(each.complaint));
        EXPECT_THAT(run.out, IsEmpty()) << each.complaint;
    }
}

TEST(ShellTool, saysWhatAStreamLacksThatIsNotStored)
{
    struct Case {
        Bytes stream;
        const char* reason;
    };
    const auto streamOf = [](const std::vector<std::pair<unsigned, Bytes>>& sections) {
        StreamBuilder stream;
        stream.nullPackets(5);
        for (const auto& [pid, section] : sections)
            stream.put(pid, section);
        return stream.build();
    };
    Bytes damagedPat = patSection();
    damagedPat.back() ^= 1;
    const ShellTool tool;
    for (const auto& [stream, reason] : std::vector<Case>{
             {streamOf({}), "no PAT"},
             {streamOf({{0x00, damagedPat}, {0x10, nitSection()}, {0x11, sdtSection()}}), "no PAT"},
             {streamOf({{0x00, patSection()}, {0x11, sdtSection()}}), "no NIT"},
             {streamOf({{0x00, patSection()}, {0x10, nitSection()}}), "no SDT"}}) {
        const Outcome run = tool.run({tool.file("part.ts", stream)});
        EXPECT_EQ(run.status, 1) << reason;
        EXPECT_EQ(run.out, "ALL NETWORKS\n");
        EXPECT_THAT(run.err, HasSubstr("nothing was stored: the stream carries"));
        EXPECT_THAT(run.err, HasSubstr(reason));
    }
}

TEST(ShellTool, goesOnWithTheCapturesThatCanBeUsed)
{
    const ShellTool tool;
    const Outcome run = tool.run({tool.folder() / "gone.ts", tool.file("good.ts", wholeStream())});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.err, HasSubstr("gone.ts: cannot be opened"));
    EXPECT_THAT(run.out, HasSubstr("1001 - One"));
}

TEST(ShellTool, writesTheLogItIsTold)
{
    const ShellTool tool;
    const std::string log = tool.folder() / "run.txt";
    const Outcome run = tool.run({"--log", log, tool.file("good.ts", wholeStream())});
    EXPECT_EQ(run.status, 0);
    const std::string text = readFile(log);
    EXPECT_THAT(text, StartsWith("   1 - "));
    EXPECT_THAT(text, HasSubstr("<2> - Starting Tessaview 3\r\n"));
    EXPECT_THAT(text, HasSubstr("<2> - NID=0x3001\r\n"));
}

TEST(ShellTool, saysThatItsOutputCannotBeWritten)
{
    const ShellTool tool;
    const Outcome run = tool.runInto("/dev/full", {"--quiet", tool.file("good.ts", wholeStream())});
    EXPECT_NE(run.status, 0);
    EXPECT_THAT(run.err, HasSubstr("the output cannot be written"));
}

TEST(ShellTool, listsItsDriversAndTellsItsVersion)
{
    const ShellTool tool;
    const Outcome drivers = tool.run({"--list-drivers"});
    EXPECT_EQ(drivers.status, 0);
    EXPECT_THAT(drivers.out, HasSubstr("Captured transport streams  {8F6E0A52-"));
    EXPECT_THAT(tool.run({"--x\x1B[2J"}).err, HasSubstr("--x\u241B[2J"));
    EXPECT_THAT(tool.run({"\x1B[2J.ts"}).err, HasSubstr("\u241B[2J.ts"));
    EXPECT_THAT(tool.run({"--version"}).out, HasSubstr("3.0"));
    EXPECT_THAT(tool.run({"--help"}).out, HasSubstr("--tables all|default|LIST|MASK"));
}

} // namespace
