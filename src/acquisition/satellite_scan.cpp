#include "acquisition/satellite_access.h"
#include "acquisition/scan_report.h"
#include "acquisition/scanner.h"
#include "acquisition/tuning_choice.h"
#include "log/output.h"

#include <cstddef>
#include <utility>

// The part of a scan that goes by the satellite list.

namespace tessaview {

namespace {

/// The parameters of an entry of the list; it has no others than these four.
Status readTuning(ISatTransponder& transponder, SatelliteTuning& tuning)
{
    std::int32_t frequency = 0;
    std::int32_t polarization = 0;
    std::int32_t symbolRate = 0;
    std::int32_t fec = 0;
    for (const Status result :
         {transponder.get_Frequency(&frequency), transponder.get_Polarization(&polarization),
          transponder.get_SymbolRate(&symbolRate), transponder.get_FEC(&fec)})
        if (failed(result))
            return result;
    tuning = {};
    tuning.frequency = static_cast<std::uint32_t>(frequency);
    tuning.polarization = static_cast<std::uint8_t>(polarization);
    tuning.symbol_rate = static_cast<std::uint32_t>(symbolRate);
    tuning.FEC_inner = static_cast<std::uint8_t>(fec);
    return status::kOk;
}

} // namespace

void Scanner::ScanSatellite()
{
    if (!context_.satellite) {
        progress_.askForSatellite();
        return;
    }
    const std::string& name = *context_.satellite;
    ComPtr<ISatellite> satellite;
    if (failed(findSatellite(context_.satellites, name, satellite))) {
        summary_.add({.satellite = name}, UnstoredReason::NoTransponders);
        return;
    }
    OutputPrint("Scanning %s", name.c_str());
    scanTransponders(*satellite.get(), name);
}

void Scanner::ScanAllSatellites()
{
    printAndLog(log_level::kDetail, "Scanning all satellites");
    ComPtr<IEnumSatellite> satellites;
    std::uint32_t total = 0;
    if (failed(enumSatellites(context_.satellites, true, satellites)) ||
        failed(context_.satellites->GetSatelliteCount(&total)))
        return;
    std::size_t number = 0;
    while (const auto satellite = nextOf<ISatellite>(*satellites.get())) {
        if (cancelled_)
            return;
        progress_.show(ScanLevel::Satellite, ++number, total);
        std::string name;
        if (failed(nameOf(*satellite.get(), name)))
            continue;
        OutputPrint("Scanning %s", name.c_str());
        const SatelliteEnd end = scanTransponders(*satellite.get(), name);
        if (end == SatelliteEnd::NoCount || end == SatelliteEnd::Cancelled)
            return;
    }
    printAndLog(log_level::kDetail, "Scanned all satellites");
}

Scanner::SatelliteEnd Scanner::scanTransponders(ISatellite& satellite, const std::string& name)
{
    ComPtr<IEnumSatTransponder> transponders;
    std::uint32_t total = 0;
    if (failed(enumTransponders(satellite, transponders))) {
        summary_.add({.satellite = name}, UnstoredReason::NoTransponders);
        return SatelliteEnd::NoTransponders;
    }
    if (failed(satellite.GetTransponderCount(&total))) {
        summary_.add({.satellite = name}, UnstoredReason::NoTransponders);
        return SatelliteEnd::NoCount;
    }
    std::size_t number = 0;
    while (const auto transponder = nextOf<ISatTransponder>(*transponders.get())) {
        if (cancelled_)
            return SatelliteEnd::Cancelled;
        progress_.show(ScanLevel::NitEntry, ++number, total);
        scanTransponder(*transponder.get(), name);
    }
    return cancelled_ ? SatelliteEnd::Cancelled : SatelliteEnd::Scanned;
}

void Scanner::scanTransponder(ISatTransponder& transponder, const std::string& satellite)
{
    SatelliteTuning tuning{};
    if (failed(readTuning(transponder, tuning))) {
        summary_.add({.satellite = satellite}, UnstoredReason::NoTransponders);
        return;
    }
    const ScannedStream stream{.satellite = satellite, .frequency = frequencyText(tuning)};
    if (failed(driver_.tune(context_.owner, {.tuning = tuning, .satellite = satellite})))
        summary_.add(stream, UnstoredReason::NotTuned);
    else if (!cancelled_ && !ReadNitAndScan(satellite))
        summary_.add(stream, UnstoredReason::NoNit);
}

} // namespace tessaview
