#pragma once

#include "driver/tuner_driver.h"
#include "si/section_bytes.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace tessaview {

/// The answers to one batch of requests: what a driver handed over. An answer goes back to the
/// allocator when it was released and the last table that keeps a section of it is gone.
///
/// A driver is not trusted. A list that claims sections without an array, or more than a transport
/// stream can carry, is reported and has nothing to go through; the latter is not released either,
/// since its pointer is rubbish. A missing section is an empty range.
class SectionBatch {
public:
    /// Above every answer that can be true: an array of 128 MB, and sections of 200 MB at the
    /// least.
    static constexpr std::int32_t kMaxSections = 1 << 24;

    SectionBatch() = default;
    SectionBatch(const SectionBatch&) = delete;
    SectionBatch& operator=(const SectionBatch&) = delete;
    ~SectionBatch() = default;

    /// Releases what is held and asks the driver for the tables, with the wait limit of every
    /// batch. After a failure status the batch is empty: what the driver left in the results is
    /// not the receiver's and is not touched.
    Status read(ISectionReader& reader, std::span<const TableRequest> requests);

    /// The count of an answer as the driver gave it; 0 after a failure.
    std::int32_t count(std::size_t answer) const
    {
        return answers_[answer] ? answers_[answer]->list.count : 0;
    }
    /// How many sections there really are to go through.
    std::size_t usable(std::size_t answer) const;
    /// A raw section: 3 + section_length bytes, which is as far as the driver can be trusted.
    /// Empty when the driver gave none. `index` is below `usable`.
    lib13818::SectionBytes section(std::size_t answer, std::size_t index) const;

    /// Lets go of an answer; its count is 0 from then on.
    void release(std::size_t answer) { answers_[answer] = nullptr; }
    void releaseAll() { answers_.clear(); }

private:
    /// One list of a driver, in the driver's memory.
    struct Answer {
        Answer() = default;
        Answer(const Answer&) = delete;
        Answer& operator=(const Answer&) = delete;
        ~Answer();

        SectionList list{};
    };

    void checkAnswers();

    std::vector<std::shared_ptr<Answer>> answers_;
};

} // namespace tessaview
