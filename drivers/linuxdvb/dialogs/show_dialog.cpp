#include "drivers/common/dialogs/show_dialog.h"

#include "drivers/linuxdvb/dialogs/settings_dialog.h"
#include "drivers/linuxdvb/dialogs/streaming_dialog.h"
#include "drivers/linuxdvb/dialogs/tuning_dialog.h"
#include "drivers/linuxdvb/dvb_tuner.h"

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewShowDriverDialog(tessaview::DriverDialog dialog, void* tuner,
                          tessaview::WindowHandle owner)
{
    using namespace tessaview;
    return showDialogOf<TuningDialog, SettingsDialog, StreamingDialog>(
        static_cast<DvbTuner*>(tuner), dialog, owner);
}
