#pragma once

#include "drivers/capture/packet_file.h"
#include "drivers/common/interrupted.h"
#include "tuning/tuning.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessaview {

/// One captured stream and what was found out about it once.
struct Capture {
    std::filesystem::path file;
    std::size_t source = 0; ///< the index of the source that names it
    std::string satellite;  ///< the folder inside the source that holds it; empty for none
    std::uintmax_t size = 0;
    std::optional<int> transport_stream_id; ///< of its PAT
    Tuning tuning;                          ///< under which it was received, as its NIT tells
};

/// A file or folder that could not be used, and why.
struct CaptureProblem {
    std::filesystem::path file;
    std::size_t source = 0;
    std::string text;

    std::string line() const { return file.string() + ": " + text; }
};

struct CaptureSet {
    std::vector<std::filesystem::path> sources; ///< the files and folders that were named
    std::vector<Capture> captures;
    std::vector<CaptureProblem> problems;
};

/// How far into a file its PAT and NIT are looked for: a NIT comes every ten seconds at least
/// (TR 101 211, 4.4.1), which no multiplex fills with more. What lies behind is not known of a
/// capture until it is read.
constexpr std::uintmax_t kIndexedBytes = std::uintmax_t{128} << 20;

/// Reads as much of a stream as it takes to know it. Throws CaptureError, and what the observer
/// throws.
Capture indexCapture(const std::filesystem::path& file, const BlockObserver& observer = {});

/// Is told how many of how many files were looked at, first before the first one.
using IndexProgress = std::function<void(std::size_t done, std::size_t total)>;

/// The captures that the sources name: files as they are, folders with the streams in them. A
/// folder inside a folder is a satellite of that name. A file that several sources name belongs to
/// the first. What cannot be used costs only itself and is reported. Ends early, also within a
/// file, when asked to stop.
CaptureSet openCaptures(const std::vector<std::filesystem::path>& sources,
                        const IndexProgress& progress = {}, const StopRequested& stop = {});

/// Adds the sources and captures of another set, but no capture a second time.
void append(CaptureSet& set, CaptureSet more);
/// Takes a source away with all that it named.
void removeSource(CaptureSet& set, std::size_t source);

} // namespace tessaview
