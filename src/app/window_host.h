#pragma once

#include "app/application_dialogs.h"
#include "app/application_host.h"
#include "ui/document.h"
#include "ui/main_frame.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QTimer>

namespace tessaview {

/// The window system of the real program: message boxes, the document and the main window.
class WindowHost : public ApplicationHost {
public:
    explicit WindowHost(std::chrono::milliseconds patience);
    ~WindowHost() override;

    /// Ends the event loops, and start-up too if it still runs; no more is asked of the user.
    void quit();
    bool isQuitting() const { return isQuitting_; }
    /// Lets go of window and document, which must be gone before the drivers are shut down.
    void closeDocument();

    void showMessage(const std::string& text, const std::string& detail) override;
    std::optional<bool> askToTryAgain(const std::string& text, const std::string& detail) override;
    std::optional<std::string> RunDriverSelection(CTessaview3App& application,
                                                  bool isFirstStart) override;
    bool waitForDriver(const PendingCall& call, const std::string& driverName,
                       const OperationProgress& progress) override;
    void setUpFramework() override;
    bool processShellCommand(CTessaview3App& application) override;
    void showMainWindow() override;
    void readCurrentTransponder() override;

private:
    void openDropped(const std::vector<std::string>& captures);
    void readWhenLocked();

    std::chrono::milliseconds patience_;
    bool isQuitting_ = false;
    CTessaview3App* application_ = nullptr;
    std::unique_ptr<ApplicationDialogs> dialogs_;
    std::unique_ptr<CTessaview3Doc> document_;
    std::unique_ptr<CMainFrame> frame_;
    std::optional<CTessaview3Doc::KeepData> dropAnswer_; ///< given before the driver was changed
    QTimer lockTimer_;
    int lockTurns_ = 0;
};

} // namespace tessaview
