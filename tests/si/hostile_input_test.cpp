#include "si/ait.h"
#include "si/bat.h"
#include "si/cat.h"
#include "si/descriptors/descriptor_set.h"
#include "si/eit.h"
#include "si/nit.h"
#include "si/pat.h"
#include "si/pmt.h"
#include "si/rst.h"
#include "si/sdt.h"
#include "si/tdt.h"
#include "si/tot.h"
#include "tests/support/section_cases.h"

#include <random>

// Whatever bytes come, a class throws the library's error or yields a value that can be copied and
// dumped. The bytes end with a heap block, so that the address sanitizer sees a read one too far.

using namespace lib13818;

namespace {

/// Fills with all zeros, all ones, any bytes, or small numbers, which make more lengths fit.
void fill(std::span<uint8_t> bytes, int kind, std::mt19937& random)
{
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>(kind == 0   ? 0
                                    : kind == 1 ? 0xFF
                                    : kind == 2 ? random()
                                                : random() % 8);
}
constexpr int kFillings = 4;

template <class Set>
std::string dumpOfSet(const Set& set)
{
    std::ostringstream out;
    set.dump(out);
    return out.str();
}

template <class Set>
void tryDescriptor(std::span<const uint8_t> descriptor)
{
    const auto block = test::exactly(descriptor);
    Set set;
    try {
        set.fill({block.get(), descriptor.size()});
    } catch (const error&) {
        ASSERT_TRUE(set.empty());
        return;
    }
    const std::string dump = dumpOfSet(set);
    ASSERT_LT(dump.size(), 60'000U);
    ASSERT_EQ(dumpOfSet(Set(set)), dump);
}

/// Every class of the set at every length.
template <class Set>
void tryEveryClass(unsigned seed)
{
    std::mt19937 random(seed);
    for (const unsigned tag : {0x00U, 0x13U, 0x65U, 0x7FU, 0x80U, 0xFFU})
        for (unsigned length = 0; length < 256; length += 15) {
            test::Bytes bytes(2 + length);
            fill(bytes, 2, random);
            bytes[0] = static_cast<uint8_t>(tag);
            bytes[1] = static_cast<uint8_t>(length);
            tryDescriptor<Set>(bytes);
        }
    Set::forEachType([&]<class List>() {
        if constexpr (requires { List::kTag; })
            for (unsigned length = 0; length < 256; ++length)
                for (int kind = 0; kind < kFillings; ++kind) {
                    test::Bytes bytes(2 + length);
                    fill(bytes, kind, random);
                    bytes[0] = List::kTag;
                    bytes[1] = static_cast<uint8_t>(length);
                    tryDescriptor<Set>(bytes);
                }
    });
}

template <class Table>
void trySection(const test::Bytes& section)
{
    Table table;
    bool isRefused = false;
    try {
        table.parse(test::exactly(section).get());
    } catch (const error&) {
        isRefused = true;
    }
    ASSERT_NE(table.parsed, isRefused);
    Table copy(table);
    copy.clear();
    ASSERT_LT(test::dumpOfTable(table).size(), 2'000'000U);
}

/// A table at every short length and at some of each size up to the largest.
template <class Table>
void tryTable(unsigned tableId, std::size_t longest)
{
    std::mt19937 random(tableId);
    constexpr bool isLong = std::is_base_of_v<LongSection, Table>;
    for (std::size_t length = 0; length <= longest; length += length < 80 ? 1 : 29)
        for (int kind = 0; kind < kFillings; ++kind) {
            test::Bytes body(length);
            fill(body, kind, random);
            trySection<Table>(isLong ? test::longSection(tableId, 1, body)
                                     : test::shortSection(tableId, body));
        }
}

} // namespace

TEST(HostileInput, descriptorsThrowOrDecode)
{
    tryEveryClass<DescriptorSet>(300468);
    tryEveryClass<AitDescriptorSet>(102812);
}

TEST(HostileInput, tablesThrowOrDecode)
{
    constexpr std::size_t kLongest = 4095 - 9;
    tryTable<Pat>(0x00, kLongest);
    tryTable<Cat>(0x01, kLongest);
    tryTable<Pmt>(0x02, kLongest);
    tryTable<Nit>(0x40, kLongest);
    tryTable<Bat>(0x4A, kLongest);
    tryTable<Sdt>(0x42, kLongest);
    tryTable<Eit>(0x50, kLongest);
    tryTable<Ait>(0x74, kLongest);
    tryTable<Tdt>(0x70, 1023);
    tryTable<Tot>(0x73, 1023);
    tryTable<Rst>(0x71, 1023);
}

/// Sections too short for header and CRC_32, whose CRC register all the same ends at 0 where they
/// are long enough to hold one.
TEST(HostileInput, sectionsTooShortForTheirHeaderThrow)
{
    for (unsigned length = 0; length < 9; ++length) {
        test::Bytes section(3 + length);
        section[1] = 0xB0;
        section[2] = static_cast<uint8_t>(length);
        if (length >= 4) {
            section.resize(section.size() - 4);
            section = test::Writer().bytes(section).u32(test::crc32(section)).get();
        }
        const char* expected = length < 4 ? "-1: crc error" : "-1: too little data";
        EXPECT_EQ(test::failureOf<Pat>(section), expected) << length;
        EXPECT_EQ(test::failureOf<Ait>(section), expected) << length;
    }
}
