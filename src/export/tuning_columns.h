#pragma once

#include "model/transponder.h"

#include <cstdint>

namespace tessaview {

/// What a transport stream's tuning record gives for its row; 0 for what it does not have.
struct TuningColumns {
    std::int32_t frequency = 0; ///< MHz, rounded
    std::int32_t polarization = 0;
    std::int32_t symbolRate = 0; ///< the record's number times 1000, at most the largest there is
    std::int32_t fec = 0;        ///< FEC_inner
};

TuningColumns tuningColumns(const Transponder& transponder);

} // namespace tessaview
