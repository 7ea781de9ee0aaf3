#include "drivers/capture/section_collector.h"

#include "si/crc32.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr std::size_t kShortestLong = 12;
constexpr std::size_t kShortestShort = 3;

int u16(std::span<const uint8_t> bytes, std::size_t at)
{
    return at + 1 < bytes.size() ? bytes[at] << 8 | bytes[at + 1] : 0;
}

bool isEit(uint8_t table_id)
{
    return table_id >= 0x4E && table_id <= 0x6F;
}

/// What tells one instance of a table from another: table_id, table_id_extension, and of SDT and
/// EIT the transport stream and network that the body names.
uint64_t identifiers(std::span<const uint8_t> section)
{
    const uint8_t table_id = section[0];
    auto key = static_cast<uint64_t>(table_id) << 48 | static_cast<uint64_t>(u16(section, 3)) << 32;
    if (table_id == 0x42 || table_id == 0x46)
        key |= static_cast<uint64_t>(u16(section, 8));
    else if (isEit(table_id))
        key |=
            static_cast<uint64_t>(u16(section, 8)) << 16 | static_cast<uint64_t>(u16(section, 10));
    return key;
}

bool isIntact(std::span<const uint8_t> section)
{
    return lib13818::crc32Mpeg2(section.data(), section.size()) == 0;
}

} // namespace

SectionCollector::SectionCollector(const TableRequest& request) : request_(request) {}

bool SectionCollector::wantsTable(uint8_t table_id) const
{
    const bool isSchedule = request_.table_id == 0x50 || request_.table_id == 0x60;
    return isSchedule ? (table_id & 0xF0) == request_.table_id : table_id == request_.table_id;
}

bool SectionCollector::wants(std::span<const uint8_t> section) const
{
    if (!wantsTable(section[0]))
        return false;
    return request_.match_table_id_extension == 0 || u16(section, 3) == request_.table_id_extension;
}

void SectionCollector::take(std::span<const uint8_t> section)
{
    if (isComplete_ || section.size() < kShortestShort || !wants(section))
        return;
    const bool isLong = (section[1] & 0x80) != 0;
    if (!isLong)
        takeShort(section);
    else if (section.size() >= kShortestLong)
        takeLong(section);
}

/// Short sections have no identifiers and no numbers: the first answers the request.
void SectionCollector::takeShort(std::span<const uint8_t> section)
{
    constexpr uint8_t kTotTableId = 0x73;
    const bool isGood = section[0] != kTotTableId || isIntact(section);
    if (isGood || shortSection_.empty())
        shortSection_.assign(section.begin(), section.end());
    isComplete_ = isGood;
}

SectionCollector::Instance& SectionCollector::instanceOf(std::span<const uint8_t> section)
{
    const auto [entry, isNew] = indexOf_.try_emplace(identifiers(section), instances_.size());
    if (isNew)
        instances_.emplace_back();
    return instances_[entry->second];
}

void SectionCollector::takeLong(std::span<const uint8_t> section)
{
    const bool isCurrent = (section[5] & 0x01) != 0;
    if (!isCurrent)
        return;
    Instance& instance = instanceOf(section);
    if (instance.isComplete)
        return;
    const int number = section[5] >> 1 & 0x1F;
    auto version = std::find_if(instance.versions.begin(), instance.versions.end(),
                                [&](const Version& each) { return each.number == number; });
    if (version == instance.versions.end())
        version =
            instance.versions.insert(version, {.number = number, .sections = {}, .damaged = {}});

    const bool intact = isIntact(section);
    const std::size_t place = section[6];
    // A damaged header must not make the table look longer than it is.
    const std::size_t size = std::max(place, intact ? std::size_t{section[7]} : place) + 1;
    auto& kept = intact ? version->sections : version->damaged;
    if (kept.size() < size)
        kept.resize(size);
    if (!kept[place].empty())
        return;
    kept[place].assign(section.begin(), section.end());
    if (!intact)
        return;
    ++version->count;
    if (!isEit(section[0]))
        instance.isComplete = version->isComplete();
    isComplete_ =
        instance.isComplete &&
        request_.collection_mode == static_cast<std::uint32_t>(CollectionMode::SingleInstance);
}

const SectionCollector::Version& SectionCollector::best(const Instance& instance)
{
    return *std::max_element(
        instance.versions.begin(), instance.versions.end(), [](const Version& a, const Version& b) {
            return std::pair(a.isComplete(), a.count) < std::pair(b.isComplete(), b.count);
        });
}

void SectionCollector::appendTo(std::vector<RawSection>& out, const Version& version)
{
    for (std::size_t i = 0; i < std::max(version.sections.size(), version.damaged.size()); ++i) {
        if (i < version.sections.size() && !version.sections[i].empty())
            out.push_back(version.sections[i]);
        else if (i < version.damaged.size() && !version.damaged[i].empty())
            out.push_back(version.damaged[i]);
    }
}

/// The instance that answers a request for one.
const SectionCollector::Instance* SectionCollector::onlyInstance() const
{
    const auto complete = std::find_if(instances_.begin(), instances_.end(),
                                       [](const Instance& each) { return each.isComplete; });
    if (complete != instances_.end())
        return &*complete;
    const auto intact = std::find_if(instances_.begin(), instances_.end(),
                                     [](const Instance& each) { return best(each).count > 0; });
    if (intact != instances_.end())
        return &*intact;
    return instances_.empty() ? nullptr : &instances_.front();
}

std::vector<RawSection> SectionCollector::answer()
{
    std::vector<RawSection> sections;
    if (!shortSection_.empty())
        sections.push_back(std::move(shortSection_));
    if (request_.collection_mode == static_cast<std::uint32_t>(CollectionMode::SingleInstance)) {
        if (const Instance* const only = onlyInstance())
            appendTo(sections, best(*only));
        return sections;
    }
    for (const Instance& instance : instances_)
        appendTo(sections, best(instance));
    return sections;
}

} // namespace tessaview
