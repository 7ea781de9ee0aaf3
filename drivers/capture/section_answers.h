#pragma once

#include "drivers/capture/packet_file.h"
#include "drivers/common/answers.h"

#include <filesystem>
#include <span>

namespace tessaview {

/// Reads what a batch of requests asks for, in one pass over the stream that ends as soon as
/// every request is answered. An error in mid-course ends the stream there and is the problem.
/// Throws CaptureError when nothing could be read, and what the observer throws.
Answers readSections(const std::filesystem::path& file, std::span<const TableRequest> requests,
                     std::size_t limit = kCollectedBytes, const BlockObserver& observer = {});

} // namespace tessaview
