#include "export/database_export.h"
#include "tests/export/read_back.h"
#include "tests/export/sample_model.h"
#include "tests/support/decoded_stream.h"
#include "tests/support/tests.h"
#include "tests/support/tuning_records.h"

#include <numeric>

namespace {

/// The bytes 00, 01, 02 and so on.
Bytes counting(std::size_t size)
{
    Bytes bytes(size);
    std::iota(bytes.begin(), bytes.end(), uint8_t{0});
    return bytes;
}

struct Export : testing::Test {
    void exportIt() const
    {
        const auto failure = exportDatabase(model, file, charsets);
        ASSERT_FALSE(failure) << failure->what();
        EXPECT_THAT(test::faultsOf(file), IsEmpty());
    }
    std::vector<std::string> rows(const std::string& sql) const { return rowsOf(file, sql); }
    /// Network 2, with a stream of each tuning.
    void storeTunings()
    {
        CableTuning cable = test::cableRecord(3'465'000);
        cable.symbol_rate = 69'000;
        cable.FEC_inner = 15;
        unsigned id = 0;
        for (const Tuning& tuning :
             {Tuning(test::satelliteRecord(1'218'749, 0, 0, 0)),
              Tuning(test::satelliteRecord(1'218'750, 3, 220'000, 15)),
              Tuning(test::satelliteRecord(UINT32_MAX, 255, UINT32_MAX, 255)), Tuning(cable),
              Tuning(test::terrestrialRecord(47'449'999)),
              Tuning(test::terrestrialRecord(47'450'000)),
              Tuning(test::terrestrialRecord(UINT32_MAX)), Tuning()}) { // the last two: not known
            Transponder stream = test::decodedStream({test::pat(++id, {})});
            stream.tuning = tuning;
            model.store(2, std::move(stream));
        }
    }

    test::TemporaryFolder folder;
    std::filesystem::path file = folder / "a.sqlite";
    NetworkMap model;
    CharsetPolicy charsets;
};

const std::vector<Bytes> kMixedStream{
    test::pat(0x0451, {{0, 0x10}, {9, 0x109}, {1, 0x101}, {2, 0x102}, {3, 0x1FFE}}),
    test::sdt(test::kSdtActual, 0x0451, 1,
              {{9,
                {test::service(2, "\x05Pr\xFCm",
                               "R\xC8"
                               "adio")},
                1}}),
    test::sdt(
        test::kSdtActual, 0x0451, 1,
        {{1, {test::service(0xFF, "", "'); DROP TABLE tb_service; --")}, 2, 4, true}, {3, {}, 0}},
        {.number = 1, .last = 1}),
    test::pmt(9, 0x209, {{6, 0x301}, {3, 0x302}, {4, 0x303}}),
    test::pmt(1, 0x1FFE,
              {{1, 0x1001, {test::conditionalAccess(0x2000, 0x1FFE, Bytes{0x0A})}},
               {2, 0x1002},
               {4, 0x1003, {test::conditionalAccess(0xFFFF, 0x10)}}},
              {test::language("deu"), test::conditionalAccess(0x0500, 0x11, counting(100))}),
    test::pmt(3, 0x400, {{5, 0x401}}),
    test::cat({test::conditionalAccess(0x0500, 0x21, Bytes{0xFE, 0xFF}),
               test::conditionalAccess(0x0100, 0x20)}),
};

TEST_F(Export, writesWhatTheModelHolds)
{
    test::addSatelliteStream(model, 0xFFFF, {test::pat(2, {{7, 0x107}})});
    test::addSatelliteStream(model, 1, kMixedStream);
    test::addSatelliteStream(model, 1, {test::pat(1, {{0, 0x10}})});
    const auto named = [](unsigned stream, const char* first, const char* second) {
        return test::sdt(test::kSdtActual, stream, 1,
                         {{5, {test::service(1, "", first)}}, {5, {test::service(2, "", second)}}});
    };
    test::addSatelliteStream(model, 1, // services of other streams, and what is listed twice
                             {test::pat(3, {{5, 0x105}, {6, 0x106}, {5, 0x1FF}}),
                              named(1, "no", "no"), named(3, "first", "second"),
                              test::pmt(5, 0x100, {{4, 2}, {2, 3}, {1, 4}, {3, 5}}),
                              test::pmt(5, 0x200, {})});
    storeTunings();
    exportIt();

    std::string all;
    for (const std::string& table :
         rows("SELECT name FROM sqlite_schema WHERE type IN "
              "('table', 'view') AND name NOT LIKE 'sqlite%' ORDER BY type, name")) {
        all += table + '\n';
        for (const std::string& row : rows("SELECT * FROM " + table + " ORDER BY 1, 2, 3"))
            all += "    " + row + '\n';
    }
    test::expectText("export/mixed_model.txt", all);
    EXPECT_THAT(rows("PRAGMA user_version"), ElementsAre("1")) << "marked as complete";
    EXPECT_FALSE(std::filesystem::exists(file.string() + "-journal"));
    EXPECT_FALSE(std::filesystem::exists(file.string() + "-wal"));
}

TEST_F(Export, writesEveryStreamServiceAndAccessOfALargeModel)
{
    model = test::manyServices(35, 20);
    exportIt();
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM tb_network"), 4);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM tb_transponder"), 35);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM tb_ca_emm"), 35);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM service_list"), 700);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM ecm_list"), 700);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM service_list WHERE VPID = SID * 16 + 1 AND "
                             "APID = VPID + 1 AND PCR = VPID AND PMT = SID * 16"),
              700);
    EXPECT_EQ(numberOf(file, "SELECT count(*) FROM tb_transponder WHERE NID = 1 + (TID - 1) / 10"),
              35);
}

