#pragma once

#include "drivers/common/answers.h"
#include "drivers/linuxdvb/kernel.h"

#include <span>
#include <string>

namespace tessaview {

/// How long reading a batch may take.
struct ReadTimes {
    /// For a table of which nothing comes, or nothing new any more.
    std::chrono::milliseconds wait;
    /// For a table that goes on bringing new sections.
    std::chrono::milliseconds ceiling;
};

/// Collects the tables of a batch from a demultiplexer ("adapter0/demux0") through the kernel's
/// section filters: as many at once as it has, and the others as these become free.
///
/// A table is finished when it is complete. When nothing tells that (all instances of a table, an
/// event schedule), it is finished when all that was seen of it is complete and nothing new came
/// for as long as the table may take to come round. After the wait limit it is finished as soon as
/// nothing new came for so long, and at the ceiling in any case.
///
/// A device that fails in mid-course ends the reading there: what had come is answered. Throws
/// DeviceError when nothing could be read, and Interrupted.
Answers readTables(Kernel& kernel, const std::string& demultiplexer,
                   std::span<const TableRequest> requests, ReadTimes times,
                   const StopRequested& stop);

} // namespace tessaview
