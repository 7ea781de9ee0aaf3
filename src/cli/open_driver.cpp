#include "cli/open_driver.h"

#include "acquisition/driver_start.h"
#include "cli/complain.h"
#include "cli/progress.h"
#include "driver/source_files.h"
#include "log/log_line.h"
#include "platform/paths.h"
#include "platform/settings.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <iterator>
#include <optional>

namespace tessaview {

namespace {

DriverPlaces driverPlaces()
{
    const std::filesystem::path user = userDataFolder();
    return {.settingsKey = std::string(kSettingsKey),
            .userFolder = user,
            .commonFolder = allUsersDataFolder().value_or(user)};
}

std::string noAnswer(const std::string& driver, const PendingCall& call)
{
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(driverPatience());
    return "the driver " + driver + " does not answer: " + call.operation() +
           " has not returned within " + std::to_string(seconds.count()) +
           " s; TESSAVIEW_DRIVER_PATIENCE=SECONDS sets another limit";
}

/// Asks every driver for its name; complains of those that do not give one.
DriverList namedDrivers(const ClassRegistry& registry)
{
    DriverList found;
    for (const ComponentClass& driver : registry.classesOf(kDriverCategory)) {
        const auto list = std::make_shared<DriverList>();
        const PendingCall call([list, driver, registry](const CallObserver& observer) {
            listDriver(registry, driver, *list, observer);
        });
        if (!call.waitFor(driverPatience())) {
            complain(noAnswer(driver.name, call));
            continue;
        }
        std::move(list->drivers.begin(), list->drivers.end(), std::back_inserter(found.drivers));
        for (const DriverProblem& problem : list->problems)
            complain(driver.name + ": " + problem.message() + " (" + problem.detail + ")");
    }
    return found;
}

/// The class that the options name: by its identifier, by the name in its manifest or, only if
/// need be, by the name that the driver itself gives.
std::optional<Guid> namedClass(const std::string& name, const ClassRegistry& registry)
{
    if (const auto clsid = parseGuid(name)) {
        if (registry.find(*clsid))
            return clsid;
        complain("no driver of the class " + name + " is installed");
        return std::nullopt;
    }
    std::optional<Guid> found;
    for (const ComponentClass& driver : registry.classesOf(kDriverCategory))
        if (driver.name == name)
            found = driver.clsid;
    if (found)
        return found;
    if (const DriverList list = namedDrivers(registry); const auto* driver = findDriver(list, name))
        return driver->clsid;
    complain("no driver is called '" + name + "'; --list-drivers lists those there are");
    return std::nullopt;
}

/// The class to start; empty for any that reads captures; nothing when none is asked for.
std::optional<std::string> chosenClass(const Options& options, const ClassRegistry& registry)
{
    if (!options.driver.empty()) {
        const auto named = namedClass(options.driver, registry);
        return named ? std::optional(toText(*named)) : std::nullopt;
    }
    if (!options.captures.empty())
        return "";
    const auto stored = Settings(defaultSettingsFile()).text(kSettingsKey, "driverclsid");
    if (!stored || !parseGuid(*stored)) {
        complain("name a capture to read, or a driver with --driver; --help tells more");
        return std::nullopt;
    }
    return stored;
}

/// Waits for a driver to start and shows how far it is with looking at captures, which may take
/// long: that it has begun shows that the driver is alive. False when it does not answer.
bool waitForStart(const PendingCall& call, const OperationProgress& progress, bool isQuiet)
{
    using Clock = std::chrono::steady_clock;
    constexpr auto kTurn = std::chrono::milliseconds(150);
    StatusLine line(std::cerr, isQuiet ? 0 : standardErrorColumns());
    Clock::time_point lastSign = Clock::now();
    while (!call.waitFor(kTurn)) {
        const OperationProgress::Now now = progress.now();
        if (now.total > 0 || call.operation() == kLooksAtCaptures) {
            lastSign = Clock::now();
            line.show(lookText(now));
        } else if (Clock::now() - lastSign >= driverPatience()) {
            return false;
        }
    }
    return true;
}

} // namespace

void printDrivers(const ClassRegistry& registry)
{
    for (const DriverChoice& driver : namedDrivers(registry).drivers)
        std::cout << asOneLine(driver.name) << "  " << toText(driver.clsid) << '\n';
    for (const ComponentClass& each : registry.classes())
        if (!each.categories.empty() && std::find(each.categories.begin(), each.categories.end(),
                                                  kDriverCategory) == each.categories.end())
            complain(each.manifest.string() +
                     ": none of its categories is that of tuner drivers, " +
                     toText(kDriverCategory));
    for (const std::string& problem : registry.problems())
        complain(problem);
    std::cout.flush();
}

std::shared_ptr<DriverSession> openDriver(const Options& options,
                                          const std::shared_ptr<const ClassRegistry>& registry,
                                          const ComPtr<ISatListManager>& satellites)
{
    const auto clsid = chosenClass(options, *registry);
    if (!clsid)
        return nullptr;
    const auto start = std::make_shared<DriverStart>();
    start->registry = registry;
    start->places = driverPlaces();
    start->satellites = satellites;
    start->clsid = *clsid;
    start->captures = options.captures;
    PendingCall call([start](const CallObserver& observer) { start->run(observer); });
    if (!waitForStart(call, start->progress, options.quiet)) {
        complain(noAnswer(clsid->empty() ? "for captures" : *clsid, call));
        return nullptr;
    }
    if (!start->session) {
        complain("the driver " + start->driverName() + " cannot be used: " + start->why);
        return nullptr;
    }
    complain(start->captured.problems);
    if (start->captured.status == status::kNoInterface)
        complain("the driver " + start->driverName() + " cannot read captures");
    return failed(start->captured.status) ? nullptr : start->session;
}

void closeDriver(std::shared_ptr<DriverSession> session)
{
    const PendingCall call([session](const CallObserver& observer) {
        observer("Shutdown");
        session->close();
    });
    session.reset();
    if (!call.waitFor(driverPatience()))
        complain(noAnswer("that was used", call));
}

} // namespace tessaview
