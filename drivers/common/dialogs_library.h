#pragma once

#include "component/status.h"
#include "driver/tuner_driver.h"

#include <mutex>
#include <string>

namespace tessaview {

enum class DriverDialog : int { Tune, Settings, Streaming };

/// The exported function of a library with dialogs: shows one modally over the owner and returns
/// when it was closed. `tuner` is the tuner of the driver that the library belongs to. Fails where
/// no QApplication runs, and on another thread than its own.
using ShowDriverDialog = Status (*)(DriverDialog dialog, void* tuner, WindowHandle owner);
constexpr const char* kShowDriverDialog = "TessaviewShowDriverDialog";

/// The dialogs of a driver, in a library of their own beside it that is loaded when a dialog is
/// first asked for, so that a program without windows needs no toolkit.
class DialogsLibrary {
public:
    /// The library's file, in the folder of the driver's own.
    explicit DialogsLibrary(const char* file) : file_(file) {}

    /// Shows a dialog. A library that cannot be loaded is described in `problem`, and tried again
    /// the next time.
    Status show(DriverDialog dialog, void* tuner, WindowHandle owner, std::string& problem);

private:
    ShowDriverDialog load(std::string& problem);

    const char* file_;
    std::mutex mutex_;
    ShowDriverDialog show_ = nullptr;
};

} // namespace tessaview
