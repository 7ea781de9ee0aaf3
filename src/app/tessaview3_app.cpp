#include "app/tessaview3_app.h"

#include "acquisition/driver_start.h"
#include "component/bstr.h"
#include "driver/source_files.h"
#include "log/log_file.h"
#include "log/output.h"
#include "platform/build_info.h"
#include "platform/format.h"
#include "platform/settings.h"
#include "satlist/list_storage.h"
#include "si/texts/registries.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tessaview {

namespace {

constexpr const char* kDriverFailed = "Failed to initialize driver";
constexpr const char* kCaptureDriver = "for captured streams";
constexpr const char* kStartMarkFile = "start-under-way";

void createFolder(const std::filesystem::path& folder)
{
    std::error_code ignored; // what is to be kept there says so when it cannot be written
    std::filesystem::create_directories(folder, ignored);
}

} // namespace

CTessaview3App::CTessaview3App(ApplicationHost& host, ApplicationPlaces places,
                               std::vector<std::string> captures, DriverPatience patience)
    : host_(host)
    , places_(std::move(places))
    , captures_(std::move(captures))
    , patience_(patience)
    , registry_(std::make_shared<ClassRegistry>(places_.componentFolders))
{
}

CTessaview3App::~CTessaview3App() = default;

bool CTessaview3App::InitInstance()
{
    const int opened = openApplicationLog(places_.logFile);
    if (opened != 0 && places_.isLogNamed) {
        host_.showMessage("The log cannot be written.", places_.logFile);
        return false;
    }
    for (const std::string& problem : registry_->problems())
        LogPrint(g_log, log_level::kError, "%s", problem.c_str());
    lib13818::buildRegistries();
    findFolders();
    if (!loadSatellites())
        return false;
    host_.setUpFramework();
    findBuildNumber();
    startMark_ = std::make_shared<StartMark>(
        places_.stateFolder.empty() ? places_.stateFolder : places_.stateFolder / kStartMarkFile);
    CaptureResult captured;
    if (!settleLastStart())
        return false;
    if (!(captures_.empty() ? startChosenDriver() : startFileDriver(captures_, captured)))
        return false;
    if (!host_.processShellCommand(*this))
        return false;
    if (!satelliteProblem_.empty())
        OutputProblem("%s", satelliteProblem_.c_str());
    host_.showMainWindow();
    if (!captures_.empty() && announce(captured))
        host_.readCurrentTransponder();
    return true;
}

void CTessaview3App::ExitInstance()
{
    if (startMark_)
        startMark_->finish();
    saveSatellites();
    shutDownDrivers();
}

void CTessaview3App::leaveStuck()
{
    LogPrint(g_log, log_level::kError, "the driver is in a call that does not return");
    saveSatellites();
    endProcess(0);
}

void CTessaview3App::endProcess(int exitStatus)
{
    g_log.Close();
    std::fflush(nullptr);
    ::_exit(exitStatus);
}

void CTessaview3App::findFolders()
{
    if (places_.allUsersFolder) {
        allUsersFolder_ = *places_.allUsersFolder;
        LogPrint(g_log, log_level::kInformation, "all users application path: %s",
                 allUsersFolder_.c_str());
    } else {
        LogPrint(g_log, log_level::kError, "Failed to get all users application path");
    }
    userFolder_ = places_.userFolder;
    if (userFolder_.empty())
        LogPrint(g_log, log_level::kError, "Failed to get user application path");
    else
        LogPrint(g_log, log_level::kInformation, "user application path: %s", userFolder_.c_str());
    if (allUsersFolder_.empty())
        allUsersFolder_ = userFolder_;
    createFolder(allUsersFolder_);
    createFolder(userFolder_);
}

bool CTessaview3App::loadSatellites()
{
    std::string why;
    const Status created = registry_->create(kSatListManagerClass, satellites_, &why);
    if (failed(created)) {
        host_.showMessage(formatted("Failed to create sat list manager: %08X", statusCode(created)),
                          why);
        return false;
    }
    if (failed(loadSatelliteList(*satellites_.get(), satelliteFile(), &why)) && !why.empty()) {
        satelliteProblem_ = "The built-in satellite list is used: " + why;
        LogPrint(g_log, log_level::kError, "%s", satelliteProblem_.c_str());
    }
    return true;
}

