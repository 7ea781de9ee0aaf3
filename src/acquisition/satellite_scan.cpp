#include "acquisition/scanner.h"
#include "log/output.h"
#include "log/report.h"
#include "satlist/list_access.h"
#include "tuning/tuning_text.h"

#include <cstddef>
#include <utility>

// The part of a scan that goes by the satellite list.

namespace tessaview {

void Scanner::ScanSatellite()
{
    if (!context_.satellite) {
        progress_.askForSatellite();
        return;
    }
    const std::string& name = *context_.satellite;
    ComPtr<ISatellite> satellite;
    if (!context_.satellites ||
        failed(getSatellite(*context_.satellites, Bstr(std::string_view(name)), satellite))) {
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
    if (!context_.satellites || failed(enumSatellites(*context_.satellites, true, satellites)) ||
        failed(context_.satellites->GetSatelliteCount(&total)))
        return;
    std::size_t number = 0;
    for (const auto& satellite : Items(satellites.get())) {
        if (cancelled_)
            return;
        progress_.reached(ScanLevel::Satellite, ++number, total);
        std::string name;
        if (failed(satelliteName(*satellite.get(), name)))
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
    if (failed(enumTransponders(satellite, TransponderUse::Scan, transponders))) {
        summary_.add({.satellite = name}, UnstoredReason::NoTransponders);
        return SatelliteEnd::NoTransponders;
    }
    if (failed(satellite.GetTransponderCount(&total))) {
        summary_.add({.satellite = name}, UnstoredReason::NoTransponders);
        return SatelliteEnd::NoCount;
    }
    std::size_t number = 0;
    for (const auto& transponder : Items(transponders.get())) {
        if (cancelled_)
            return SatelliteEnd::Cancelled;
        progress_.reached(ScanLevel::NitEntry, ++number, total);
        scanTransponder(*transponder.get(), name);
    }
    return cancelled_ ? SatelliteEnd::Cancelled : SatelliteEnd::Scanned;
}

void Scanner::scanTransponder(ISatTransponder& transponder, const std::string& satellite)
{
    TransponderEntry entry;
    if (failed(readTransponder(transponder, entry))) {
        summary_.add({.satellite = satellite}, UnstoredReason::NoTransponders);
        return;
    }
    const TunerSetting setting{.tuning = tuningOf(entry), .satellite = satellite};
    const ScannedStream stream{.satellite = satellite, .frequency = frequencyText(setting.tuning)};
    if (failed(driver_.tune(context_.owner, setting)))
        addUntuned(stream);
    else if (!cancelled_ && !ReadNitAndScan(satellite))
        summary_.add(stream, nitProblem());
}

} // namespace tessaview
