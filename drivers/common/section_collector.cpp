#include "drivers/common/section_collector.h"

#include "drivers/common/table_ids.h"
#include "si/crc32.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr std::size_t kShortestLong = 12;
constexpr std::size_t kShortHeader = 3;
constexpr std::size_t kSegmentLast = 12; // segment_last_section_number of an event table
constexpr std::size_t kLastTableId = 13;
constexpr unsigned kTableIdShift = 48;
constexpr uint8_t kTdt = kFirstShortTable;
constexpr uint8_t kRst = 0x71;
constexpr uint8_t kTot = 0x73;
// What a section and a table instance take beside their bytes, about.
constexpr std::size_t kSectionOverhead = 64;
constexpr std::size_t kInstanceOverhead = 320;

int u16(std::span<const uint8_t> bytes, std::size_t at)
{
    return at + 1 < bytes.size() ? bytes[at] << 8 | bytes[at + 1] : 0;
}

bool hasLongSyntax(std::span<const uint8_t> section)
{
    return (section[1] & 0x80) != 0;
}

/// Whether sections of the table have the long header; what a private one has it says itself.
bool isLongTable(std::span<const uint8_t> section)
{
    const uint8_t table_id = section[0];
    return table_id < kTdt || (table_id > kTot && hasLongSyntax(section));
}

/// What tells one instance of a table from another: table_id, table_id_extension, and of SDT and
/// EIT the transport stream and network that the body names.
uint64_t identifiersOf(std::span<const uint8_t> section)
{
    const uint8_t table_id = section[0];
    auto key = static_cast<uint64_t>(table_id) << kTableIdShift |
               static_cast<uint64_t>(u16(section, 3)) << 32;
    if (table_id == 0x42 || table_id == 0x46)
        key |= static_cast<uint64_t>(u16(section, 8));
    else if (isEventTable(table_id))
        key |=
            static_cast<uint64_t>(u16(section, 8)) << 16 | static_cast<uint64_t>(u16(section, 10));
    return key;
}

bool hasCorrectCrc(std::span<const uint8_t> section)
{
    return lib13818::crc32Mpeg2(section.data(), section.size()) == 0;
}

bool isSoundLong(std::span<const uint8_t> section)
{
    return hasLongSyntax(section) && section[6] <= section[7] && hasCorrectCrc(section);
}

/// Only the TOT has a CRC_32; of the others the size tells at least something.
bool isSoundShort(std::span<const uint8_t> section)
{
    const std::size_t body = section.size() - kShortHeader;
    switch (section[0]) {
    case kTdt:
        return !hasLongSyntax(section) && body == 5;
    case kRst:
        return !hasLongSyntax(section) && body % 9 == 0;
    case kTot:
        return !hasLongSyntax(section) && hasCorrectCrc(section);
    default:
        return true;
    }
}

} // namespace

SectionCollector::SectionCollector(const TableRequest& request, SectionBudget& budget)
    : request_(request)
    , budget_(&budget)
{
}

bool SectionCollector::wantsTable(uint8_t table_id) const
{
    return (table_id & tableIdMask(request_.table_id)) == request_.table_id;
}

bool SectionCollector::wants(std::span<const uint8_t> section) const
{
    if (!wantsTable(section[0]))
        return false;
    return request_.match_table_id_extension == 0 || u16(section, 3) == request_.table_id_extension;
}

bool SectionCollector::asksForOne() const
{
    return request_.collection_mode == static_cast<std::uint32_t>(CollectionMode::SingleInstance);
}

void SectionCollector::take(std::span<const uint8_t> section)
{
    if (isComplete_ || section.size() < kShortHeader || !wants(section))
        return;
    if (!isLongTable(section))
        takeShort(section);
    else if (section.size() >= kShortestLong)
        takeLong(section);
}

/// Short sections have no identifiers and no numbers: the first answers the request.
void SectionCollector::takeShort(std::span<const uint8_t> section)
{
    isComplete_ = isSoundShort(section);
    if (!isComplete_ && !shortSection_.empty())
        return;
    shortSection_ = RawSection(section);
    ++keptCount_;
}

SectionCollector::Version* SectionCollector::Instance::find(int version_number)
{
    const auto found = std::find_if(versions.begin(), versions.end(), [&](const Version& each) {
        return each.version_number == version_number;
    });
    return found == versions.end() ? nullptr : &*found;
}

void SectionCollector::Version::keep(std::span<const uint8_t> section, bool isSound)
{
    const uint8_t number = section[6];
    kept.push_back({number, isSound, RawSection(section)});
    (isSound ? sound : unsound).set(number);
    if (!isSound)
        return;
    ++soundCount;
    size = std::max(size, std::size_t{section[7]} + 1);
    if (isEventTable(section[0]))
        noteSegment(section);
}

