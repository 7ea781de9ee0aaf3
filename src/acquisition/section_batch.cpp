#include "acquisition/section_batch.h"

#include "component/task_memory.h"
#include "log/report.h"

namespace tessaview {

namespace {

constexpr std::uint32_t kWaitLimit = 30;

} // namespace

SectionBatch::Answer::~Answer()
{
    if (list.count > 0 && list.sections)
        for (std::int32_t i = 0; i < list.count; ++i)
            TessaviewTaskMemFree(list.sections[i]);
    TessaviewTaskMemFree(static_cast<void*>(list.sections));
}

Status SectionBatch::read(ISectionReader& reader, std::span<const TableRequest> requests)
{
    answers_.clear();
    std::vector<SectionList> lists(requests.size());
    answers_.reserve(requests.size());
    for (std::size_t i = 0; i < requests.size(); ++i)
        answers_.push_back(std::make_shared<Answer>());
    const Status result = reader.ReadTables(static_cast<std::uint32_t>(requests.size()),
                                            requests.data(), kWaitLimit, lists.data());
    if (failed(result))
        return result;
    for (std::size_t i = 0; i < requests.size(); ++i)
        answers_[i]->list = lists[i];
    checkAnswers();
    return result;
}

std::size_t SectionBatch::usable(std::size_t answer) const
{
    const std::int32_t sections = count(answer);
    return sections > 0 && answers_[answer]->list.sections ? static_cast<std::size_t>(sections) : 0;
}

lib13818::SectionBytes SectionBatch::section(std::size_t answer, std::size_t index) const
{
    const std::uint8_t* const bytes = answers_[answer]->list.sections[index];
    return bytes ? lib13818::SectionBytes(answers_[answer], bytes) : lib13818::SectionBytes();
}

void SectionBatch::checkAnswers()
{
    for (const auto& answer : answers_) {
        SectionList& list = answer->list;
        if (list.count > kMaxSections)
            list.sections = nullptr;
        if (list.count > 0 && !list.sections)
            printAndLog(log_level::kError,
                        "Ignoring an answer of the driver: it claims %d sections", list.count);
    }
}

} // namespace tessaview
