#include "drivers/common/dialogs/show_dialog.h"

#include "drivers/capture/capture_tuner.h"
#include "drivers/capture/dialogs/settings_dialog.h"
#include "drivers/capture/dialogs/streaming_dialog.h"
#include "drivers/capture/dialogs/tuning_dialog.h"

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewShowDriverDialog(tessaview::DriverDialog dialog, void* tuner,
                          tessaview::WindowHandle owner)
{
    using namespace tessaview;
    return showDialogOf<TuningDialog, SettingsDialog, StreamingDialog>(
        static_cast<CaptureTuner*>(tuner), dialog, owner);
}
