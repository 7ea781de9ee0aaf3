#pragma once

#include "driver/pending_call.h"

#include <chrono>
#include <functional>

#include <QString>

class QWidget;

namespace tessaview {

/// How the user is asked when a driver does not answer.
struct DriverWait {
    std::chrono::milliseconds patience; ///< before it is told
    QString giveUp;                     ///< the button that ends the waiting
    QString consequence;                ///< a sentence: what that leads to
    /// How far the driver is with looking at captures; may be null.
    const OperationProgress* progress = nullptr;
    /// Ends the waiting without a question when it becomes true; may be null.
    std::function<bool()> isOver = nullptr;
};

/// Waits for a driver while the windows stay alive, though locked. When it takes longer than the
/// patience, a box names the driver and the call it does not answer, until it does or the user
/// gives up: false then. While the driver looks at captures, a box shows how far it is instead,
/// from soon after the start.
bool waitForDriver(QWidget* parent, const PendingCall& call, const QString& driverName,
                   const DriverWait& wait);

} // namespace tessaview
