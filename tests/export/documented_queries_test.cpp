#include "export/database_export.h"
#include "tests/export/read_back.h"
#include "tests/export/sample_model.h"
#include "tests/support/decoded_stream.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/tuning_records.h"

#include <gmock/gmock.h>
#include <map>
#include <regex>

namespace {

using test::rowsOf;
using testing::ElementsAre;

/// The statements of the document by their headings.
std::map<std::string, std::string> documentedQueries()
{
    const std::string document =
        test::readFile(std::filesystem::path(TESSAVIEW_SOURCE_DIR) / "docs/database.md");
    const std::regex query("### ([^\n]+)\n+```sql\n([^`]+)```");
    std::map<std::string, std::string> found;
    for (std::sregex_iterator match(document.begin(), document.end(), query), end; match != end;
         ++match)
        found[(*match)[1]] = (*match)[2];
    return found;
}

/// Two networks: 1 with a stream at 12187 MHz of a scrambled, a radio and an unlisted service and
/// an empty one at 11000 MHz; 2 with a radio service.
tessaview::NetworkMap mixedModel()
{
    const auto access = [](unsigned system, unsigned pid) {
        return test::conditionalAccess(system, pid);
    };
    tessaview::NetworkMap model;
    test::addSatelliteStream(model, 1,
                             {test::pat(1105, {{2, 0x102}, {3, 0x103}, {4, 0x104}}),
                              test::sdt(test::kSdtActual, 1105, 1,
                                        {{2, {test::service(1, "Co", "Pay")}, 3, 4, true},
                                         {3, {test::service(2, "Co", "Wave")}}}),
                              test::pmt(2, 0x200, {{2, 0x201, {access(0x0500, 0x301)}}, {3, 0x202}},
                                        {access(0x0500, 0x300), access(0x0100, 0x302)}),
                              test::pmt(3, 0x210, {{4, 0x211, {access(0x0100, 0x303)}}})});
    test::addSatelliteStream(
        model, 2,
        {test::pat(7, {{5, 0x105}}),
         test::sdt(test::kSdtActual, 7, 2, {{5, {test::service(10, "", "Air")}}})});
    tessaview::Transponder other = test::decodedStream({test::pat(9, {})});
    other.tuning = test::satelliteRecord(1100000, 2, 220000, 5);
    model.store(1, std::move(other));
    return model;
}

TEST(DocumentedQueries, answerWhatTheirHeadingsPromise)
{
    const test::TemporaryFolder folder;
    const std::filesystem::path file = folder / "a.sqlite";
    ASSERT_FALSE(tessaview::exportDatabase(mixedModel(), file));
    const auto queries = documentedQueries();
    ASSERT_EQ(queries.size(), 5);
    EXPECT_THAT(rowsOf(file, queries.at("All radio services")),
                ElementsAre("Astra Satellite Network 28,2°E|7|5|Air||8191",
                            "Astra Satellite Network 19,2°E|1105|3|Wave|Co|529"));
    EXPECT_THAT(rowsOf(file, queries.at("The PIDs of a service")),
                ElementsAre("PMT|258", "PCR|512", "video|513", "audio|514",
                            "ECM, France Telecom|768", "ECM, Canal Plus|770",
                            "ECM, France Telecom|769"));
    EXPECT_THAT(rowsOf(file, queries.at("The transponders of a network by frequency")),
                ElementsAre("9|11000|L|22000|7/8|0", "1105|12187|V|27500|3/4|3"));
    EXPECT_THAT(rowsOf(file, queries.at("Services with a CA system")),
                ElementsAre("1|1105|2|Pay|768,769"));
    EXPECT_THAT(rowsOf(file, queries.at("Services that the SDT does not list")),
                ElementsAre("1|1105|4|260"));
}

} // namespace
