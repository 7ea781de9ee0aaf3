#include "acquisition/attach_tuning.h"

#include "log/report.h"

#include <utility>

namespace tessaview {

namespace {

/// The first entry of a stream in the NIT. The original_network_id is not compared: NITs that are
/// wrong about it are common, and the stream is the one being received.
const lib13818::TransportStreamEntry* findStream(const NitMap& networks,
                                                 std::uint32_t transport_stream_id)
{
    for (const auto& [network_id, sections] : networks)
        for (const auto& [section_number, nit] : sections)
            for (const auto& entry : nit.transportStreams)
                if (static_cast<std::uint32_t>(entry.transport_stream_id) == transport_stream_id)
                    return &entry;
    return nullptr;
}

} // namespace

Status attachTuning(Transponder& transponder, const DriverAccess& driver)
{
    TunerType type{};
    const Status result = driver.tunerType(type);
    if (failed(result) || !tunerTypeOf(static_cast<std::uint32_t>(type)))
        return result;
    TunerSetting setting;
    if (const auto* entry = findStream(transponder.nitActual, transponder.transport_stream_id))
        setting.tuning = tuningIn(entry->descriptors, type);
    if (!setting.isGiven()) {
        printAndLog(log_level::kInformation,
                    "current TS not found in NIT - using tuner parameters");
        static_cast<void>(driver.currentSetting(type, setting));
    }
    transponder.tuning = setting.tuning;
    transponder.satelliteName = std::move(setting.satellite);
    return result;
}

} // namespace tessaview
