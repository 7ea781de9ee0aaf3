#pragma once

#include "driver/tuner_driver.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tessaview {

/// Under which parameters a capture was received, as far as its own NIT tells.
using CaptureTuning = std::variant<std::monostate, SatelliteTuning, CableTuning, TerrestrialTuning>;

/// One captured stream and what was found out about it once.
struct Capture {
    std::filesystem::path file;
    std::string satellite; ///< the folder inside the set that holds it; empty for none
    std::uintmax_t size = 0;
    std::optional<int> transport_stream_id; ///< of its PAT
    CaptureTuning tuning;
};

/// Reads as much of a stream as it takes to know it. Throws CaptureError.
Capture indexCapture(const std::filesystem::path& file, std::string satellite);

/// The captures that paths name: files as they are, folders with the streams in them. A folder
/// inside a folder is a satellite of that name. What cannot be used costs only itself and is
/// reported, a line each.
struct CaptureSet {
    std::vector<Capture> captures;
    std::vector<std::string> problems;
};
CaptureSet openCaptures(const std::vector<std::filesystem::path>& paths);

} // namespace tessaview
