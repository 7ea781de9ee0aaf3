#pragma once

#include "acquisition/driver_access.h"
#include "acquisition/reader.h"
#include "acquisition/scan_mode.h"
#include "acquisition/scan_progress.h"
#include "acquisition/scan_summary.h"
#include "acquisition/table_selection.h"
#include "model/network_map.h"
#include "satlist/satellite_list.h"

#include <atomic>
#include <optional>
#include <string>

namespace tessaview {

/// What a scan works with. What the pointers show must outlive it; all but the model are shared
/// with other threads.
struct ScanContext {
    IUnknown* driver = nullptr;
    ISatListManager* satellites = nullptr; ///< null: there is no list
    NetworkMap* model = nullptr;
    TableSelection selection = TableSelection::stored();
    /// The satellite that the user chose, UTF-8; none chosen: nothing. Empty where parameters come
    /// from a NIT and the driver needs no name with them.
    std::optional<std::string> satellite = {};
    IncompleteStreams incomplete = IncompleteStreams::Refuse;
    WindowHandle owner = nullptr; ///< for the windows that a driver may show while it tunes
};

/// Reads whole networks and satellites into the model: tunes from stream to stream and reads each.
/// Runs on one thread, of a worker for example; lines for the user go to `OutputPrint`.
///
/// A raised cancel flag ends a scan as soon as the driver returns from the call under way. Nothing
/// is tuned after that, so the tuner stays where it is; what was stored stays in the model.
class Scanner {
public:
    /// `progress` and `cancelled` must outlive this.
    Scanner(ScanContext context, ScanProgress& progress, const std::atomic<bool>& cancelled);

    /// A whole scan from its first line to the summary, which follows a scan of more than the
    /// current stream.
    ScanSummary run(ScanMode mode);

    /// Reads the NIT of the stream that the tuner is set to and scans its network. The satellite's
    /// name is what the driver is told with the parameters. False when there is no such NIT; why
    /// is then told by `nitProblem`.
    bool ReadNitAndScan(const std::string& satellite);
    /// Tunes to every stream that the first network lists and reads it, then sets the tuner back
    /// to where it was.
    void ScanNetwork(const NitMap& networks, const std::string& satellite);
    /// Scans the network behind every transponder of the chosen satellite.
    void ScanSatellite();
    /// The same for every selected satellite.
    void ScanAllSatellites();

private:
    enum class SatelliteEnd { Scanned, NoTransponders, NoCount, Cancelled };

    void scanSources();
    void scanCurrentNit();
    Unstored nitProblem() const { return {UnstoredReason::NitFailed, nitProblem_}; }
    /// False when the scan of the network is to stop.
    bool scanSection(const lib13818::Nit& nit, TunerType type, const std::string& satellite);
    void scanEntry(const lib13818::TransportStreamEntry& entry, TunerType type,
                   const std::string& satellite);
    SatelliteEnd scanTransponders(ISatellite& satellite, const std::string& name);
    void scanTransponder(ISatTransponder& transponder, const std::string& satellite);
    void addUntuned(const ScannedStream& stream);
    void readInto(const ScannedStream& stream);

    ScanContext context_;
    DriverAccess driver_;
    Reader reader_;
    ScanProgress& progress_;
    const std::atomic<bool>& cancelled_;
    std::string nitProblem_; ///< why there is no NIT to scan by
    ScanSummary summary_;
};

} // namespace tessaview
