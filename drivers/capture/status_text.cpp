#include "drivers/capture/status_text.h"

#include "platform/format.h"

namespace tessaview {

namespace {

struct TuningText {
    std::string operator()(std::monostate /*none*/) const { return ""; }
    std::string operator()(const SatelliteTuning& t) const
    {
        return formatted(" %u MHz %c %u kS/s", t.frequency / 100, "HVLR"[t.polarization & 3U],
                         t.symbol_rate / 10);
    }
    std::string operator()(const CableTuning& t) const
    {
        return formatted(" %.3f MHz %u kS/s", t.frequency / 10000.0, t.symbol_rate / 10);
    }
    std::string operator()(const TerrestrialTuning& t) const
    {
        return formatted(" %.3f MHz", t.centre_frequency / 100000.0);
    }
};

} // namespace

std::string statusText(const Capture* current, std::size_t captureCount)
{
    if (current)
        return "capture " + current->file.filename().string() +
               std::visit(TuningText(), current->tuning) + " locked";
    if (captureCount == 0)
        return "no capture chosen";
    return formatted("not locked: none of %zu captures was received so", captureCount);
}

} // namespace tessaview
