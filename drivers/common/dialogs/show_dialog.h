#pragma once

#include "component/unknown.h"
#include "drivers/common/dialogs_library.h"

#include <QApplication>
#include <QThread>
#include <QWidget>

namespace tessaview {

/// Why no dialog can be shown here and now; null when one can.
inline const char* obstacleToDialogs()
{
    const auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!application || application->thread() != QThread::currentThread())
        return "dialogs are only shown by a program with windows, on their thread";
    return nullptr;
}

/// What `ShowDriverDialog` does, with the dialogs of a driver, which are made with its tuner and
/// the owner.
template <class TuningDialog, class SettingsDialog, class StreamingDialog, class Tuner>
Status showDialogOf(Tuner* tuner, DriverDialog dialog, WindowHandle owner)
{
    return guarded([&]() -> Status {
        if (!tuner)
            return status::kNullPointer;
        if (const char* const obstacle = obstacleToDialogs()) {
            tuner->report(obstacle);
            return status::kNotReady;
        }
        QWidget* const window = QWidget::find(reinterpret_cast<WId>(owner));
        switch (dialog) {
        case DriverDialog::Tune:
            TuningDialog(*tuner, window).exec();
            return status::kOk;
        case DriverDialog::Settings:
            SettingsDialog(*tuner, window).exec();
            return status::kOk;
        case DriverDialog::Streaming:
            StreamingDialog(*tuner, window).exec();
            return status::kOk;
        }
        return status::kInvalidArgument;
    });
}

} // namespace tessaview
