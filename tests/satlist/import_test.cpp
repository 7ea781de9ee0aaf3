#include "satlist/scan_table.h"
#include "satlist/scan_table_import.h"
#include "tests/satlist/loaded_manager.h"
#include "tests/support/worked_cases.h"

#include <algorithm>
#include <gmock/gmock.h>

#include <gtest/gtest.h>

using namespace tessaview;
using test::LoadedManager;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string problemsOf(const ScanTable& table)
{
    std::string text;
    for (const LineProblem& problem : table.problems)
        text += std::to_string(problem.line) + ": " + problem.what + "\n";
    return text;
}

/// The text with its escapes read: "\\n" and "\\x1B".
std::string unescaped(const std::string& text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "\\n") == 0) {
            out += '\n';
            i += 1;
        } else if (text.compare(i, 2, "\\x") == 0) {
            out += static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16));
            i += 3;
        } else {
            out += text[i];
        }
    }
    return out;
}

TEST(ScanTable, readsChannelsAndReportsLinesThatCostOnlyTheirChannel)
{
    test::expectWorked("satlist/channels.txt", [](const std::string& input) {
        const ScanTable table = parseScanTable("S 11538000 V 22000000 5/6\n" + unescaped(input) +
                                               "\nS 11538000 H 22000000 5/6");
        EXPECT_GE(table.transponders.size(), 2U);
        std::ostringstream text;
        for (std::size_t i = 1; i + 1 < table.transponders.size(); ++i) {
            PrintTo(table.transponders[i], &text);
            text << '\n';
        }
        return text.str() + problemsOf(table);
    });
}

TEST(ScanTable, stopsReadingAFileThatIsNone)
{
    EXPECT_THAT(problemsOf(parseScanTable(std::string("\x7F"
                                                      "ELF\0\n\n",
                                                      7))),
                "1: this is no text file\n");
    std::string rubbish;
    for (int i = 0; i < 1000; ++i)
        rubbish += "rubbish\n";
    const ScanTable table = parseScanTable(rubbish);
    EXPECT_EQ(table.problems.size(), 101U);
    EXPECT_THAT(problemsOf(table), HasSubstr("the rest of it was not read"));
}

TEST(Import, namesSatellitesAfterTheirFiles)
{
    for (const auto& [file, name] : std::vector<std::pair<std::string, std::string>>{
             {"/a/Hotbird-13.0E", "Hotbird 13.0E"},
             {"Express-AM7-40.0E.conf", "Express-AM7 40.0E"},
             {"AMC10_C-135.0W", "AMC10 C 135.0W"},
             {"Intelsat-28-33e.TXT", "Intelsat-28 33e"},
             {"mine", "mine"},
             {"SES-4.5x", "SES-4.5x"}})
        EXPECT_EQ(satelliteNameOf(file), name);
}

class Imported : public testing::Test {
protected:
    const test::TemporaryFolder folder_;
    const LoadedManager manager_;

    std::filesystem::path file(std::string_view name, std::string_view content) const
    {
        test::writeFile(folder_ / name, content);
        return folder_ / name;
    }
    ImportReport import(const std::vector<std::filesystem::path>& files) const
    {
        return importScanTables(manager_.get(), files);
    }
};

