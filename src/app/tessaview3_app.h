#pragma once

#include "acquisition/driver_start.h"
#include "app/application_host.h"
#include "app/application_places.h"
#include "component/class_registry.h"
#include "driver/driver_session.h"
#include "satlist/satellite_list.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessaview {

/// The value of the settings that holds the chosen driver's class identifier text.
inline constexpr const char* kDriverClassValue = "driverclsid";

/// The application from the start of the process to its end: what is set up in which order, what
/// the user is told when a step fails, and what is saved at the end. It knows no window system.
class CTessaview3App {
public:
    /// `captures`, which may be empty, are files or folders for a driver that can read such; they
    /// take the place of the stored driver for this run.
    CTessaview3App(ApplicationHost& host, ApplicationPlaces places,
                   std::vector<std::string> captures = {}, DriverPatience patience = {});
    CTessaview3App(const CTessaview3App&) = delete;
    CTessaview3App& operator=(const CTessaview3App&) = delete;
    ~CTessaview3App();

    /// Starts everything up and shows the main window. False ends the process, after
    /// `ExitInstance`; the user has been told why.
    bool InitInstance();
    /// Saves the satellite list, shuts the drivers down and lets go of them. May follow an
    /// `InitInstance` that went wrong anywhere.
    void ExitInstance();
    /// Saves the satellite list and ends the process, though a driver is in a call that does not
    /// return: nothing is called any more, nor taken apart.
    [[noreturn]] void leaveStuck();
    /// Ends the process as it is.
    [[noreturn]] static void endProcess(int exitStatus);

    /// Uses captures for the rest of this run, as those of the command line are: a driver that
    /// reads files takes the place of the current one unless it is one. False when none of them
    /// can be used; what could not be is shown to the user.
    bool openCaptures(const std::vector<std::string>& captures);

    const std::shared_ptr<const ClassRegistry>& registry() const { return registry_; }
    const ApplicationPlaces& places() const { return places_; }
    const DriverPatience& patience() const { return patience_; }
    /// Notes the calls of the start that is under way; null before the start.
    const std::shared_ptr<StartMark>& startMark() const { return startMark_; }
    /// The driver that the user wants this start to do without.
    const std::optional<Guid>& leftOut() const { return leftOut_; }
    /// To be told the first calls of who asks the driver for its state, the last of the start.
    CallObserver lastCallsOfStart() const;
    IDriverInfo* driver() const;
    ISatListManager* satellites() const { return satellites_.get(); }
    /// The fourth number of the program's version; 0 when it is not known.
    int buildNumber() const { return buildNumber_; }

private:
    void findFolders();
    bool loadSatellites();
    void saveSatellites();
    std::filesystem::path satelliteFile() const;
    void findBuildNumber();
    bool settleLastStart();
    bool wouldCall(const MarkedCall& last) const;

    std::string read_driver_clsid();
    void storeDriverChoice(const std::string& choice);
    void forgetDriverChoice() const;
    bool startChosenDriver();
    bool startFileDriver(const std::vector<std::string>& captures, CaptureResult& result);
    std::shared_ptr<DriverStart> newDriverStart() const;
    bool startDriver(const std::shared_ptr<DriverStart>& start, const std::string& driverName);
    bool announce(const CaptureResult& result);
    void shutDownDrivers();

    ApplicationHost& host_;
    ApplicationPlaces places_;
    std::vector<std::string> captures_;
    DriverPatience patience_;
    std::shared_ptr<const ClassRegistry> registry_;
    std::shared_ptr<StartMark> startMark_;
    std::optional<Guid> leftOut_;
    MarkedCall lastStarted_; ///< the driver that was started last
    std::filesystem::path allUsersFolder_;
    std::filesystem::path userFolder_;
    ComPtr<ISatListManager> satellites_;
    std::string satelliteProblem_; ///< why the stored list is not used
    /// The last one is in use; those before it gave way to captures.
    std::vector<std::shared_ptr<DriverSession>> drivers_;
    int buildNumber_ = 0;
};

} // namespace tessaview
