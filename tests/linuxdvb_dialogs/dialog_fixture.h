#pragma once

#include "drivers/common/dialogs_library.h"
#include "drivers/linuxdvb/dvb_tuner.h"
#include "tests/linuxdvb/fake_kernel.h"
#include "tests/satlist/loaded_manager.h"
#include "tests/support/driver_dialogs.h"
#include "tests/support/temporary_folder.h"

namespace test {

/// A tuner with receivers and satellites of a test's own, and the dialogs that its driver loads,
/// as a user sees them.
class DvbDialogs : public testing::Test {
protected:
    DvbDialogs();
    ~DvbDialogs() override;

    /// Shows a dialog and lets a user act on it; then it is left with Escape if it is still there.
    void show(tessaview::DriverDialog which, const std::function<void(QDialog&)>& act);
    /// Makes the tuner anew, with the settings as they now are.
    void restart();
    tessaview::DvbTuner& tuner() { return *tuner_; }
    /// To 12187.5 MHz H.
    void tune(const std::string& satellite = {});

    /// Whether a label comes to hold a text, in time.
    static bool comesToSay(const QDialog& dialog, const char* label, const char* text);

    TemporaryFolder folder_;
    Environment config_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    FakeKernel kernel_; ///< adapters 0 to 2: satellites, cable, aerial
    LoadedManager satellites_;

private:
    tessaview::ShowDriverDialog show_ = nullptr;
    std::unique_ptr<tessaview::DvbTuner> tuner_;
};

} // namespace test
