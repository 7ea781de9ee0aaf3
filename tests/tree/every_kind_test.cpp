#include "tests/support/bytes.h"
#include "tests/support/worked_cases.h"
#include "tests/tree/built_model.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <gtest/gtest.h>

using namespace test;

namespace {

std::vector<Bytes> everyDescriptor()
{
    std::vector<Bytes> descriptors;
    for (const std::string& input : inputsOf("support/every_descriptor.txt"))
        descriptors.push_back(hex(input));
    return descriptors;
}

/// Every table, and in one loop every descriptor.
std::vector<Bytes> everySection()
{
    const Bytes link = linkage(kStream, kNetwork, 1, 2);
    const Event event{.id = 0xABCD,
                      .mjd = 0xC079,
                      .start = 124505,
                      .duration = 13009,
                      .descriptors = {shortEvent("eng", "News", "")},
                      .runningStatus = 4};
    const auto schedule = [&](unsigned table, unsigned network, unsigned number) {
        return eit(table, 1, kStream, network, {event},
                   {.version = 31, .number = number, .last = 248});
    };
    return {
        pat(kStream, {{0, 0x10}, {1, 0x100}, {0xFFFE, 0x1FFF}}, {.version = 31}),
        cat({conditionalAccess(0x0604, 0x1FFF, hex("AB 00"))}),
        nit(kNitActual, kNetwork, {networkName("Net"), conditionalAccess(1, 2)},
            {{kStream, kNetwork, {link}}, {0xFFFF, 0x0001}}, {.version = 30, .last = 1}),
        nit(kNitActual, kNetwork, {}, {}, {.currentNext = 0, .number = 1, .last = 1}),
        nit(kNitOther, 0xFFFF, {}, {}),
        bat(0xFFFE, {bouquetName("Bouquet")}, {}),
        sdt(kSdtActual, kStream, kNetwork,
            {{.id = 1, .descriptors = {service(1, "ARD", "Das Erste")}, .isScrambled = true},
             {.id = 0xABCD, .descriptors = everyDescriptor(), .eitFlags = 2, .runningStatus = 7}},
            {.number = 255, .last = 255}),
        sdt(kSdtOther, 0xABCD, 0x0001, {{.id = 0xFFFF, .eitFlags = 1}}),
        pmt(1, 0x1FFF, {{0x02, 0x1ABC, {language("deu")}}, {0x1B, 0x101}, {0xFF, 0x102}}, {link},
            {.version = 17}),
        pmt(2, 0x100, {}),
        rst({{kStream, kNetwork, 0xFFFF, 0xABCD, 7}, {1, 2, 3, 4, 0}}),
        tdt(0xC079, 124505),
        tot(0xC079, 90807, {localTimeOffset("DEU", 1)}),
        schedule(0x4E, kNetwork, 0),
        schedule(0x4F, 0x0001, 1),
        schedule(0x5F, kNetwork, 0),
        schedule(0x50, kNetwork, 248),
        schedule(0x60, 0xFFFE, 7),
    };
}

} // namespace

// One text for all: whoever changes a kind sees in it what the value pane shows of it.
TEST(EveryKind, showsItsNodesAndFields)
{
    const BuiltModel built(everySection());
    expectText("tree/every_kind.txt", valuesText(built.tree.root()));
}
