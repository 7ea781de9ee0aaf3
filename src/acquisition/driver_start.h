#pragma once

#include "acquisition/start_mark.h"
#include "driver/driver_session.h"
#include "driver/pending_call.h"
#include "satlist/satellite_list.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessaview {

/// How the choice of captures went.
struct CaptureResult {
    Status status = status::kOk; ///< a failure when none of them can be used
    std::string problems;        ///< a line for each that cannot
};

/// The start of a driver: what it needs and what came of it. It is shared with the thread that
/// makes the calls, since that may be stuck in one for ever; so the results may be looked at only
/// when the calls have ended.
struct DriverStart {
    std::shared_ptr<const ClassRegistry> registry;
    DriverPlaces places;
    ComPtr<ISatListManager> satellites;
    std::string clsid; ///< as stored; with captures the driver to read them, empty for any that can
    std::vector<std::string> captures; ///< for any driver that can read them; may be empty
    std::optional<Guid> leftOut;       ///< a driver that is not to read them
    std::shared_ptr<StartMark> mark;   ///< notes the calls; may be null

    std::shared_ptr<DriverSession> session; ///< null unless the driver was started
    Status status = status::kUnexpected;
    std::string why; ///< a sentence about a failure
    CaptureResult captured;
    OperationProgress progress; ///< of the look at captures; may be asked meanwhile

    /// Creates and initialises the driver, and points it at the captures if there are any. The log
    /// names each driver before it is called.
    void run(const CallObserver& observer);
    /// The driver as its manifest calls it, or else its class.
    std::string driverName() const;
    /// What the user is to know about a failure, with the operation that was called last.
    std::string problem(const std::string& operation) const;

private:
    void start(const CallObserver& tellOperation);
    std::optional<Guid> classForFiles(const CallObserver& observer) const;
};

/// The same for captures only, over a driver that runs already.
struct CaptureChange {
    std::shared_ptr<DriverSession> session;
    std::vector<std::string> captures;

    CaptureResult result{.status = status::kUnexpected, .problems = {}};
    OperationProgress progress; ///< may be asked meanwhile

    void run(const CallObserver& observer);
};

} // namespace tessaview
