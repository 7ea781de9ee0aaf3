// Sections one behind the other, straight to the collectors. The first byte of each is followed
// by the section; a CRC_32 is put right unless the byte's top bit says to leave it.

#include "fuzz/request_set.h"
#include "fuzz/table_harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    std::span<const uint8_t> input(data, size);
    tessaview::SectionBudget budget(tessaview::kCollectedBytes);
    auto collectors = fuzz::everyCollector(budget);
    while (input.size() >= 4) {
        const bool isDamaged = (input[0] & 0x80) != 0;
        input = input.subspan(1);
        const std::size_t length = std::min(input.size(), lib13818::sectionSize(input.data()));
        auto section = fuzz::sectionOf(input.first(length), !isDamaged);
        input = input.subspan(length);
        for (auto& collector : collectors)
            collector.take({fuzz::exactly(section).get(), section.size()});
    }
    for (auto& collector : collectors)
        for (const auto& section : collector.answer())
            fuzz::require(section.size() == lib13818::sectionSize(section.data()));
    return 0;
}
