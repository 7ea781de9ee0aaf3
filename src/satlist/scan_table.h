#pragma once

#include "satlist/list_access.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

/// What is wrong with a line of a file.
struct LineProblem {
    std::size_t line; ///< from 1
    std::string what;
};

/// The channels of one initial tuning file.
struct ScanTable {
    std::vector<TransponderEntry> transponders; ///< in the order of the file; NID, TSID, flag are 0
    std::vector<LineProblem> problems;
};

/// Reads an initial tuning file in either form: sections of `KEY = VALUE` lines that begin with a
/// "[CHANNEL]" (frequency in kHz, symbol rate in symbols/s), or one line per channel such as
/// "S 12187500 H 27500000 3/4". A channel that is no DVB-S or DVB-S2 channel or lacks something is
/// left out and reported; a value that only DVB-S2 needs and that is not understood is reported and
/// costs only itself. Frequencies and symbol rates are truncated to the list's units; a code rate
/// that the list has no value for becomes "not defined".
ScanTable parseScanTable(std::string_view content);

} // namespace tessaview
