#include "drivers/capture/status_text.h"

#include "platform/format.h"

namespace tessaview {

namespace {

struct TuningText {
    std::string operator()(std::monostate /*none*/) const { return ""; }
    std::string operator()(const SatelliteTuning& t) const
    {
        return formatted("%u MHz %c %u kS/s", t.frequency / 100, "HVLR"[t.polarization & 3U],
                         t.symbol_rate / 10);
    }
    std::string operator()(const CableTuning& t) const
    {
        return formatted("%.3f MHz %u kS/s", t.frequency / 10000.0, t.symbol_rate / 10);
    }
    std::string operator()(const TerrestrialTuning& t) const
    {
        if (!hasFrequency(t))
            return "";
        return formatted("%.3f MHz", t.centre_frequency / 100000.0);
    }
};

} // namespace

std::string tuningText(const CaptureTuning& tuning)
{
    return std::visit(TuningText(), tuning);
}

std::string statusText(const TunerState& state)
{
    std::string text = "no capture chosen";
    if (const Capture* const capture = state.capture()) {
        const std::string parameters = tuningText(capture->tuning);
        text = "capture " + capture->file.filename().string() +
               (parameters.empty() ? "" : " " + parameters) + " locked";
    }
    return state.problem.empty() ? text : text + " (" + state.problem + ")";
}

} // namespace tessaview
