#pragma once

#include "acquisition/driver_access.h"
#include "acquisition/table_selection.h"
#include "model/network_map.h"

#include <atomic>
#include <cstdint>

namespace tessaview {

/// How the reading of a transport stream ended. Only `Stored` has changed the model.
enum class ReadOutcome : std::uint8_t {
    Stored,
    AlreadyThere, ///< the model had this transport stream
    NoPat,        ///< no section, or none that decodes
    NoNit,        ///< no section
    NoSdt,        ///< no section, or none that decodes
    TunerFailed,  ///< the type of the tuner is not to be had
    ReadFailed,   ///< the driver could not read
    Cancelled
};

/// Reads transport streams through a driver into the model. Runs on one thread, of a worker for
/// example; the lines for the user go to `OutputPrint`.
class Reader {
public:
    /// `cancelled` is looked at after each answer of the driver and must outlive this.
    Reader(IUnknown* driver, const std::atomic<bool>& cancelled, TableSelection selection);

    /// Reads the chosen tables of the transport stream that the tuner is set to and adds it to
    /// the model, unless the model has it. A section that cannot be decoded costs only itself.
    ReadOutcome ReadCurrentTransponder(NetworkMap& model);

private:
    DriverAccess driver_;
    const std::atomic<bool>& cancelled_;
    TableSelection selection_;
};

} // namespace tessaview
