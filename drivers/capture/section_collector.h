#pragma once

#include "driver/tuner_driver.h"

#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace tessaview {

using RawSection = std::vector<uint8_t>;

/// Collects the sections that one request asks for.
///
/// Of each table instance it answers with one version, so that what is shown was on air together:
/// the first that came in completely, else the one of which the most came. A request for a single
/// instance is answered with the first instance of which a version was complete. A damaged section
/// is kept only as long as nothing intact stands in its place.
class SectionCollector {
public:
    explicit SectionCollector(const TableRequest& request);

    int pid() const { return static_cast<int>(request_.PID); }
    /// Takes a section of the request's PID, of any table.
    void take(std::span<const uint8_t> section);
    /// Nothing that may still come can change the answer.
    bool isComplete() const { return isComplete_; }
    /// The answer, by instance in the order of their appearance, then by section_number.
    std::vector<RawSection> answer();

private:
    /// The sections of one version of an instance, by section_number.
    struct Version {
        int number;
        std::vector<RawSection> sections; // empty where none came
        std::vector<RawSection> damaged;  // likewise
        std::size_t count = 0;            // of intact ones

        bool isComplete() const { return count > 0 && count == sections.size(); }
    };
    struct Instance {
        std::vector<Version> versions;
        bool isComplete = false;
    };

    bool wants(std::span<const uint8_t> section) const;
    bool wantsTable(uint8_t table_id) const;
    void takeShort(std::span<const uint8_t> section);
    void takeLong(std::span<const uint8_t> section);
    Instance& instanceOf(std::span<const uint8_t> section);
    static const Version& best(const Instance& instance);
    const Instance* onlyInstance() const;
    static void appendTo(std::vector<RawSection>& out, const Version& version);

    TableRequest request_;
    std::vector<Instance> instances_;
    std::unordered_map<uint64_t, std::size_t> indexOf_; // of an instance by its identifiers
    RawSection shortSection_;
    bool isComplete_ = false;
};

} // namespace tessaview
