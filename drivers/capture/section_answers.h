#pragma once

#include "drivers/capture/packet_file.h"
#include "drivers/common/section_collector.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tessaview {

struct Answers {
    std::vector<std::vector<RawSection>> lists; ///< one per request
    std::string problem; ///< why reading ended before the stream did; empty when it did not
};

/// Reads what a batch of requests asks for, in one pass over the stream that ends as soon as
/// every request is answered. An error in mid-course ends the stream there. Throws CaptureError
/// when nothing could be read, and what the observer throws.
Answers readSections(const std::filesystem::path& file, std::span<const TableRequest> requests,
                     std::size_t limit = kCollectedBytes, const BlockObserver& observer = {});

} // namespace tessaview
