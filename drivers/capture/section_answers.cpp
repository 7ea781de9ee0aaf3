#include "drivers/capture/section_answers.h"

#include "drivers/capture/demultiplexer.h"
#include "platform/format.h"

#include <unordered_map>

namespace tessaview {

Answers readSections(const std::filesystem::path& file, std::span<const TableRequest> requests,
                     std::size_t limit, const BlockObserver& observer)
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
    PacketFile packets(file, UINTMAX_MAX, observer);
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

} // namespace tessaview
