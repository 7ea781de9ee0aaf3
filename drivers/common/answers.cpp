#include "drivers/common/answers.h"

#include "component/bstr.h"

#include <algorithm>

namespace tessaview {

namespace {

/// The array of an answer; its sections stay where they are.
SectionList listOf(std::vector<RawSection>& sections)
{
    SectionList list{};
    if (sections.empty())
        return list;
    list.sections = static_cast<uint8_t**>(taskMemory(sections.size() * sizeof(uint8_t*)));
    for (RawSection& section : sections)
        list.sections[list.count++] = section.release();
    return list;
}

void release(SectionList& list)
{
    for (std::int32_t i = 0; i < list.count; ++i)
        TessaviewTaskMemFree(list.sections[i]);
    TessaviewTaskMemFree(list.sections);
}

} // namespace

Status giveText(std::string_view utf8, char16_t** out)
{
    if (!out)
        return status::kNullPointer;
    *out = Bstr(utf8).release();
    return status::kOk;
}

void giveSections(std::vector<std::vector<RawSection>>& answers, SectionList* results)
{
    std::vector<SectionList> lists;
    lists.reserve(answers.size());
    try {
        for (auto& answer : answers) {
            lists.push_back(listOf(answer));
            answer.clear();
        }
    } catch (...) {
        std::for_each(lists.begin(), lists.end(), release);
        throw;
    }
    std::copy(lists.begin(), lists.end(), results);
}

} // namespace tessaview
