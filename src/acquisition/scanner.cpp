#include "acquisition/scanner.h"

#include "acquisition/section_batch.h"
#include "acquisition/section_decoding.h"
#include "acquisition/table_requests.h"
#include "log/output.h"
#include "log/report.h"
#include "platform/format.h"
#include "tuning/tuning_text.h"

#include <new>
#include <utility>

namespace tessaview {

namespace {

TableRequest nitRequest()
{
    const TableRequests always(TableSelection::fixed(0));
    return always.requests()[*always.place(SiTable::NitActual)];
}

NitMap decodeNits(const SectionBatch& batch)
{
    NitMap networks;
    const auto store = [&networks](lib13818::Nit&& nit) { storeNit(networks, std::move(nit)); };
    for (std::size_t i = 0; i < batch.usable(0); ++i)
        if (const auto fault = decodeSection<lib13818::Nit>(batch.section(0, i), store)) {
            printAndLog(log_level::kError, "Error parsing NIT section");
            reportFault(nitRequest(), batch.section(0, i).get(), *fault);
        }
    return networks;
}

/// Says where the tuner is about to go: MHz for satellites, kHz for cable.
void announceTuning(const Tuning& tuning)
{
    if (const TunerType type = typeOf(tuning); type != TunerType::Terrestrial)
        OutputPrint("Setting tuner: %lu",
                    static_cast<unsigned long>(frequencyOf(tuning) /
                                               (type == TunerType::Cable ? kKilo : kMegahertz)));
}

void reportTuningFailure(TunerType type)
{
    constexpr const char* text = "Failed to set tuner";
    if (type == TunerType::Satellite)
        printAndLog(log_level::kError, text);
    else
        OutputPrint(text);
}

} // namespace

std::string scanProgressText(std::size_t number, std::size_t total)
{
    return formatted("%zu of %zu", number, total);
}

Scanner::Scanner(ScanContext context, ScanProgress& progress, const std::atomic<bool>& cancelled)
    : context_(std::move(context))
    , driver_(context_.driver)
    , reader_(context_.driver, cancelled, context_.selection, context_.incomplete)
    , progress_(progress)
    , cancelled_(cancelled)
{
}

ScanSummary Scanner::run(ScanMode mode)
{
    switch (mode) {
    case ScanMode::CurrentTransponder:
        OutputPrint("Scanning current transponder");
        readInto({});
        return std::move(summary_);
    case ScanMode::AllSources:
        scanSources();
        break;
    case ScanMode::CurrentNit:
        scanCurrentNit();
        break;
    case ScanMode::SingleSatellite:
        ScanSatellite();
        break;
    case ScanMode::AllSatellites:
        ScanAllSatellites();
        break;
    }
    for (const std::string& line : summary_.lines())
        OutputPrint("%s", line.c_str());
    return std::move(summary_);
}

/// Reads each source of the driver, and sets the tuner back to where it was.
void Scanner::scanSources()
{
    const std::uint32_t total = driver_.sourceCount();
    const auto before = driver_.currentSource();
    for (std::uint32_t i = 0; i < total && !cancelled_; ++i) {
        progress_.reached(ScanLevel::TransportStream, i + 1, total);
        const ScannedStream stream{.source = driver_.sourceName(i)};
        printAndLog(log_level::kInformation, "Reading %s", stream.source.c_str());
        if (failed(driver_.selectSource(i)))
            addUntuned(stream);
        else
            readInto(stream);
    }
    if (before && !cancelled_)
        static_cast<void>(driver_.selectSource(*before));
}

void Scanner::scanCurrentNit()
{
    if (!context_.satellite)
        printAndLog(log_level::kInformation, "No satellite selected");
    else if (!ReadNitAndScan(*context_.satellite))
        summary_.add({.satellite = *context_.satellite}, nitProblem());
}

bool Scanner::ReadNitAndScan(const std::string& satellite)
{
    printAndLog(log_level::kDetail, "Reading current NIT");
    SectionBatch batch;
    const TableRequest request = nitRequest();
    bool mayLackSome = false;
    const Status result = driver_.read(batch, {&request, 1}, mayLackSome);
    summary_.addLack(mayLackSome);
    if (cancelled_)
        return true;
    if (failed(result) || batch.count(0) <= 0) {
        nitProblem_ = failed(result)
                          ? formatted("the driver could not read the NIT: %08X", statusCode(result))
                          : "the stream carries no NIT of the actual network";
        printAndLog(log_level::kError, "Failed to read current NIT");
        LogPrint(g_log, log_level::kError, "exit");
        return false;
    }
    printAndLog(log_level::kDetail, "Read %d NIT sections", batch.count(0));
    const NitMap networks = decodeNits(batch);
    batch.releaseAll();
    if (networks.empty()) {
        nitProblem_ = "no section of its NIT can be decoded";
        printAndLog(log_level::kError, "Failed to read NIT");
        return false;
    }
    LogPrint(g_log, log_level::kDetail, "scan network");
    ScanNetwork(networks, satellite);
    LogPrint(g_log, log_level::kDetail, "scanned network");
    LogPrint(g_log, log_level::kError, "exit");
    return true;
}

void Scanner::ScanNetwork(const NitMap& networks, const std::string& satellite)
{
    if (networks.empty() || networks.begin()->second.empty())
        return;
    TunerType type{};
    if (failed(driver_.tunerType(type))) {
        summary_.add({.satellite = satellite}, UnstoredReason::TunerFailed);
        return;
    }
    TunerSetting before; // none unless the driver answers exactly zero
    if (TunerSetting now; driver_.currentSetting(type, now) == status::kOk)
        before = std::move(now);
    const NitSections& sections = networks.begin()->second;
    std::size_t number = 0;
    for (const auto& [section_number, nit] : sections) {
        progress_.reached(ScanLevel::NitSection, ++number, sections.size());
        if (!scanSection(nit, type, satellite))
            return;
    }
    LogPrint(g_log, log_level::kDetail, "restoring tuner");
    driver_.tune(context_.owner, before);
}

bool Scanner::scanSection(const lib13818::Nit& nit, TunerType type, const std::string& satellite)
{
    const std::size_t total = nit.transportStreams.size();
    OutputPrint("%d entries in NIT section", static_cast<int>(total));
    std::size_t number = 0;
    for (const auto& entry : nit.transportStreams) {
        if (cancelled_)
            return false;
        progress_.reached(ScanLevel::TransportStream, ++number, total);
        if (!tunerTypeOf(static_cast<std::uint32_t>(type))) {
            summary_.add({.satellite = satellite}, UnstoredReason::UnknownTuner);
            return false;
        }
        scanEntry(entry, type, satellite);
    }
    return !cancelled_;
}

void Scanner::scanEntry(const lib13818::TransportStreamEntry& entry, TunerType type,
                        const std::string& satellite)
{
    const TunerSetting setting{.tuning = tuningIn(entry.descriptors, type), .satellite = satellite};
    const ScannedStream stream{.satellite = satellite,
                               .original_network_id = sectionKey(entry.original_network_id),
                               .transport_stream_id = sectionKey(entry.transport_stream_id),
                               .frequency = frequencyText(setting.tuning)};
    if (!setting.isGiven()) {
        summary_.add(stream, UnstoredReason::NoParameters);
        return;
    }
    announceTuning(setting.tuning);
    if (failed(driver_.tune(context_.owner, setting))) {
        reportTuningFailure(type);
        addUntuned(stream);
    } else if (!cancelled_) {
        readInto(stream);
    }
}

void Scanner::addUntuned(const ScannedStream& stream)
{
    if (!cancelled_) // else the driver was interrupted
        summary_.add(stream, UnstoredReason::NotTuned);
}

void Scanner::readInto(const ScannedStream& stream)
{
    try {
        summary_.add(stream, reader_.ReadCurrentTransponder(*context_.model));
    } catch (const std::bad_alloc&) { // the next one may be smaller
        summary_.add(stream, {UnstoredReason::ReadFailed, "there is not enough memory for it"});
    }
}

} // namespace tessaview
