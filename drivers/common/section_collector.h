#pragma once

#include "driver/tuner_driver.h"
#include "drivers/common/raw_section.h"

#include <bitset>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace tessaview {

/// What a batch may collect before reading stops: far more than any multiplex signals (a week's
/// schedule of a whole satellite is a tenth of it), and little enough to hold twice.
constexpr std::size_t kCollectedBytes = std::size_t{512} << 20;

/// What the collectors of one batch may keep in memory together, so that a stream that makes up
/// tables without end cannot take all of it.
class SectionBudget {
public:
    explicit SectionBudget(std::size_t bytes) : left_(bytes) {}

    /// Takes bytes away; false when there are not as many left, and from then on.
    bool take(std::size_t bytes)
    {
        isSpent_ = isSpent_ || bytes > left_;
        if (!isSpent_)
            left_ -= bytes;
        return !isSpent_;
    }
    bool isSpent() const { return isSpent_; }

private:
    std::size_t left_;
    bool isSpent_ = false;
};

/// Collects the sections that one request asks for.
///
/// Of each table instance it answers with one version, so that what is shown was on air together:
/// the first that came in completely, else the one of which the most came. A request for a single
/// instance is answered with the first instance of which a version was complete. An unsound
/// section (wrong CRC_32 or syntax indicator, a number above the last one) is handed over only
/// where nothing sound stands in its place. What is to come (current_next_indicator 0) is ignored.
class SectionCollector {
public:
    /// The budget must outlive the collector; sections that do not fit into it are not kept.
    SectionCollector(const TableRequest& request, SectionBudget& budget);

    std::uint32_t pid() const { return request_.PID; }
    /// Takes a section of the request's PID, of any table.
    void take(std::span<const uint8_t> section);
    /// Nothing that may still come can change the answer.
    bool isComplete() const { return isComplete_; }
    /// As far as can be told from what came: every instance that was seen is there as a whole. More
    /// instances may still turn up. An event table leaves numbers out, but tells which (EN 300 468,
    /// 5.2.4).
    bool looksComplete() const;
    /// How many sections were kept: it grows when something new came.
    std::size_t keptCount() const { return keptCount_; }
    /// The answer, by instance in the order of their appearance, then by section_number. Once only:
    /// the sections move out.
    std::vector<RawSection> answer();

private:
    static constexpr std::size_t kNumbers = 256; // of sections in a table
    static constexpr std::size_t kSegment = 8;   // sections of an event table

    struct Kept {
        uint8_t number;
        bool isSound;
        RawSection bytes;
    };
    /// The sections of one version of an instance.
    struct Version {
        int version_number = 0;
        std::size_t size = 0; // sections it has, by what the sound ones say; 0 until one came
        std::size_t soundCount = 0;
        std::bitset<kNumbers> sound;
        std::bitset<kNumbers> unsound;
        std::bitset<kNumbers> announced; // of an event table: by the segments that were seen
        std::bitset<kNumbers / kSegment> segments; // of an event table that were seen
        std::vector<Kept> kept;

        bool isComplete() const { return size > 0 && soundCount == size; }
        bool hasAllAnnounced() const;
        bool has(uint8_t number, bool isSound) const
        {
            return sound[number] || (!isSound && unsound[number]);
        }
        void keep(std::span<const uint8_t> section, bool isSound);
        void noteSegment(std::span<const uint8_t> section);
    };
    struct Instance {
        uint64_t identifiers = 0;
        std::vector<Version> versions;
        bool isComplete = false;
        uint8_t last_table_id = 0; // of an event schedule, which is spread over several

        Version* find(int version_number);
    };

    bool wants(std::span<const uint8_t> section) const;
    bool wantsTable(uint8_t table_id) const;
    bool asksForOne() const;
    void takeShort(std::span<const uint8_t> section);
    void takeLong(std::span<const uint8_t> section);
    Instance* find(uint64_t identifiers);
    bool looksComplete(const Instance& instance) const;
    Instance& add(uint64_t identifiers);
    static Version& best(Instance& instance);
    Instance* onlyInstance();
    static void moveTo(std::vector<RawSection>& out, Version& version);

    TableRequest request_;
    SectionBudget* budget_;
    std::vector<Instance> instances_;
    std::unordered_map<uint64_t, std::size_t> indexOf_; // of an instance by its identifiers
    RawSection shortSection_;
    std::size_t keptCount_ = 0;
    bool isComplete_ = false;
};

} // namespace tessaview