void CTessaview3App::saveSatellites()
{
    if (!satellites_)
        return;
    std::string why;
    const Status saved = saveSatelliteList(*satellites_.get(), satelliteFile(), &why);
    if (failed(saved))
        host_.showMessage(formatted("Failed to save sat list: %08X", statusCode(saved)),
                          why.empty() ? satelliteFile().string() : why);
}

/// Empty, a name that nothing can be loaded from or saved to, when there is no folder.
std::filesystem::path CTessaview3App::satelliteFile() const
{
    if (allUsersFolder_.empty())
        return {};
    return allUsersFolder_ / kSatelliteListFile;
}

void CTessaview3App::findBuildNumber()
{
    const std::string path = places_.executable.string();
    if (path.empty()) {
        LogPrint(g_log, log_level::kError, "Failed to get file name: %lu",
                 static_cast<unsigned long>(ENOENT));
    } else if (path.find('/') == std::string::npos) {
        LogPrint(g_log, log_level::kError, "Failed to locate backslash");
    } else {
        buildNumber_ = kBuildNumber;
        LogPrint(g_log, log_level::kInformation, "build=%d", buildNumber_);
    }
}

/// Asks, when the last start did not come back from a driver that this one is about to call. False
/// when the program is to end instead.
bool CTessaview3App::settleLastStart()
{
    const auto& last = startMark_->last();
    if (!last || !wouldCall(*last))
        return true;
    const std::string text = "The last start did not end well: the driver " + last->driver +
                             " did not come back from its call " + last->operation + ".";
    LogPrint(g_log, log_level::kError, "%s", text.c_str());
    const std::string others = captures_.empty() ? "another driver can be chosen then"
                                                 : "another driver, if there is one, reads the "
                                                   "captures then";
    const auto triesAgain = host_.askToTryAgain(
        text, toText(last->clsid) + "\nTry it again, or start without it: " + others + ".");
    if (!triesAgain)
        return false;
    startMark_->clear();
    if (*triesAgain)
        return true;
    leftOut_ = last->clsid;
    if (captures_.empty())
        forgetDriverChoice();
    return true;
}

bool CTessaview3App::wouldCall(const MarkedCall& last) const
{
    const ComponentClass* const driver = registry_->find(last.clsid);
    if (!driver)
        return false;
    if (!captures_.empty()) {
        const auto drivers = registry_->classesOf(kDriverCategory);
        const auto readsFiles = [](const ComponentClass& each) { return each.readsFiles; };
        return driver->readsFiles || std::none_of(drivers.begin(), drivers.end(), readsFiles);
    }
    const auto choice = Settings(places_.settingsFile).text(kSettingsKey, kDriverClassValue);
    return !choice || parseGuid(*choice) == last.clsid;
}

/// The stored choice, or what the user chooses now; empty when he does not.
std::string CTessaview3App::read_driver_clsid()
{
    LogPrint(g_log, log_level::kInformation, "read_driver_clsid()");
    const Settings settings(places_.settingsFile);
    std::optional<std::string> choice = settings.text(kSettingsKey, kDriverClassValue);
    if (!choice) {
        choice = host_.RunDriverSelection(*this, !settings.canOpen(kSettingsKey));
        if (choice)
            storeDriverChoice(*choice);
    }
    LogPrint(g_log, log_level::kInformation, "read_driver_clsid() exit");
    return choice.value_or("");
}

void CTessaview3App::storeDriverChoice(const std::string& choice)
{
    try {
        Settings(places_.settingsFile).setText(kSettingsKey, kDriverClassValue, choice);
    } catch (const SettingsError& problem) {
        LogPrint(g_log, log_level::kError, "%s", problem.what());
        host_.showMessage("The chosen driver is used now but cannot be remembered.",
                          problem.what());
    }
}

void CTessaview3App::forgetDriverChoice() const
{
    try {
        Settings(places_.settingsFile).remove(kSettingsKey, kDriverClassValue);
    } catch (const SettingsError& problem) {
        LogPrint(g_log, log_level::kError, "%s", problem.what());
    }
}

