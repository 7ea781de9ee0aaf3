#pragma once

#include "driver/pending_call.h"
#include "driver/tuner_driver.h"
#include "satlist/satellite_list.h"

#include <optional>
#include <string>

namespace tessaview {

class CTessaview3App;

/// The window system as the application object uses it; the tests put their own in place. All
/// operations are called on the main thread.
class ApplicationHost {
public:
    ApplicationHost() = default;
    ApplicationHost(const ApplicationHost&) = delete;
    ApplicationHost& operator=(const ApplicationHost&) = delete;
    virtual ~ApplicationHost() = default;

    /// A message box; returns when the user has closed it. `detail`, which may be empty, tells
    /// more than the text that stands first.
    virtual void showMessage(const std::string& text, const std::string& detail) = 0;
    /// Whether to call a driver again that a start before this one did not come back from, as the
    /// text tells, or to start without it; nothing when the program is to end instead.
    virtual std::optional<bool> askToTryAgain(const std::string& text,
                                              const std::string& detail) = 0;
    /// The driver selection dialog: the class identifier text, which is empty when nothing was
    /// chosen; nothing when it was cancelled. `isFirstStart`: for somebody who has no settings.
    virtual std::optional<std::string> RunDriverSelection(CTessaview3App& application,
                                                          bool isFirstStart) = 0;
    /// Waits until the driver's calls have ended. When they take long, tells the user which driver
    /// does not answer which call; false when he does not want to wait any longer.
    virtual bool waitForDriver(const PendingCall& call, const std::string& driverName,
                               const OperationProgress& progress) = 0;
    virtual void setUpFramework() = 0;
    /// Creates the document, the main frame and its panes, and shows nothing yet; whether that
    /// went well.
    virtual bool processShellCommand(CTessaview3App& application) = 0;
    virtual void showMainWindow() = 0;
    /// Reads the stream the tuner is set to as soon as the window runs.
    virtual void readCurrentTransponder() = 0;
};

} // namespace tessaview
