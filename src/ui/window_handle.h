#pragma once

#include "driver/tuner_driver.h"

#include <QWidget>

namespace tessaview {

/// The handle of a widget's window as drivers take it. A driver that uses the same toolkit finds
/// the window again with `QWidget::find`.
inline WindowHandle windowHandle(const QWidget* widget)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle of the window system is a number
    return widget ? reinterpret_cast<WindowHandle>(widget->window()->winId()) : nullptr;
}

} // namespace tessaview