bool CTessaview3App::startChosenDriver()
{
    const auto start = newDriverStart();
    start->clsid = read_driver_clsid();
    if (startDriver(start, start->driverName()))
        return true;
    forgetDriverChoice();
    return false;
}

bool CTessaview3App::startFileDriver(const std::vector<std::string>& captures,
                                     CaptureResult& result)
{
    const auto start = newDriverStart();
    start->captures = captures;
    if (!startDriver(start, kCaptureDriver))
        return false;
    result = start->captured;
    return true;
}

std::shared_ptr<DriverStart> CTessaview3App::newDriverStart() const
{
    auto start = std::make_shared<DriverStart>();
    start->registry = registry_;
    start->places = {.settingsKey = std::string(kSettingsKey),
                     .userFolder = userFolder_,
                     .commonFolder = allUsersFolder_};
    start->satellites = satellites_;
    start->leftOut = leftOut_;
    start->mark = startMark_;
    return start;
}

/// Makes the calls that start a driver and tells the user when they fail.
bool CTessaview3App::startDriver(const std::shared_ptr<DriverStart>& start,
                                 const std::string& driverName)
{
    const PendingCall call([start](const CallObserver& observer) { start->run(observer); });
    if (!host_.waitForDriver(call, driverName, start->progress)) {
        LogPrint(g_log, log_level::kError, "the driver %s does not answer %s", driverName.c_str(),
                 call.operation().c_str());
        return false;
    }
    if (start->session) {
        drivers_.push_back(start->session);
        lastStarted_ = {.clsid = parseGuid(start->clsid).value_or(Guid{}),
                        .driver = start->driverName(),
                        .operation = {}};
        return true;
    }
    const std::string detail = start->problem(call.operation());
    LogPrint(g_log, log_level::kError, "%s: %s", kDriverFailed, detail.c_str());
    host_.showMessage(kDriverFailed, detail);
    return false;
}

bool CTessaview3App::openCaptures(const std::vector<std::string>& captures)
{
    if (!canReadFiles(driver())) {
        CaptureResult result;
        if (!startFileDriver(captures, result))
            return false;
        if (announce(result))
            return true;
        drivers_.pop_back();
        return false;
    }
    const auto change = std::make_shared<CaptureChange>();
    change->session = drivers_.back();
    change->captures = captures;
    const PendingCall call([change](const CallObserver& observer) { change->run(observer); });
    return host_.waitForDriver(call, kCaptureDriver, change->progress) && announce(change->result);
}

/// Shows which captures cannot be used; whether any can.
bool CTessaview3App::announce(const CaptureResult& result)
{
    const bool isUsable = !failed(result.status);
    if (!isUsable)
        host_.showMessage("None of these captures can be read.", result.problems);
    else if (!result.problems.empty())
        host_.showMessage("Some of these captures cannot be read.", result.problems);
    return isUsable;
}

/// On a thread of its own, so that the process can end whatever a driver does.
void CTessaview3App::shutDownDrivers()
{
    struct Rest {
        std::vector<std::shared_ptr<DriverSession>> drivers;
        ComPtr<ISatListManager> satellites;
    };
    const auto rest = std::make_shared<Rest>();
    rest->drivers.swap(drivers_);
    rest->satellites = std::move(satellites_);
    const PendingCall call([rest](const CallObserver& observer) {
        observer("Shutdown");
        for (const auto& driver : rest->drivers)
            driver->shutDown();
        observer("Release");
        rest->satellites.reset();
        rest->drivers.clear();
    });
    if (call.waitFor(patience_.exit))
        return;
    LogPrint(g_log, log_level::kError, "the driver does not answer %s", call.operation().c_str());
}

CallObserver CTessaview3App::lastCallsOfStart() const
{
    const CallObserver noted = marking(startMark_, lastStarted_.clsid, lastStarted_.driver);
    return [mark = startMark_, noted](const char* operation) {
        noted(operation);
        if (*operation == '\0')
            mark->finish();
    };
}

IDriverInfo* CTessaview3App::driver() const
{
    return drivers_.empty() ? nullptr : drivers_.back()->driver();
}

} // namespace tessaview
