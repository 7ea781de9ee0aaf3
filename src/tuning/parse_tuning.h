#pragma once

#include "tuning/tuning.h"

#include <string>
#include <string_view>

namespace tessaview {

/// Reads tuning parameters as people write them, words with blanks between, without regard to case.
/// The first words have their places, the others come in any order or not at all; what is not
/// given is 0 in the record.
///
/// Satellite: "12187.5 H 27500 3/4 S2 8PSK 0.35": frequency in MHz, polarization H, V, L or R,
/// symbol rate in kS/s; code rate, S or S2, QPSK or 8PSK, roll-off. The latter three are the
/// record's modulation, in the bits of the satellite delivery system descriptor (EN 300 468,
/// 6.2.13.2): roll_off, modulation_system, modulation_type. 8PSK or a roll-off alone means S2.
///
/// Cable: "474 6900 64QAM": frequency in MHz, symbol rate in kS/s; modulation.
///
/// Terrestrial: "474 8": frequency in MHz; bandwidth in MHz.
///
/// Nothing is given for a text that is not understood; `problem` then says why, with an example.
Tuning parseTuning(TunerType type, std::string_view text, std::string& problem);

} // namespace tessaview