void SectionCollector::Version::noteSegment(std::span<const uint8_t> section)
{
    if (section.size() <= kSegmentLast)
        return;
    const std::size_t segment = section[6] / kSegment;
    const std::size_t first = segment * kSegment;
    const std::size_t last =
        std::clamp<std::size_t>(section[kSegmentLast], section[6], first + kSegment - 1);
    segments.set(segment);
    for (std::size_t number = first; number <= last; ++number)
        announced.set(number);
}

bool SectionCollector::Version::hasAllAnnounced() const
{
    return size > 0 && segments.count() == (size - 1) / kSegment + 1 && (announced & ~sound).none();
}

SectionCollector::Instance* SectionCollector::find(uint64_t identifiers)
{
    const auto entry = indexOf_.find(identifiers);
    return entry == indexOf_.end() ? nullptr : &instances_[entry->second];
}

SectionCollector::Instance& SectionCollector::add(uint64_t identifiers)
{
    indexOf_.emplace(identifiers, instances_.size());
    Instance& instance = instances_.emplace_back();
    instance.identifiers = identifiers;
    return instance;
}

void SectionCollector::takeLong(std::span<const uint8_t> section)
{
    const bool isCurrent = (section[5] & 0x01) != 0;
    const int version_number = section[5] >> 1 & 0x1F;
    const uint8_t number = section[6];
    const uint64_t identifiers = identifiersOf(section);
    Instance* instance = find(identifiers);
    if (!isCurrent || (instance && instance->isComplete))
        return;
    Version* version = instance ? instance->find(version_number) : nullptr;
    // Nearly all that comes has come before, so this stands before the sum over its bytes.
    if (version && version->has(number, true))
        return;
    const bool isSound = isSoundLong(section);
    if (version && version->has(number, isSound))
        return;
    if (!budget_->take(section.size() + kSectionOverhead + (version ? 0 : kInstanceOverhead)))
        return;
    if (!instance)
        instance = &add(identifiers);
    if (!version) {
        version = &instance->versions.emplace_back();
        version->version_number = version_number;
    }
    version->keep(section, isSound);
    ++keptCount_;
    if (isSound && isEventTable(section[0]) && section.size() > kLastTableId)
        instance->last_table_id = std::max(instance->last_table_id, section[kLastTableId]);
    // A schedule leaves numbers out, so it cannot be told when it is complete.
    instance->isComplete = !isEventTable(section[0]) && version->isComplete();
    isComplete_ = instance->isComplete && asksForOne();
}

bool SectionCollector::looksComplete(const Instance& instance) const
{
    if (instance.isComplete)
        return true;
    const auto table_id = static_cast<uint8_t>(instance.identifiers >> kTableIdShift);
    if (!isEventTable(table_id) ||
        std::none_of(instance.versions.begin(), instance.versions.end(),
                     [](const Version& v) { return v.hasAllAnnounced(); }))
        return false;
    // The rest of a schedule is in the next table_id, if one is announced that is asked for.
    const auto next = static_cast<uint8_t>(table_id + 1);
    return next > instance.last_table_id || !wantsTable(next) ||
           indexOf_.contains(instance.identifiers + (uint64_t{1} << kTableIdShift));
}

bool SectionCollector::looksComplete() const
{
    return isComplete_ || (!instances_.empty() &&
                           std::all_of(instances_.begin(), instances_.end(),
                                       [this](const Instance& i) { return looksComplete(i); }));
}

SectionCollector::Version& SectionCollector::best(Instance& instance)
{
    return *std::max_element(instance.versions.begin(), instance.versions.end(),
                             [](const Version& a, const Version& b) {
                                 return std::pair(a.isComplete(), a.soundCount) <
                                        std::pair(b.isComplete(), b.soundCount);
                             });
}

/// The instance that answers a request for one.
SectionCollector::Instance* SectionCollector::onlyInstance()
{
    Instance* found = nullptr;
    for (Instance& each : instances_) {
        if (each.isComplete)
            return &each;
        if (!found || (best(*found).soundCount == 0 && best(each).soundCount > 0))
            found = &each;
    }
    return found;
}

void SectionCollector::moveTo(std::vector<RawSection>& out, Version& version)
{
    std::sort(version.kept.begin(), version.kept.end(),
              [](const Kept& a, const Kept& b) { return a.number < b.number; });
    for (Kept& each : version.kept)
        if (each.isSound || !version.sound[each.number])
            out.push_back(std::move(each.bytes));
}

std::vector<RawSection> SectionCollector::answer()
{
    std::vector<RawSection> sections;
    if (!shortSection_.empty())
        sections.push_back(std::move(shortSection_));
    if (!asksForOne())
        for (Instance& instance : instances_)
            moveTo(sections, best(instance));
    else if (Instance* const only = onlyInstance())
        moveTo(sections, best(*only));
    return sections;
}

} // namespace tessaview
