#include "drivers/capture/section_answers.h"

#include "component/task_memory.h"
#include "drivers/capture/demultiplexer.h"
#include "platform/format.h"

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

Answers readSections(const std::filesystem::path& file, std::span<const TableRequest> requests,
                     std::size_t limit)
{
    SectionBudget budget(limit);
    std::vector<SectionCollector> collectors;
    collectors.reserve(requests.size());
    for (const TableRequest& request : requests)
        collectors.emplace_back(request, budget);
    std::unordered_map<std::uint32_t, std::vector<SectionCollector*>> byPid;
    Demultiplexer demultiplexer;
    for (SectionCollector& collector : collectors)
        if (demultiplexer.select(collector.pid()))
            byPid[collector.pid()].push_back(&collector);
    std::size_t open = collectors.size();
    PacketFile packets(file);
    demultiplexer.run(packets, [&](std::uint32_t pid, std::span<const uint8_t> section) {
        for (SectionCollector* collector : byPid[pid]) {
            const bool wasComplete = collector->isComplete();
            collector->take(section);
            if (!wasComplete && collector->isComplete())
                --open;
        }
        return open > 0 && !budget.isSpent();
    });

    Answers answers{.lists = {}, .problem = packets.problem()};
    if (budget.isSpent())
        answers.problem = formatted("reading stopped at %zu MiB of sections", limit >> 20);
    answers.lists.reserve(collectors.size());
    bool isEmpty = true;
    for (SectionCollector& collector : collectors) {
        answers.lists.push_back(collector.answer());
        isEmpty = isEmpty && answers.lists.back().empty();
    }
    if (isEmpty && !packets.problem().empty())
        throw CaptureError(packets.problem());
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
