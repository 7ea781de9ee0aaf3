#include "cli/run_scan.h"

#include "acquisition/scanner.h"
#include "cli/complain.h"
#include "cli/progress.h"

#include <atomic>
#include <csignal>
#include <iostream>
#include <optional>

namespace tessaview {

namespace {

std::atomic<bool> cancelled = false;

/// The first Ctrl+C asks for an end after the driver's call, a second one ends at once.
void cancelOnInterrupt()
{
    std::signal(SIGINT, [](int) {
        cancelled = true;
        std::signal(SIGINT, SIG_DFL);
    });
}

TableSelection selectionOf(const Options& options)
{
    return options.tables ? TableSelection::fixed(*options.tables) : TableSelection::stored();
}

/// Where the driver is looking, for the parameters of the NIT that it receives there: a name of
/// the options, else its own, if it has one.
std::string satelliteOf(const Options& options, const DriverSession& session)
{
    std::string name = options.satellite;
    SatelliteTuning tuning{};
    if (name.empty() && options.mode == ScanMode::CurrentNit)
        static_cast<void>(DriverAccess(session.driver()).currentTuning(tuning, name));
    return name;
}

ScanSummary scanInto(NetworkMap& model, const Options& options, const DriverSession& session,
                     ISatListManager* satellites)
{
    std::optional<ProgressDisplay> display;
    NoProgress unseen;
    if (!options.quiet)
        display.emplace(std::cerr, standardErrorColumns());
    ScanProgress& progress = display ? static_cast<ScanProgress&>(*display) : unseen;
    Scanner scanner({.driver = session.driver(),
                     .satellites = satellites,
                     .model = &model,
                     .selection = selectionOf(options),
                     .satellite = satelliteOf(options, session)},
                    progress, cancelled);
    return scanner.run(options.mode);
}

/// Says what is missing, and why.
void reportMissing(const Options& options, const ScanSummary& summary)
{
    const bool hasTable = options.mode != ScanMode::CurrentTransponder && summary.failedCount() > 0;
    if (options.quiet && hasTable) // else it was among the lines
        for (const std::string& line : summary.lines())
            std::cerr << line << '\n';
    if (summary.storedCount() > 0) {
        if (cancelled)
            complain("cancelled; what was read until then is shown");
        return;
    }
    std::string reason;
    if (cancelled)
        reason = ": cancelled";
    else if (summary.empty())
        reason = ": there was nothing to scan";
    else if (summary.unstored().size() == 1)
        reason = std::string(": ") + unstoredReasonText(summary.unstored().begin()->second);
    complain("nothing was stored" + reason);
}

} // namespace

void runScan(const Options& options, const DriverSession& session, ISatListManager* satellites,
             NetworkMap& model)
{
    cancelOnInterrupt();
    reportMissing(options, scanInto(model, options, session, satellites));
}

} // namespace tessaview
