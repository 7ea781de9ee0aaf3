#include "acquisition/table_requests.h"

#include "tools/multiplex/sections.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

/// Requests by their PID, table_id, mode and program, each of them in hexadecimal.
std::string textOf(const std::vector<TableRequest>& requests)
{
    std::ostringstream text;
    text << std::hex;
    for (const TableRequest& request : requests) {
        text << ' ' << request.PID << '/' << int{request.table_id} << '/'
             << request.collection_mode;
        if (request.match_table_id_extension != 0)
            text << '/' << request.table_id_extension;
    }
    return text.str();
}

std::string requested(SiTableMask mask)
{
    return textOf(TableRequests(TableSelection::fixed(mask)).requests());
}

const std::string kAlways = " 0/0/0 10/40/0 11/42/0";

/// Each bit with its request, in the order of the batch.
const std::vector<std::pair<SiTableMask, const char*>> kOptional{
    {0x0002, " 1/1/0"},   {0x0004, " 11/4a/0"}, {0x2000, " 14/70/0"}, {0x4000, " 14/73/0"},
    {0x1000, " 13/71/0"}, {0x0020, " 10/41/3"}, {0x0800, " 11/46/4"}, {0x0040, " 12/4e/5"},
    {0x0080, " 12/4f/5"}, {0x0100, " 12/50/5"}, {0x0200, " 12/60/5"}};

TEST(TableRequests, holdThreeTablesAlwaysAndThenEachChosenOneInOrder)
{
    EXPECT_EQ(requested(0), kAlways);
    EXPECT_EQ(requested(0x0008), kAlways) << "PMTs are a batch of their own";
    std::string all = kAlways;
    for (const auto& [bit, request] : kOptional) {
        EXPECT_EQ(requested(bit), kAlways + request);
        all += request;
    }
    EXPECT_EQ(requested(kAllTables), all);
    const SiTableMask without = kAllTables & ~(0x0001U | 0x0010U | 0x0400U);
    EXPECT_EQ(requested(without), all) << "their own bits gate nothing";
}

TEST(TableRequests, tellWhereAnAnswerStands)
{
    const TableRequests some(TableSelection::fixed(si_table::kRst | si_table::kEitScheduleOther));
    EXPECT_EQ(some.place(SiTable::Rst), 3);
    EXPECT_EQ(some.place(SiTable::EitScheduleOther), 4);
    EXPECT_EQ(some.place(SiTable::Cat), std::nullopt);
    EXPECT_EQ(TableRequests(TableSelection::fixed(kAllTables)).place(SiTable::EitScheduleOther),
              13);
}

TEST(PmtRequests, nameEveryProgramOnceInThePatsOrder)
{
    lib13818::Pat pat;
    pat.parse(test::pat(1, {{0xFFFF, 0x1FFE}, {0, 0x0010}, {1, 0x0100}, {0xFFFF, 0x1FFE}}));
    EXPECT_EQ(textOf(pmtRequests(pat)), " 1ffe/2/0/ffff 100/2/0/1");
}

/// What is not named is 0 in every byte.
TEST(PmtRequests, leaveTheRestOfTheRecordEmpty)
{
    lib13818::Pat pat;
    pat.parse(test::pat(1, {{0x1234, 0x0100}}));
    test::Bytes bytes(sizeof(TableRequest));
    std::memcpy(bytes.data(), pmtRequests(pat).data(), bytes.size());
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 0), 95); // all but 01, 02, 01, 34 and 12
}

} // namespace
