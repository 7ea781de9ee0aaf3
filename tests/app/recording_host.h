#pragma once

#include "app/tessaview3_app.h"
#include "log/log_file.h"

#include <chrono>
#include <optional>
#include <string>

namespace test {

/// A window system that notes in the log what it is asked for, so that the order of everything is
/// in one text, and answers as the test says.
class RecordingHost : public tessaview::ApplicationHost {
public:
    std::optional<std::string> choice; ///< in the driver selection
    bool waitsForEver = true;          ///< else for a moment only
    bool createsWindow = true;
    std::optional<bool> triesAgain = true; ///< a driver that did not come back

    void showMessage(const std::string& text, const std::string& detail) override
    {
        note("box: " + text + (detail.empty() ? "" : "; " + detail));
    }
    std::optional<bool> askToTryAgain(const std::string& text, const std::string& detail) override
    {
        note("question: " + text + "; " + detail);
        return triesAgain;
    }
    std::optional<std::string> RunDriverSelection(tessaview::CTessaview3App& /*application*/,
                                                  bool isFirstStart) override
    {
        note(isFirstStart ? "driver selection, first start" : "driver selection");
        return choice;
    }
    bool waitForDriver(const tessaview::PendingCall& call, const std::string& driverName,
                       const tessaview::OperationProgress& /*progress*/) override
    {
        if (call.waitFor(waitsForEver ? std::chrono::hours(1) : std::chrono::hours(0)))
            return true;
        while (call.operation() != "Initialize")
            static_cast<void>(call.waitFor(std::chrono::milliseconds(1)));
        note("gave up " + driverName + " at " + call.operation());
        return false;
    }
    void setUpFramework() override { note("framework set up"); }
    bool processShellCommand(tessaview::CTessaview3App& application) override
    {
        note(application.driver() && application.satellites() ? "window created"
                                                              : "window created without a driver");
        return createsWindow;
    }
    void showMainWindow() override { note("window shown"); }
    void readCurrentTransponder() override { note("reads at once"); }

private:
    static void note(const std::string& what) { LogPrint(tessaview::g_log, 0, "%s", what.c_str()); }
};

} // namespace test
