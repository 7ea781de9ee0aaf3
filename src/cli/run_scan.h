#pragma once

#include "cli/options.h"
#include "driver/driver_session.h"
#include "model/network_map.h"
#include "satlist/satellite_list.h"

namespace tessaview {

/// Scans what the options ask for into the model, shows how far that is and says what could not be
/// stored. Ctrl+C ends it early.
void runScan(const Options& options, const DriverSession& session, ISatListManager* satellites,
             NetworkMap& model);

} // namespace tessaview
