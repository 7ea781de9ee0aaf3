#include "drivers/common/answers.h"

#include "component/bstr.h"
#include "component/task_memory.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace tessaview {

namespace {

void* taskMemory(std::size_t bytes)
{
    void* const block = TessaviewTaskMemAlloc(bytes);
    if (!block)
        throw std::bad_alloc();
    return block;
}

void release(SectionList& list)
{
    for (std::int32_t i = 0; i < list.count; ++i)
        TessaviewTaskMemFree(list.sections[i]);
    TessaviewTaskMemFree(list.sections);
    list = {};
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
            lists.push_back(toTaskMemory(answer));
            answer = {}; // so that everything is not there twice at the end
        }
    } catch (...) {
        std::for_each(lists.begin(), lists.end(), release);
        throw;
    }
    std::copy(lists.begin(), lists.end(), results);
}

} // namespace tessaview
