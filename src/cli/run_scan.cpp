#include "cli/run_scan.h"

#include "acquisition/read_watch.h"
#include "acquisition/scanner.h"
#include "cli/complain.h"
#include "cli/interrupt_key.h"
#include "cli/progress.h"
#include "driver/cancellation.h"
#include "log/log_file.h"
#include "log/log_line.h"
#include "tuning/tuning_text.h"

#include <iostream>
#include <optional>

namespace tessaview {

namespace {

constexpr const char* kCancelled = "nothing was stored: cancelled";

TableSelection selectionOf(const Options& options)
{
    return options.tables ? TableSelection::fixed(*options.tables) : TableSelection::stored();
}

/// Where the driver is looking, for the parameters of the NIT that it receives there: a name of
/// the options, else its own, if it has one.
std::string satelliteOf(const Options& options, const DriverAccess& driver)
{
    TunerSetting setting{.satellite = options.satellite};
    if (setting.satellite.empty() && options.mode == ScanMode::CurrentNit)
        static_cast<void>(driver.currentSetting(TunerType::Satellite, setting));
    return setting.satellite;
}

/// All captures, where several were given and nothing else was asked for.
ScanMode modeOf(const Options& options, const DriverAccess& driver)
{
    if (options.mode)
        return *options.mode;
    return !options.captures.empty() && options.tune.empty() && driver.sourceCount() > 1
               ? ScanMode::AllSources
               : ScanMode::CurrentTransponder;
}

/// A failure, and what the driver says of itself.
void complainOf(const DriverAccess& driver, const std::string& failure)
{
    complain(failure);
    if (const std::string says = driver.statusText(); !says.empty())
        complain("the driver says: " + says);
}

/// What keeps the scan from its beginning is complained about.
bool setTuner(const TunerSetting& setting, const DriverAccess& driver,
              const std::atomic<bool>& cancelled)
{
    constexpr const char* text = "Failed to set tuner";
    OutputPrint("Setting tuner: %s", frequencyText(setting.tuning).c_str());
    const bool isSet = !failed(driver.tune(nullptr, setting));
    if (cancelled) {
        complain(kCancelled);
    } else if (!isSet) {
        LogPrint(g_log, log_level::kError, text);
        complainOf(driver, text);
    }
    return isSet && !cancelled;
}

/// Nothing when the scan did not begin.
std::optional<ScanSummary> scanInto(NetworkMap& model, const Options& options,
                                    const TunerSetting& setting, const DriverSession& session,
                                    ISatListManager* satellites, const std::atomic<bool>& cancelled)
{
    std::optional<ProgressDisplay> display;
    std::optional<ProblemsOnly> quiet;
    if (options.quiet)
        quiet.emplace(std::cerr);
    else
        display.emplace(std::cerr, standardErrorColumns());
    ScanProgress& progress = display ? static_cast<ScanProgress&>(*display) : *quiet;
    const DriverAccess driver(session.driver());
    const ReadWatch watch(session.driver(), progress);
    if (setting.isGiven() && !setTuner(setting, driver, cancelled))
        return std::nullopt;
    Scanner scanner(
        {.driver = session.driver(),
         .satellites = satellites,
         .model = &model,
         .selection = selectionOf(options),
         .satellite = satelliteOf(options, driver),
         .incomplete = options.incomplete ? IncompleteStreams::Store : IncompleteStreams::Refuse},
        progress, cancelled);
    return scanner.run(modeOf(options, driver));
}

/// Says what is missing, and why.
void reportMissing(const Options& options, const ScanSummary& summary, bool isCancelled,
                   const DriverAccess& driver)
{
    const bool hasTable =
        modeOf(options, driver) != ScanMode::CurrentTransponder && summary.failedCount() > 0;
    if (options.quiet && hasTable) // else it was among the lines
        for (const std::string& line : summary.lines())
            std::cerr << asOneLine(line) << '\n';
    if (summary.storedCount() > 0) {
        if (isCancelled)
            complain("cancelled; what was read until then is shown");
        return;
    }
    if (isCancelled) {
        complain(kCancelled);
        return;
    }
    std::string reason;
    if (summary.empty())
        reason = ": there was nothing to scan";
    else if (summary.unstored().size() == 1)
        reason = ": " + summary.unstored().begin()->second.text;
    if (summary.hasIncomplete())
        reason += "; --incomplete shows what there is";
    complainOf(driver, "nothing was stored" + reason);
}

} // namespace

bool runScan(const Options& options, const TunerSetting& setting, const DriverSession& session,
             ISatListManager* satellites, NetworkMap& model)
{
    Cancellation cancellation(session.driver());
    const InterruptKey key(cancellation);
    const Cancellation::Work work(cancellation);
    const auto summary =
        scanInto(model, options, setting, session, satellites, cancellation.flag());
    if (!summary)
        return false;
    reportMissing(options, *summary, cancellation.flag(), DriverAccess(session.driver()));
    return !summary->mayLackSome();
}

} // namespace tessaview
