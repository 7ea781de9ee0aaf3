#pragma once

#include "driver/tuner_driver.h"
#include "drivers/common/section_collector.h"

#include <string>
#include <string_view>
#include <vector>

// What a driver hands over to its caller.

namespace tessaview {

/// What a tuner collected for a batch of requests.
struct Answers {
    std::vector<std::vector<RawSection>> lists; ///< one per request
    std::string problem; ///< why something may be missing; empty when nothing is known to be
};

/// Hands a text over; the caller frees it.
Status giveText(std::string_view utf8, char16_t** out);

/// Hands the sections of each request over in the caller's array, all of them or none. Throws
/// std::bad_alloc with nothing left allocated. The answers are empty afterwards.
void giveSections(std::vector<std::vector<RawSection>>& answers, SectionList* results);

} // namespace tessaview
