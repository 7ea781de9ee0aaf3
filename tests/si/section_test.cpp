#include "si/section.h"

#include "si/crc32.h"
#include "si/eit.h"
#include "si/nit.h"
#include "si/pat.h"
#include "si/pmt.h"
#include "si/sdt.h"
#include "si/tdt.h"
#include "si/time.h"
#include "si/tot.h"
#include "tests/support/section_cases.h"

#include <random>

using namespace lib13818;
using test::failureOf;
using test::hex;

namespace {

constexpr const char* kPat = "00 B0 0D 00 01 C1 00 00 00 01 E1 00 E8 F9 5E 7D";

/// The section with one byte changed and, if wanted, its CRC_32 put right again.
test::Bytes changed(std::string_view section, std::size_t at, uint8_t value, bool repairCrc)
{
    test::Bytes bytes = hex(section);
    bytes[at] = value;
    if (!repairCrc)
        return bytes;
    bytes.resize(bytes.size() - 4);
    return test::Writer().bytes(bytes).u32(test::crc32(bytes)).get();
}

/// The offset in the section of the byte that a failed header check names.
template <class Table>
std::ptrdiff_t failingByte(const test::Bytes& section)
{
    Table table;
    try {
        table.parse(section.data());
    } catch (const error& failure) {
        EXPECT_EQ(failure.code, kMalformedHeader);
        return failure.position - section.data();
    }
    return -1;
}

} // namespace

TEST(LongSection, readsItsHeaderToTheOutermostBits)
{
    const auto pat = test::parsed<Pat>(
        test::longSection(0x00, 0xFFFE, {}, {.version = 31, .number = 0xFE, .last = 0xFF}));
    EXPECT_EQ(pat.table_id_extension, 0xFFFE);
    EXPECT_EQ(pat.version_number, 31);
    EXPECT_EQ(pat.current_next_indicator, 1);
    EXPECT_EQ(pat.section_number, 0xFE);
    EXPECT_EQ(pat.last_section_number, 0xFF);
    EXPECT_EQ(pat.section_length, 9);
    EXPECT_EQ(test::parsed<Pat>(hex(kPat)).CRC_32, 0xE8F95E7DU);
}

TEST(LongSection, reportsDamageBeforeAnythingElse)
{
    const auto size = hex(kPat).size();
    for (std::size_t i = 3; i < size; ++i)
        EXPECT_EQ(failureOf<Pat>(changed(kPat, i, hex(kPat)[i] ^ 0x40, false)), "-1: crc error")
            << i;
    EXPECT_EQ(failureOf<Pat>(changed(kPat, 0, 0x99, false)), "-1: crc error");
    EXPECT_EQ(failureOf<Pat>(changed(kPat, 0, 0x99, true)), "-1: invalid table id");
    EXPECT_EQ(failingByte<Pat>(changed(kPat, 1, 0x30, true)), 0);
    EXPECT_EQ(failureOf<Pat>(changed(kPat, 1, 0xF0, true)), "");
}

TEST(LongSection, refusesARangeShorterThanItsLength)
{
    const auto bytes = hex(kPat);
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        Pat pat;
        const auto block = test::exactly({bytes.data(), size});
        EXPECT_THROW(pat.parse(std::span<const uint8_t>(block.get(), size)), error) << size;
    }
}

TEST(ShortSection, testsItsHeaderBits)
{
    constexpr const char* kTdt = "70 70 05 C0 79 12 45 00";
    EXPECT_EQ(failureOf<Tdt>(hex(kTdt)), "");
    EXPECT_EQ(failingByte<Tdt>(changed(kTdt, 1, 0xF0, false)), 0);
    EXPECT_EQ(failingByte<Tdt>(changed(kTdt, 1, 0x74, false)), 1);
    EXPECT_EQ(failingByte<Tdt>(changed(kTdt, 1, 0x78, false)), 1);
    EXPECT_EQ(failingByte<Tdt>(hex("73 F0 05 C0 79 12 45 00")), 0) << "before the table_id";
    EXPECT_EQ(failureOf<Tdt>(changed(kTdt, 0, 0x73, false)), "-1: invalid table id");
    EXPECT_EQ(failureOf<Tdt>(hex("70 70 04 C0 79 12 45")), "-1: too little data");
}

TEST(Crc32, equalsTheBitwiseOneAtEveryLength)
{
    test::Bytes bytes(4700); // longer than four of the longest chains
    std::mt19937 random(7);
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>(random());
    for (std::size_t count = 0; count <= bytes.size(); ++count) {
        const uint32_t expected = test::crc32(std::span(bytes).first(count));
        ASSERT_EQ(crc32ByTable(bytes.data(), count), expected) << count;
        ASSERT_EQ(crc32Mpeg2(bytes.data(), count), expected) << count;
    }
}

TEST(DateTime, countsDaysLikeACalendar)
{
    int day = 1;
    int month = 3;
    int year = 1900;
    for (unsigned mjd = 15079; mjd <= 65535; ++mjd) {
        const test::Bytes coded = test::Writer().u16(mjd).u8(0x23).u8(0x59).u8(0x58);
        const DateTime time(coded.data());
        ASSERT_EQ(std::tuple(time.day, time.month, time.year), std::tuple(day, month, year)) << mjd;
        const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
        const int lastDay = month == 2
                                ? (isLeap ? 29 : 28)
                                : (month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31);
        if (++day > lastDay) {
            day = 1;
            month = month == 12 ? 1 : month + 1;
            year += month == 1 ? 1 : 0;
        }
    }
}

TEST(DateTime, doesNotJudgeWhatItReads)
{
    std::ostringstream out;
    out << std::hex << DateTime(hex("C0 79 12 45 00").data()) << '|'
        << DateTime(hex("FF FF FF FF FF").data()) << '|' << Duration(hex("01 30 00").data()) << '|'
        << HourMinute(hex("1A 05").data()) << '|' << 16;
    EXPECT_EQ(out.str(), "13/10-1993 12:45:0|22/4-2038 165:165:165|1:30:0|20:5|16");
    const DateTime early(hex("00 00 00 00 00").data());
    EXPECT_EQ(std::tuple(early.day, early.month, early.year), std::tuple(19, -1, 1859));
    EXPECT_EQ(DateTime().second, 1);
}
