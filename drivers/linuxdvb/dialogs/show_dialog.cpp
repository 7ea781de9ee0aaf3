#include "component/unknown.h"
#include "drivers/common/dialogs/dialog_thread.h"
#include "drivers/common/dialogs_library.h"
#include "drivers/linuxdvb/dialogs/settings_dialog.h"
#include "drivers/linuxdvb/dialogs/streaming_dialog.h"
#include "drivers/linuxdvb/dialogs/tuning_dialog.h"
#include "drivers/linuxdvb/dvb_tuner.h"

#include <QWidget>

namespace tessaview {

namespace {

Status show(DriverDialog dialog, DvbTuner& tuner, QWidget* owner)
{
    switch (dialog) {
    case DriverDialog::Tuning:
        TuningDialog(tuner, owner).exec();
        return status::kOk;
    case DriverDialog::Settings:
        SettingsDialog(tuner, owner).exec();
        return status::kOk;
    case DriverDialog::Streaming:
        StreamingDialog(tuner, owner).exec();
        return status::kOk;
    }
    return status::kInvalidArgument;
}

} // namespace

} // namespace tessaview

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewShowDriverDialog(tessaview::DriverDialog dialog, void* tunerOfDriver,
                          tessaview::WindowHandle owner)
{
    using namespace tessaview;
    return guarded([&]() -> Status {
        auto* const tuner = static_cast<DvbTuner*>(tunerOfDriver);
        if (!tuner)
            return status::kNullPointer;
        if (const char* const obstacle = obstacleToDialogs()) {
            tuner->report(obstacle);
            return status::kNotReady;
        }
        return show(dialog, *tuner, QWidget::find(reinterpret_cast<WId>(owner)));
    });
}
