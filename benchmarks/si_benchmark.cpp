// What the decoding of sections costs in time and in memory.

#include "si/crc32.h"
#include "si/eit.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <array>
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <random>
#include <string>
#include <vector>

namespace {

using lib13818::DescriptorSet;
using lib13818::Eit;
using test::Bytes;

Bytes randomBytes(std::size_t count)
{
    std::mt19937 random(1);
    Bytes bytes(count);
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>(random());
    return bytes;
}

/// The same table-driven CRC, one lookup after the other: what there is to beat.
uint32_t singleChain(const Bytes& bytes)
{
    static const std::array<uint32_t, 256> kTable = [] {
        std::array<uint32_t, 256> table{};
        for (uint32_t i = 0; i < table.size(); ++i) {
            table[i] = i << 24;
            for (int bit = 0; bit < 8; ++bit)
                table[i] = table[i] << 1 ^ ((table[i] >> 31) * 0x04C11DB7);
        }
        return table;
    }();
    uint32_t crc = 0xFFFFFFFF;
    for (const uint8_t byte : bytes)
        crc = crc << 8 ^ kTable[(crc >> 24) ^ byte];
    return crc;
}

void crcSingleChain(benchmark::State& state)
{
    const Bytes bytes = randomBytes(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto pass : state)
        benchmark::DoNotOptimize(singleChain(bytes));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(crcSingleChain)->Arg(183)->Arg(1024)->Arg(4096);

void crc(benchmark::State& state)
{
    const Bytes bytes = randomBytes(static_cast<std::size_t>(state.range(0)));
    for ([[maybe_unused]] auto pass : state)
        benchmark::DoNotOptimize(lib13818::crc32Mpeg2(bytes.data(), bytes.size()));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(crc)->Arg(183)->Arg(512)->Arg(1024)->Arg(4096);

const std::string kSynopsis = "A keeper, a storm and a ship that was never on the chart: the last "
                              "night of the old light, told by who was there. (2/6)";

/// What an event of a schedule carries: four descriptors, or six with an item list and a reference.
std::vector<Bytes> eventDescriptors(bool isRich)
{
    std::vector<Bytes> descriptors{test::shortEvent("eng", "The Lighthouse Keepers", kSynopsis),
                                   test::content(0x15), test::parentalRating("GBR", 9),
                                   test::component(1, 3, 1, "eng", "16:9")};
    if (isRich) {
        test::Writer extended;
        const test::Writer items = test::Writer().countedText("Director").countedText("A. Keeper");
        extended.u8(0x00)
            .text("eng")
            .u8(static_cast<unsigned>(items.get().size()))
            .bytes(items.get())
            .countedText(kSynopsis);
        descriptors.push_back(test::descriptor(0x4E, extended.get()));
        descriptors.push_back(test::component(2, 3, 2, "eng", "stereo"));
    }
    return descriptors;
}

/// The sections of a week of schedule, as full as broadcasters fill them.
std::vector<Bytes> schedule(bool isRich)
{
    constexpr std::size_t kSections = 400;
    const auto descriptors = eventDescriptors(isRich);
    const std::size_t eventBytes = 12 + test::joined(descriptors).size();
    std::vector<Bytes> sections;
    for (unsigned number = 0; number < kSections; ++number) {
        std::vector<test::Event> events;
        for (unsigned id = 0; (id + 1) * eventBytes < 4000; ++id)
            events.push_back({.id = number * 64 + id,
                              .mjd = 61368,
                              .start = 120000,
                              .duration = 10000,
                              .descriptors = descriptors});
        sections.push_back(test::eit(0x50, number, 1, 1, events));
    }
    return sections;
}

void decodeSchedule(benchmark::State& state)
{
    const auto sections = schedule(state.range(0) == 6);
    std::size_t bytes = 0;
    for (const Bytes& section : sections)
        bytes += section.size();
    std::size_t events = 0;
    std::size_t heap = 0;
    for ([[maybe_unused]] auto pass : state) {
        const std::size_t before = mallinfo2().uordblks;
        std::vector<Eit> tables(sections.size());
        for (std::size_t i = 0; i < sections.size(); ++i)
            tables[i].parse(std::span<const uint8_t>(sections[i]));
        heap = mallinfo2().uordblks - before;
        events = 0;
        for (const Eit& table : tables)
            events += table.events.size();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes));
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(sections.size()));
    state.counters["events"] = static_cast<double>(events);
    state.counters["heap_bytes_per_event"] =
        static_cast<double>(heap) / static_cast<double>(events);
}
// Of events with four descriptors and with six; items are sections.
BENCHMARK(decodeSchedule)->Arg(4)->Arg(6)->Unit(benchmark::kMillisecond);

/// A walk over two of the lists of a loop of six descriptors, which decodes what it comes to.
void readSet(benchmark::State& state)
{
    const Bytes loop = test::joined(eventDescriptors(true));
    DescriptorSet set;
    lib13818::walkChecked(set, loop);
    for ([[maybe_unused]] auto pass : state) {
        for (const auto& event : set.all<lib13818::DescriptorExtendedEvent>())
            for (const auto& item : event.items)
                benchmark::DoNotOptimize(item.item.text.data());
        for (const auto& component : set.all<lib13818::DescriptorComponent>())
            benchmark::DoNotOptimize(component.component_tag);
    }
}
BENCHMARK(readSet);

} // namespace
