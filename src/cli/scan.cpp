#include "cli/scan.h"

#include "cli/complain.h"
#include "cli/export_database.h"
#include "cli/open_driver.h"
#include "cli/print_tree.h"
#include "cli/run_scan.h"
#include "cli/satellites.h"
#include "driver/driver_session.h"
#include "log/log_file.h"
#include "platform/paths.h"
#include "platform/settings.h"
#include "si/texts/registries.h"
#include "tree/tree.h"
#include "tuning/parse_tuning.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <new>
#include <stdexcept>

namespace tessaview {

namespace {

/// Reads the setting that the options ask for, if any, for the driver's kind of tuner.
bool readSetting(const Options& options, const DriverSession& session, TunerSetting& setting)
{
    if (options.tune.empty())
        return true;
    TunerType type{};
    std::string problem = "the driver does not tell what kind of tuner it has";
    const DriverAccess driver(session.driver());
    if (!failed(driver.tunerType(type)))
        setting = {.tuning = parseTuning(type, options.tune, problem),
                   .satellite = options.satellite};
    else if (const std::string says = driver.statusText(); !says.empty())
        problem += ": " + says;
    if (!setting.isGiven())
        complain("--tune: " + problem);
    return setting.isGiven();
}

/// What is read stays until the process ends: giving back millions of sections one by one takes
/// longer than writing them, and serves nobody.
NetworkMap& modelOfProcess()
{
    static NetworkMap* const model = std::make_unique<NetworkMap>().release();
    return *model;
}

/// Gives the exit status of it: 0 when all of the model could be written.
int print(const NetworkMap& model, const Options& options)
{
    logNetworks(model);
    try {
        if (options.format != OutputFormat::None)
            printTree(std::cout, TreeWalk(model, options.charsets), options.format);
    } catch (const std::bad_alloc&) {
        complain("there is not enough memory for the whole tree: the output ends early");
        return kExitMayLackSome;
    } catch (const std::length_error& problem) {
        complain(std::string(problem.what()) + ": the output ends early");
        return kExitMayLackSome;
    }
    std::cout.flush();
    if (std::cout)
        return kExitStored;
    complain("the output cannot be written");
    return kExitWrongUsage;
}

} // namespace

int scan(const Options& options)
{
    const bool isLogNamed = !options.log.empty();
    const int opened = openApplicationLog(isLogNamed ? options.log : logPathFor(executablePath()));
    if (isLogNamed && opened != 0) {
        complain("the log '" + options.log +
                 (opened == kForeignLog ? "' is a file that holds something else than a log; "
                                          "name another, or move it away"
                                        : "' cannot be written"));
        return kExitWrongUsage;
    }
    lib13818::buildRegistries();
    const auto registry = std::make_shared<const ClassRegistry>(componentSearchPath());
    if (options.listDrivers) {
        printDrivers(*registry);
        return kExitStored;
    }

    if (const std::string obstacle = exportObstacle(options.exportDb); !obstacle.empty()) {
        complain(obstacle);
        return kExitExportFailed;
    }
    const ComPtr<ISatListManager> satellites = openSatelliteList(*registry);
    if (!checkSatellite(options, satellites.get()))
        return kExitWrongUsage;

    const std::shared_ptr<DriverSession> session = openDriver(options, registry, satellites);
    if (!session)
        return kExitWrongUsage;
    TunerSetting setting;
    if (!readSetting(options, *session, setting))
        return kExitWrongUsage;

    NetworkMap& model = modelOfProcess();
    const bool isWhole = runScan(options, setting, *session, satellites.get(), model);
    closeDriver(session);

    const std::string exportProblem = exportTo(options.exportDb, model, options.charsets);
    complain(exportProblem);
    if (const int status = print(model, options); status != kExitStored)
        return status;
    if (!exportProblem.empty())
        return kExitExportFailed;
    if (model.empty())
        return kExitNothing;
    return isWhole ? kExitStored : kExitMayLackSome;
}

} // namespace tessaview
