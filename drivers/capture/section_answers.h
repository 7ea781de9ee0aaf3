#pragma once

#include "drivers/capture/section_collector.h"

#include <filesystem>
#include <span>
#include <vector>

namespace tessaview {

/// Reads what a batch of requests asks for, in one pass over the stream that ends as soon as
/// every request is answered. One list per request. Throws CaptureError.
std::vector<std::vector<RawSection>> readSections(const std::filesystem::path& file,
                                                  std::span<const TableRequest> requests);

/// Copies the sections into task memory, which the receiver releases. Throws std::bad_alloc with
/// nothing left allocated.
SectionList toTaskMemory(const std::vector<RawSection>& sections);

/// Releases what toTaskMemory made.
void release(SectionList& list);

} // namespace tessaview
