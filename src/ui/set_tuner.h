#pragma once

#include "driver/tuner_driver.h"
#include "tree/tree.h"

#include <optional>

class QWidget;

namespace tessaview {

class CTessaview3Doc;

/// "Set tuner...": sets the tuner to what the delivery system descriptor of a node describes. It
/// does nothing while the driver's tuner is not of that type; `node` is nothing when no node was
/// hit. A failure is reported behind `parent`, whose window the driver may use.
void setTuner(CTessaview3Doc& document, TunerType type, const std::optional<NodeView>& node,
              QWidget* parent);

} // namespace tessaview
