#include "acquisition/attach_tuning.h"

#include "log/log_file.h"
#include "log/output.h"
#include "model/tuning.h"

#include <optional>

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

/// The first delivery system descriptor of a kind that the NIT has for a transponder.
template <class Descriptor>
std::optional<Descriptor> findInNit(const Transponder& transponder)
{
    if (const auto* entry = findStream(transponder.nitActual, transponder.transport_stream_id)) {
        if (auto first = entry->descriptors.template all<Descriptor>().first())
            return first;
    }
    constexpr const char* text = "current TS not found in NIT - using tuner parameters";
    OutputPrint(text);
    LogPrint(g_log, log_level::kInformation, text);
    return std::nullopt;
}

void attachSatellite(Transponder& transponder, const DriverAccess& driver)
{
    SatelliteTuning tuning{};
    std::string satellite;
    if (const auto found = findInNit<lib13818::DescriptorSatelliteDeliverySystem>(transponder))
        transponder.setSatelliteTuning(tuningOf(*found), "");
    else if (!failed(driver.currentTuning(tuning, satellite)))
        transponder.setSatelliteTuning(tuning, std::move(satellite));
}

void attachCable(Transponder& transponder, const DriverAccess& driver)
{
    CableTuning tuning{};
    if (const auto found = findInNit<lib13818::DescriptorCableDeliverySystem>(transponder))
        transponder.setCableTuning(tuningOf(*found));
    else if (!failed(driver.currentTuning(tuning)))
        transponder.setCableTuning(tuning);
}

void attachTerrestrial(Transponder& transponder, const DriverAccess& driver)
{
    TerrestrialTuning tuning{};
    if (const auto found = findInNit<lib13818::DescriptorTerrestrialDeliverySystem>(transponder))
        transponder.setTerrestrialTuning(tuningOf(*found));
    else if (!failed(driver.currentTuning(tuning)))
        transponder.setTerrestrialTuning(tuning);
}

} // namespace

Status attachTuning(Transponder& transponder, const DriverAccess& driver)
{
    TunerType type{};
    const Status result = driver.tunerType(type);
    if (failed(result))
        return result;
    switch (type) {
    case TunerType::Satellite:
        attachSatellite(transponder, driver);
        break;
    case TunerType::Cable:
        attachCable(transponder, driver);
        break;
    case TunerType::Terrestrial:
        attachTerrestrial(transponder, driver);
        break;
    }
    return result;
}

} // namespace tessaview
