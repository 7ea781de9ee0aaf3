#pragma once

#include "driver/tuner_driver.h"
#include "model/transponder.h"

#include <string>

namespace tessaview {

/// The parameters that a NIT has for one of its streams and a kind of tuner: those of the first
/// delivery system descriptor of that kind; none without one or for an unknown kind.
Transponder::Tuning tuningFor(const lib13818::TransportStreamEntry& entry, TunerType type);

/// "11757 MHz V", "346.000 MHz"; "" for none.
std::string frequencyText(const Transponder::Tuning& tuning);

} // namespace tessaview
