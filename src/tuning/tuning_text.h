#pragma once

#include "tuning/tuning.h"

#include <string>

// A tuning as lines for a person have it; "" for none. A frequency that is not known is said to be
// not known.

namespace tessaview {

/// "11757 MHz V", "346.000 MHz", "frequency not known".
std::string frequencyText(const Tuning& tuning);
/// The same with the symbol rate behind it, "11757 MHz V 27500 kS/s"; "" without a frequency.
std::string parametersText(const Tuning& tuning);

/// What an error message calls it: "12187.5 MHz H", "474 MHz", "a frequency that is not known".
std::string tuningName(const Tuning& tuning);
/// In short: "12187.5 H 27500", "474 6900", "474" (MHz, kS/s), "frequency not known".
std::string tuningSummary(const Tuning& tuning);

} // namespace tessaview
