#include "cli/scan.h"

#include "acquisition/tuning_text.h"
#include "cli/complain.h"
#include "cli/export_database.h"
#include "cli/print_tree.h"
#include "cli/run_scan.h"
#include "cli/satellites.h"
#include "driver/driver_session.h"
#include "driver/source_files.h"
#include "explorer/tree.h"
#include "log/log_file.h"
#include "platform/paths.h"
#include "platform/settings.h"
#include "si/texts/registries.h"

#include <filesystem>
#include <iostream>

namespace tessaview {

namespace {

int printDrivers(const ClassRegistry& registry, const DriverList& list)
{
    for (const DriverChoice& driver : list.drivers)
        std::cout << driver.name << "  " << toText(driver.clsid) << '\n';
    for (const DriverProblem& problem : list.problems)
        complain(problem.message() + " (" + problem.detail + ")");
    for (const std::string& problem : registry.problems())
        complain(problem);
    return kExitStored;
}

DriverPlaces driverPlaces()
{
    const std::filesystem::path user = userDataFolder();
    return {.settingsKey = std::string(kSettingsKey),
            .userFolder = user,
            .commonFolder = allUsersDataFolder().value_or(user)};
}

/// The drivers to try: the one named, for captures each that may read files, else the stored one.
std::vector<Guid> candidates(const Options& options, const DriverList& list)
{
    std::vector<Guid> classes;
    if (!options.driver.empty()) {
        if (const DriverChoice* driver = findDriver(list, options.driver))
            classes.push_back(driver->clsid);
        else
            complain("no driver is called '" + options.driver +
                     "'; --list-drivers lists those there are");
    } else if (!options.captures.empty()) {
        for (const DriverChoice& driver : list.drivers)
            if (driver.readsFiles)
                classes.push_back(driver.clsid);
        if (classes.empty())
            complain("no driver is installed that can read captures");
    } else if (const auto stored =
                   Settings(defaultSettingsFile()).text(kSettingsKey, "driverclsid")) {
        if (const auto clsid = parseGuid(*stored))
            classes.push_back(*clsid);
    }
    if (classes.empty() && options.driver.empty() && options.captures.empty())
        complain("name a capture to read, or a driver with --driver; --help tells more");
    return classes;
}

/// Points a driver at the captures.
bool useCaptures(IUnknown* driver, const std::vector<std::string>& captures)
{
    std::string problems;
    const Status result = useSourceFiles(driver, captures, problems);
    complain(problems);
    return !failed(result);
}

/// Opens the first driver that serves the options.
bool openDriver(const Options& options, const ClassRegistry& registry, const DriverList& list,
                ISatListManager* satellites, DriverSession& session)
{
    const std::vector<Guid> classes = candidates(options, list);
    for (const Guid& clsid : classes) {
        std::string why;
        if (failed(session.open(registry, clsid, driverPlaces(), satellites, why))) {
            complain("the driver " + toText(clsid) + " cannot be used: " + why);
            continue;
        }
        if (options.captures.empty())
            return true;
        if (canReadFiles(session.driver()))
            return useCaptures(session.driver(), options.captures);
        session.close();
    }
    if (!classes.empty() && !options.captures.empty())
        complain("no driver that was tried can read captures");
    return false;
}

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

} // namespace

int scan(const Options& options)
{
    const bool isLogNamed = !options.log.empty();
    const int opened = openApplicationLog(isLogNamed ? options.log : logPathFor(executablePath()));
    if (isLogNamed && opened != 0) {
        complain("the log '" + options.log + "' cannot be written");
        return kExitWrongUsage;
    }
    lib13818::buildRegistries();
    const ClassRegistry registry(componentSearchPath());
    const DriverList list = listDrivers(registry);
    if (options.listDrivers)
        return printDrivers(registry, list);

    if (const std::string obstacle = exportObstacle(options.exportDb); !obstacle.empty()) {
        complain(obstacle);
        return kExitExportFailed;
    }
    const ComPtr<ISatListManager> satellites = openSatelliteList(registry);
    if (!checkSatellite(options, satellites.get()))
        return kExitWrongUsage;

    DriverSession session;
    if (!openDriver(options, registry, list, satellites.get(), session))
        return kExitWrongUsage;
    TunerSetting setting;
    if (!readSetting(options, session, setting))
        return kExitWrongUsage;

    NetworkMap model;
    runScan(options, setting, session, satellites.get(), model);
    session.close();

    const std::string exportProblem = exportTo(options.exportDb, model, options.charsets);
    complain(exportProblem);
    Tree tree;
    tree.setCharsetPolicy(options.charsets);
    tree.rebuild(model);
    printTree(std::cout, tree, options.format);
    std::cout.flush();
    if (!std::cout) {
        complain("the output cannot be written");
        return kExitWrongUsage;
    }
    if (!exportProblem.empty())
        return kExitExportFailed;
    return model.empty() ? kExitNothing : kExitStored;
}

} // namespace tessaview
