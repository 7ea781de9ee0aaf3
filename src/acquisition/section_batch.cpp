#include "acquisition/section_batch.h"

#include "component/task_memory.h"
#include "log/log_file.h"
#include "log/output.h"
#include "si/section.h"

#include <utility>

namespace tessaview {

namespace {

constexpr std::uint32_t kWaitLimit = 30;

void report(std::int32_t count)
{
    constexpr const char* text = "Ignoring an answer of the driver: it claims %d sections";
    OutputPrint(text, count);
    LogPrint(g_log, log_level::kError, text, count);
}

} // namespace

SectionBatch::~SectionBatch()
{
    releaseAll();
}

Status SectionBatch::read(ISectionReader& reader, std::span<const TableRequest> requests)
{
    releaseAll();
    lists_.assign(requests.size(), {});
    const Status result = reader.ReadTables(static_cast<std::uint32_t>(requests.size()),
                                            requests.data(), kWaitLimit, lists_.data());
    if (failed(result))
        lists_.assign(requests.size(), {});
    else
        checkAnswers();
    return result;
}

std::size_t SectionBatch::usable(std::size_t answer) const
{
    const SectionList& list = lists_[answer];
    return list.count > 0 && list.sections ? static_cast<std::size_t>(list.count) : 0;
}

std::span<const std::uint8_t> SectionBatch::section(std::size_t answer, std::size_t index) const
{
    const std::uint8_t* const bytes = lists_[answer].sections[index];
    if (!bytes)
        return {};
    return {bytes, lib13818::sectionSize(bytes)};
}

void SectionBatch::release(std::size_t answer)
{
    const std::size_t sections = usable(answer);
    const SectionList list = std::exchange(lists_[answer], {});
    for (std::size_t i = 0; i < sections; ++i)
        TessaviewTaskMemFree(list.sections[i]);
    TessaviewTaskMemFree(static_cast<void*>(list.sections));
}

void SectionBatch::releaseAll()
{
    for (std::size_t i = 0; i < lists_.size(); ++i)
        release(i);
}

void SectionBatch::checkAnswers()
{
    for (SectionList& list : lists_) {
        if (list.count > kMaxSections)
            list.sections = nullptr;
        if (list.count > 0 && !list.sections)
            report(list.count);
    }
}

} // namespace tessaview
