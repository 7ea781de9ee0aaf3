#pragma once

#include "acquisition/driver_access.h"
#include "cli/options.h"
#include "driver/driver_session.h"
#include "model/network_map.h"
#include "satlist/satellite_list.h"

namespace tessaview {

/// Sets the tuner, if a setting is given, and scans what the options ask for into the model. Shows
/// how far that is and says what failed or could not be stored. Ctrl+C ends it early. False when
/// reading itself failed somewhere, so that something may be missing from what was stored.
bool runScan(const Options& options, const TunerSetting& setting, const DriverSession& session,
             ISatListManager* satellites, NetworkMap& model);

} // namespace tessaview
