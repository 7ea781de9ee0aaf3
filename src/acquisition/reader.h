#pragma once

#include "acquisition/driver_access.h"
#include "acquisition/table_selection.h"
#include "model/network_map.h"

#include <atomic>
#include <cstdint>
#include <optional>

namespace tessaview {

/// How the reading of a transport stream ended. Only `Stored` has changed the model.
enum class ReadOutcome : std::uint8_t {
    Stored,
    AlreadyThere, ///< the model had this transport stream
    Incomplete,   ///< a table is missing without which it has no certain place
    TunerFailed,  ///< the type of the tuner is not to be had
    ReadFailed,   ///< the driver could not read
    Cancelled
};

/// How the reading of a transport stream ended, and what is known of it.
struct Reading {
    ReadOutcome outcome;
    NeededTables needed = {};    ///< incomplete: what is missing
    Status status = status::kOk; ///< ReadFailed, TunerFailed: the driver's
    std::optional<std::uint32_t> original_network_id = {}; ///< as far as the stream was known
    std::optional<std::uint32_t> transport_stream_id = {};
    bool mayLackSome = false; ///< for the driver failed midway, or says itself what it did not get
};

/// Whether a stream that lacks a table which gives it its place is stored all the same.
enum class IncompleteStreams : std::uint8_t { Refuse, Store };

/// Reads transport streams through a driver into the model. Runs on one thread, of a worker for
/// example; the lines for the user go to `OutputPrint`.
class Reader {
public:
    /// `cancelled` is looked at after each answer of the driver and must outlive this.
    Reader(IUnknown* driver, const std::atomic<bool>& cancelled, TableSelection selection,
           IncompleteStreams incomplete = IncompleteStreams::Refuse);

    /// Reads the chosen tables of the transport stream that the tuner is set to and adds it to
    /// the model, unless the model has it. A section that cannot be decoded costs only itself.
    ///
    /// An incomplete stream that is to be stored gets its transport_stream_id from PAT, SDT, NIT
    /// or EIT and its network from SDT, NIT or EIT; where none names it, one of its own behind all
    /// others. It is refused when nothing at all was decoded.
    Reading ReadCurrentTransponder(NetworkMap& model);

private:
    DriverAccess driver_;
    const std::atomic<bool>& cancelled_;
    TableSelection selection_;
    IncompleteStreams incomplete_;
};

} // namespace tessaview
