#pragma once

#include "driver/tuner_driver.h"
#include "drivers/linuxdvb/device.h"

#include <cstdint>
#include <linux/dvb/frontend.h>
#include <string>
#include <vector>

namespace tessaview {

/// What is known of a receiver without tuning it.
struct FrontendFacts {
    DeviceId id;
    std::string name;                        ///< what its maker calls it
    std::vector<fe_delivery_system> systems; ///< in the order of the device
    std::uint32_t capabilities = 0;          ///< FE_CAN_...
    std::string problem;                     ///< why nothing is known; empty else

    bool supports(fe_delivery_system system) const;
    /// The tuner types it can serve, in the order of TunerType. What is no DVB of those is none.
    std::vector<TunerType> types() const;
};

/// "DVB-S2"
const char* systemName(fe_delivery_system system);

/// Asks an open frontend. Throws DeviceError.
FrontendFacts factsOf(const Device& frontend, DeviceId id);
/// Asks a frontend that may be in use; what went wrong is in the facts.
FrontendFacts factsOf(Kernel& kernel, DeviceId id);
/// All receivers that the system has.
std::vector<FrontendFacts> listFrontends(Kernel& kernel);

} // namespace tessaview
