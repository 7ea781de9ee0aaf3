#include "drivers/capture/section_answers.h"

#include "component/task_memory.h"
#include "drivers/capture/demultiplexer.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <unordered_map>

namespace tessaview {

namespace {

void* taskMemory(std::size_t bytes)
{
    void* const block = TessaviewTaskMemAlloc(bytes);
    if (!block)
        throw std::bad_alloc();
    return block;
}

} // namespace

std::vector<std::vector<RawSection>> readSections(const std::filesystem::path& file,
                                                  std::span<const TableRequest> requests)
{
    std::vector<SectionCollector> collectors(requests.begin(), requests.end());
    std::unordered_map<int, std::vector<SectionCollector*>> byPid;
    Demultiplexer demultiplexer;
    for (SectionCollector& collector : collectors) {
        byPid[collector.pid()].push_back(&collector);
        demultiplexer.select(collector.pid());
    }
    std::size_t open = collectors.size();
    PacketFile packets(file);
    demultiplexer.run(packets, [&](int pid, std::span<const uint8_t> section) {
        for (SectionCollector* collector : byPid[pid]) {
            const bool wasComplete = collector->isComplete();
            collector->take(section);
            if (!wasComplete && collector->isComplete())
                --open;
        }
        return open > 0;
    });

    std::vector<std::vector<RawSection>> answers;
    answers.reserve(collectors.size());
    for (SectionCollector& collector : collectors)
        answers.push_back(collector.answer());
    return answers;
}

SectionList toTaskMemory(const std::vector<RawSection>& sections)
{
    SectionList list{};
    if (sections.empty())
        return list;
    list.sections = static_cast<uint8_t**>(taskMemory(sections.size() * sizeof(uint8_t*)));
    try {
        for (const RawSection& section : sections) {
            auto* const copy = static_cast<uint8_t*>(taskMemory(section.size()));
            std::memcpy(copy, section.data(), section.size());
            list.sections[list.count++] = copy;
        }
    } catch (...) {
        release(list);
        throw;
    }
    return list;
}

void release(SectionList& list)
{
    for (std::int32_t i = 0; i < list.count; ++i)
        TessaviewTaskMemFree(list.sections[i]);
    TessaviewTaskMemFree(list.sections);
    list = {};
}

} // namespace tessaview