TEST_F(Export, readsNamesByTheRuleOfTheirNetwork)
{
    charsets.set({.table = findTable("iso-8859-2"), .beatsSelector = true});
    charsets.set({.table = findTable("iso-8859-5"), .original_network_id = 2});
    for (const unsigned network : {1U, 2U})
        test::addSatelliteStream(
            model, network,
            {test::pat(1, {{5, 0x105}}), test::sdt(test::kSdtActual, 1, network,
                                                   {{5, {test::service(1, "\x05\xB1", "\xB1")}}})});
    exportIt();
    EXPECT_THAT(rows("SELECT PROVIDERNAME, SERVICENAME FROM tb_service ORDER BY rowid"),
                ElementsAre("\u0105|\u0105", "\u00B1|\u0411"));
}

TEST_F(Export, cutsNamesBehindTheLastCharacterThatFits)
{
    // 49 letters, then characters of one, two and three bytes in UTF-8.
    const std::string start(49, 'x');
    const auto programOf = [&](unsigned id, const std::string& name) {
        return test::Service{id, {test::service(1, name, name)}};
    };
    test::addSatelliteStream(
        model, 1,
        {test::pat(1, {{1, 1}, {2, 2}, {3, 3}, {4, 4}}),
         test::sdt(test::kSdtActual, 1, 1,
                   {programOf(1, start + "ab"), programOf(2, "\x05" + start + "\xFC"),
                    programOf(3, "\x15" + start + "\xE2\x82\xAC\xE2\x82\xAC"),
                    programOf(4, start + '\0' + "ab")})});
    exportIt();
    EXPECT_THAT(rows("SELECT SERVICENAME FROM tb_service"),
                ElementsAre(start + "a", start + "ü", start + "€", start + "\xE2\x90\x80"));
    EXPECT_THAT(rows("SELECT SERVICENAME FROM tb_service WHERE SERVICENAME <> PROVIDERNAME OR "
                     "length(SERVICENAME) <> 50"),
                IsEmpty());
}

TEST_F(Export, refusesRowsThatBreakTheKeys)
{
    test::addSatelliteStream(model, 1, kMixedStream);
    exportIt();
    const std::string keyed = "PRAGMA foreign_keys=ON; ";
    for (const char* const statement :
         {"DELETE FROM tb_network", "UPDATE tb_transponder SET NID = 2",
          "INSERT INTO tb_transponder SELECT NULL, NID, TID, 0, 0, 0, 0 FROM tb_transponder",
          "INSERT INTO tb_audio VALUES (NULL, 77, 0, '')", "UPDATE tb_service SET SID = 9",
          "UPDATE tb_service SET SID = NULL",
          "UPDATE tb_service SET SERVICENAME = printf('%51d', 1)",
          "UPDATE tb_ca_emm SET TRANSPONDER_ID = 9", "DELETE FROM tb_service"})
        EXPECT_THROW(rows(keyed + statement), std::runtime_error) << statement;
    EXPECT_NO_THROW(rows(keyed + "INSERT INTO tb_audio VALUES (NULL, 1, 33, 'deu')"));
}

} // namespace
