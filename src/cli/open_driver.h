#pragma once

#include "cli/options.h"
#include "driver/driver_session.h"
#include "satlist/satellite_list.h"

#include <memory>

namespace tessaview {

/// Prints the drivers that can be chosen; complains of each that cannot, with the reason.
void printDrivers(const ClassRegistry& registry);

/// Starts the driver that the options ask for, and no other, and points it at their captures; null
/// when it cannot be had, which is complained about. A call of a driver that takes longer than its
/// patience is left alone; `endedWithoutDrivers` tells of it.
std::shared_ptr<DriverSession> openDriver(const Options& options,
                                          const std::shared_ptr<const ClassRegistry>& registry,
                                          const ComPtr<ISatListManager>& satellites);

/// Tells the driver that the program ends, and lets go of it, within its patience.
void closeDriver(std::shared_ptr<DriverSession> session);

} // namespace tessaview
