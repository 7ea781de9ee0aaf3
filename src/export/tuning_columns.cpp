#include "export/tuning_columns.h"

#include <algorithm>
#include <limits>

namespace tessaview {

namespace {

std::int32_t megahertz(std::int64_t frequency, std::int64_t unitsPerMegahertz)
{
    return static_cast<std::int32_t>((frequency + unitsPerMegahertz / 2) / unitsPerMegahertz);
}

std::int32_t thousandfold(std::int64_t symbol_rate)
{
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(symbol_rate * 1000, largest));
}

struct ColumnsOf {
    TuningColumns operator()(const SatelliteTuning& tuning) const
    {
        return {.frequency = megahertz(tuning.frequency, 100),
                .polarization = tuning.polarization,
                .symbolRate = thousandfold(tuning.symbol_rate),
                .fec = tuning.FEC_inner};
    }
    TuningColumns operator()(const CableTuning& tuning) const
    {
        return {.frequency = megahertz(tuning.frequency, 10'000),
                .symbolRate = thousandfold(tuning.symbol_rate),
                .fec = tuning.FEC_inner};
    }
    TuningColumns operator()(const TerrestrialTuning& tuning) const
    {
        return {.frequency = megahertz(tuning.centre_frequency, 100'000)};
    }
    TuningColumns operator()(std::monostate /*unknown*/) const { return {}; }
};

} // namespace

TuningColumns tuningColumns(const Transponder& transponder)
{
    return std::visit(ColumnsOf{}, transponder.tuning());
}

} // namespace tessaview
