#include "model/network_map.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tree/tree.h"
#include "tree/value_row.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

using namespace tessaview;

namespace {

/// A section of a schedule: twenty events of six descriptors, two of them with an entry.
test::Bytes scheduleSection()
{
    const std::vector<test::Bytes> descriptors{test::shortEvent("deu", "Tagesschau", "Nachrichten"),
                                               test::component(1, 3, 1, "deu", "stereo"),
                                               test::component(3, 1, 3, "deu", "teletext"),
                                               test::content(0x20),
                                               test::parentalRating("DEU", 9),
                                               test::linkage(0x0451, 0x0085, 1, 4)};
    std::vector<test::Event> events;
    for (unsigned id = 0; id < 20; ++id)
        events.push_back({.id = id,
                          .mjd = 0xC079,
                          .start = 200000,
                          .duration = 1500,
                          .descriptors = descriptors});
    return test::eit(0x50, 1, 1, 0x0085, events);
}

/// A little more than a million nodes: the schedules of a satellite, all of one network.
const NetworkMap& largeModel()
{
    static const NetworkMap model = [] {
        lib13818::Eit section;
        section.parse(scheduleSection());
        Transponder stream;
        for (std::uint32_t streamId = 0; streamId < 20; ++streamId)
            for (std::uint32_t service = 0; service < 10; ++service)
                for (std::uint32_t number = 0; number < 25; ++number)
                    stream.eitScheduleActual[0x0085][streamId][service].emplace(number, section);
        NetworkMap networks;
        networks.store(0x0085, std::move(stream));
        return networks;
    }();
    return model;
}

void rebuildTree(benchmark::State& state)
{
    const NetworkMap& model = largeModel();
    Tree tree;
    for (auto _ : state)
        tree.rebuild(model);
    state.counters["nodes"] = static_cast<double>(tree.size());
    state.counters["bytes/node"] =
        static_cast<double>(tree.memory()) / static_cast<double>(tree.size());
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(tree.size()));
}
BENCHMARK(rebuildTree)->Unit(benchmark::kMillisecond);

/// What printing the whole tree asks for.
void makeTexts(benchmark::State& state, bool withRows)
{
    Tree tree;
    tree.rebuild(largeModel());
    std::size_t bytes = 0;
    for (auto _ : state)
        for (NodeId id = 0; id < tree.size(); ++id) {
            const NodeView node(tree, id);
            bytes += node.label().size();
            if (!withRows)
                continue;
            for (const ValueRow& row : valueRows(node))
                bytes += row.data.size();
        }
    benchmark::DoNotOptimize(bytes);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(tree.size()));
}
BENCHMARK_CAPTURE(makeTexts, labels, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(makeTexts, labelsAndRows, true)->Unit(benchmark::kMillisecond);

} // namespace
