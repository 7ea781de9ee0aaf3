#include "model/network_map.h"

#include "tests/support/tuning_records.h"

#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

static_assert(!std::is_copy_constructible_v<Transponder>);

Transponder transponderOf(std::uint32_t id)
{
    Transponder transponder;
    transponder.transport_stream_id = id;
    return transponder;
}

TEST(NetworkMap, storesEachStreamOnceAndReplacesNothing)
{
    NetworkMap model;
    EXPECT_TRUE(model.store(0xFFFF, transponderOf(0x0451)));
    const Transponder* const first = model.find(0xFFFF, 0x0451);
    EXPECT_FALSE(model.store(0xFFFF, transponderOf(0x0451)));
    EXPECT_EQ(model.find(0xFFFF, 0x0451), first);
    EXPECT_EQ(model.find(0xFFFF, 0x0452), nullptr);
    EXPECT_EQ(model.find(0xFFFE, 0x0451), nullptr);
}

TEST(NetworkMap, goesThroughNetworksInAscendingOrder)
{
    NetworkMap model;
    for (const std::uint32_t network : {0x2000U, 0xFFFFU, 0x0001U})
        model.store(network, transponderOf(1));
    std::vector<std::uint32_t> order;
    for (const auto& [id, network] : model) {
        EXPECT_EQ(network.original_network_id, id);
        order.push_back(id);
    }
    EXPECT_EQ(order, (std::vector<std::uint32_t>{0x0001, 0x2000, 0xFFFF}));
    model.clear();
    EXPECT_TRUE(model.empty());
}

TEST(TransponderText, namesThePolarizationByItsLetter)
{
    for (const auto& [polarization, letter] :
         {std::pair(0, 'H'), {1, 'V'}, {2, 'L'}, {3, 'R'}, {4, 'U'}, {255, 'U'}}) {
        Transponder transponder = transponderOf(0xABC);
        transponder.tuning = test::satelliteRecord(1218799, polarization, 275009, 3);
        EXPECT_EQ(transponderText(transponder),
                  std::string("0ABC - 12187") + letter + " 3/4 27500");
    }
}

TEST(TransponderText, isWrittenForEveryKindOfTuningAndItsLargestNumbers)
{
    Transponder transponder = transponderOf(0xFFFF);
    EXPECT_EQ(transponderText(transponder), "FFFF - Unknown");

    transponder.tuning = test::cableRecord(0xFFFFFFFF);
    EXPECT_EQ(transponderText(transponder), "FFFF - 429496729");

    transponder.tuning = test::terrestrialRecord(0xFFFFFFFF);
    EXPECT_EQ(transponderText(transponder), "FFFF - 42949672");

    transponder.tuning = test::satelliteRecord(0xFFFFFFFF, 0, 0xFFFFFFFF, 255);
    EXPECT_EQ(transponderText(transponder), "FFFF - 42949672H reserved 429496729");
}

} // namespace
