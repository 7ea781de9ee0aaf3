#pragma once

#include "component/status.h"
#include "driver/tuner_driver.h"

#include <mutex>

namespace tessaview {

class CaptureTuner;

enum class CaptureDialog : int { Tuning, Settings, Streaming };

/// The exported function of the library with the dialogs: shows one modally over the owner, a
/// QWidget or null, and returns when it was closed. Fails where no QApplication runs, and on
/// another thread than its own.
using ShowCaptureDialog = Status (*)(CaptureDialog dialog, CaptureTuner* tuner, WindowHandle owner);
constexpr const char* kShowCaptureDialog = "TessaviewShowCaptureDialog";

/// The dialogs of this driver, in a library of their own beside it that is loaded when a dialog is
/// first asked for, so that a program without windows needs no toolkit.
class DialogsLibrary {
public:
    /// Shows a dialog. A library that cannot be loaded is reported to the tuner, and tried again
    /// the next time.
    Status show(CaptureDialog dialog, CaptureTuner& tuner, WindowHandle owner);

private:
    bool load(CaptureTuner& tuner);

    std::mutex mutex_;
    ShowCaptureDialog show_ = nullptr;
};

} // namespace tessaview
