#pragma once

#include <QApplication>
#include <QThread>

namespace tessaview {

/// Why no dialog can be shown here and now; null when one can.
inline const char* obstacleToDialogs()
{
    const auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!application || application->thread() != QThread::currentThread())
        return "dialogs are only shown by a program with windows, on their thread";
    return nullptr;
}

} // namespace tessaview