TEST_F(Imported, transpondersGetFreeKeysAndAreNotDoubled)
{
    manager_.put("Hotbird 13.0E",
                 {{0, 2, 1071900, 1, 275000, 3, 0}, {0x13E, 1, 1093000, 0, 275000, 3, 0}}, false);
    const auto path = file("Hotbird-13.0E", "S 10719000 V 29900000 5/6\nS 10930000 V 27500000 3/4\n"
                                            "S 10992000 V 27500000\nS 10992000 V 1000000\n");
    const auto other = file("New-1.0W.conf", "\xEF\xBB\xBFS 11000000 H 27500000\n");
    EXPECT_EQ(import({path, other}).summary(),
              "Imported 3 transponders from 2 files; 2 more had the frequency and "
              "polarization of one in the list.");
    EXPECT_THAT(manager_.transponders("Hotbird 13.0E"),
                ElementsAre(TransponderEntry{0, 2, 1071900, 1, 275000, 3, 0},
                            TransponderEntry{0x13E, 1, 1093000, 0, 275000, 3, 0},
                            TransponderEntry{0, 1, 1093000, 1, 275000, 3, 1, {0}},
                            TransponderEntry{0, 3, 1099200, 1, 275000, 0, 1, {0}}));
    EXPECT_THAT(manager_.transponders("New 1.0W"),
                ElementsAre(TransponderEntry{0, 1, 1100000, 0, 275000, 0, 1, {0}}));
    EXPECT_THAT(manager_.names(true), ElementsAre("New 1.0W"));
    EXPECT_EQ(import({path, other}).added, 0U);
    EXPECT_EQ(manager_.transponders("Hotbird 13.0E").size(), 4U);
}

TEST_F(Imported, streamsOfOneTransponderAreSeveral)
{
    const std::string channel = "[C]\nDELIVERY_SYSTEM=DVBS2\nFREQUENCY=12522000\n"
                                "POLARIZATION=VERTICAL\nSYMBOL_RATE=30000000\nSTREAM_ID=";
    const auto path = file("Multi-5.0W", channel + "1\n" + channel + "3\n" + channel + "1\n");
    EXPECT_EQ(import({path}).added, 2U);
    EXPECT_EQ(import({path}).added, 0U);
    EXPECT_THAT(
        manager_.transponders("Multi 5.0W"),
        ElementsAre(
            TransponderEntry{0, 1, 1252200, 1, 300000, 0, 1, {.system = 1, .streamId = 1}},
            TransponderEntry{0, 2, 1252200, 1, 300000, 0, 1, {.system = 1, .streamId = 3}}));
}

TEST_F(Imported, filesThatCannotBeUsedAreNamedAndCostOnlyThemselves)
{
    const auto good = file("good", "S 11000000 H 27500000\nS 12 H 27500000\n");
    const auto cable = file("cable", "C 330000000 6900000 NONE QAM256\n");
    const auto empty = file("empty", "# nothing\n");
    const ImportReport report = import({folder_ / "none", folder_.path(), empty, cable, good});
    EXPECT_THAT(report.problems,
                ElementsAre(HasSubstr("none: there is no such file"),
                            HasSubstr("not a regular file"),
                            HasSubstr("empty: the file names no channel"), HasSubstr("cable:1: "),
                            HasSubstr("good:2: '12' is no frequency")));
    EXPECT_EQ(report.summary(), "Imported 1 transponder from 1 file.");
    EXPECT_THAT(manager_.names(), ElementsAre("good"));
}

TEST_F(Imported, satelliteFilesOfThePackageAreWithoutComplaint)
{
    std::vector<std::filesystem::path> files;
    for (const char* folder : {"/usr/share/dvb/dvb-s", "/usr/share/dvb/dvb-legacy/dvb-s"})
        if (std::filesystem::is_directory(folder))
            for (const auto& entry : std::filesystem::directory_iterator(folder))
                files.push_back(entry.path());
    if (files.empty())
        GTEST_SKIP() << "dtv-scan-tables is not installed";
    std::sort(files.begin(), files.end());
    const ImportReport report = import(files);
    // Frequencies that were written in MHz are the files' own fault.
    std::vector<std::string> others;
    for (const std::string& problem : report.problems)
        if (problem.find("is no frequency of a satellite in kHz") == std::string::npos)
            others.push_back(problem);
    EXPECT_THAT(others, IsEmpty());
    EXPECT_EQ(report.filesUsed, files.size());
    EXPECT_EQ(import(files).added, 0U);
    const std::filesystem::path saved = folder_ / "satlist.xml";
    ASSERT_EQ(manager_.save(saved), status::kOk);
    const LoadedManager again;
    ASSERT_EQ(again.load(saved), status::kOk);
    EXPECT_EQ(again.names(), manager_.names());
}

} // namespace
