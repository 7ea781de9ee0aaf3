#pragma once

#include "component/class_registry.h"
#include "driver/operation_progress.h"
#include "driver/tuner_driver.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

/// What a driver is told when it is initialised.
struct DriverPlaces {
    std::string settingsKey; ///< the system's own key; the driver gets it followed by "\drivers"
    std::filesystem::path userFolder;   ///< the driver gets it followed by "/drivers"
    std::filesystem::path commonFolder; ///< likewise
};

/// Told the name of each operation of a driver right before it is called, on the calling thread.
using CallObserver = std::function<void(const char* operation)>;

/// A tuner driver from its creation to its shutdown.
class DriverSession {
public:
    DriverSession() = default;
    DriverSession(const DriverSession&) = delete;
    DriverSession& operator=(const DriverSession&) = delete;
    ~DriverSession() { close(); }

    /// Creates the driver of the class, initialises it and hands it the satellite list, which
    /// may be null. A failure names its step in `why` and leaves the session empty. `progress`, if
    /// not null, follows the driver from before it is initialised.
    Status open(const ClassRegistry& registry, const Guid& clsid, const DriverPlaces& places,
                ISatListManager* satellites, std::string& why, const CallObserver& observer = {},
                OperationProgress* progress = nullptr);
    /// Tells the driver, once, that the program ends. Without one, nothing.
    void shutDown();
    /// Shuts the driver down and lets go of it, control before driver. Without one, nothing.
    void close();

    IDriverInfo* driver() const { return info_.get(); }
    IDriverControl* control() const { return control_.get(); }

private:
    ComPtr<IDriverInfo> info_;
    ComPtr<IDriverControl> control_;
    bool isShutDown_ = false;
};

/// A driver that can be chosen.
struct DriverChoice {
    std::string name; ///< what the driver calls itself
    Guid clsid;
    bool readsFiles = false; ///< it can be pointed at captures, so that it needs no hardware
};

/// A class of the driver category that could not be asked for its name.
struct DriverProblem {
    enum class Step { Create, GetName };
    Step step;
    Status status;
    std::string detail; ///< the class and what went wrong with it

    /// The text of the message box.
    std::string message() const;
};

struct DriverList {
    std::vector<DriverChoice> drivers; ///< in the order of enumeration
    std::vector<DriverProblem> problems;
};

/// Asks one class of the driver category for its name, with an instance that lives only so long,
/// and adds it to the list.
void listDriver(const ClassRegistry& registry, const ComponentClass& driver, DriverList& list,
                const CallObserver& observer = {});

/// The same for every class of the driver category.
DriverList listDrivers(const ClassRegistry& registry);

/// The class that is meant by a driver's name or by its braced class identifier; the last of
/// several with one name. Null when there is none.
const DriverChoice* findDriver(const DriverList& list, std::string_view nameOrClass);

} // namespace tessaview
