#pragma once

#include "explorer/commands.h"

#include <QIcon>
#include <QSize>

namespace tessaview {

/// The size of the images of the toolbar, in device-independent pixels.
inline constexpr QSize kCommandIconSize(16, 15);

/// The image of a command, drawn as lines in the colours of the palette, sharp at any scale; null
/// for a command without one.
QIcon commandIcon(Command command);

} // namespace tessaview
