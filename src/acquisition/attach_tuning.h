#pragma once

#include "acquisition/driver_access.h"
#include "model/transponder.h"

namespace tessaview {

/// Gives a transponder, whose PAT and NIT actual have been read, the parameters under which it is
/// received: those that the NIT has for its transport_stream_id when they are of the tuner's kind,
/// else the driver's own. Without either, and for a tuner of unknown kind, it gets none. Fails
/// only when the driver does not tell what kind of tuner it has.
Status attachTuning(Transponder& transponder, const DriverAccess& driver);

} // namespace tessaview
