#include "component/unknown.h"
#include "drivers/capture/capture_tuner.h"
#include "drivers/capture/dialogs/settings_dialog.h"
#include "drivers/capture/dialogs/streaming_dialog.h"
#include "drivers/capture/dialogs/tuning_dialog.h"
#include "drivers/capture/dialogs_library.h"

#include <QApplication>
#include <QThread>

namespace tessaview {

namespace {

Status show(CaptureDialog dialog, CaptureTuner& tuner, QWidget* owner)
{
    switch (dialog) {
    case CaptureDialog::Tuning:
        TuningDialog(tuner, owner).exec();
        return status::kOk;
    case CaptureDialog::Settings:
        SettingsDialog(tuner, owner).exec();
        return status::kOk;
    case CaptureDialog::Streaming:
        StreamingDialog(tuner, owner).exec();
        return status::kOk;
    }
    return status::kInvalidArgument;
}

} // namespace

} // namespace tessaview

// The one function that the library exports.
extern "C" __attribute__((visibility("default"))) tessaview::Status
TessaviewShowCaptureDialog(tessaview::CaptureDialog dialog, tessaview::CaptureTuner* tuner,
                           tessaview::WindowHandle owner)
{
    using namespace tessaview;
    return guarded([&]() -> Status {
        if (!tuner)
            return status::kNullPointer;
        const auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
        if (!application || application->thread() != QThread::currentThread()) {
            tuner->report("dialogs are only shown by a program with windows, on their thread");
            return status::kNotReady;
        }
        return show(dialog, *tuner, QWidget::find(reinterpret_cast<WId>(owner)));
    });
}
