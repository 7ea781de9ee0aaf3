#include "drivers/linuxdvb/status_text.h"

#include "tuning/tuning_text.h"

namespace tessaview {

namespace {

/// "adapter0", and the frontend where the adapter has others before it.
std::string deviceText(DeviceId id)
{
    return id.frontend == 0 ? "adapter" + std::to_string(id.adapter) : id.name();
}

void append(std::string& text, const std::string& word)
{
    if (!word.empty())
        text += " " + word;
}

} // namespace

std::string statusText(const DvbState& state, const std::optional<SignalReport>& signal)
{
    std::string text = deviceText(state.settings.device);
    if (state.isTuning) {
        text += " tuning";
    } else if (!state.channel || !state.system || !signal) {
        text += " not tuned";
    } else {
        append(text, systemName(*state.system));
        append(text, tuningSummary(state.channel->tuning));
        append(text, signal->isLocked() ? "locked" : "no lock");
        append(text, signal->strength.text("dBm"));
        append(text, signal->quality.text("dB"));
    }
    const std::string& problem = state.problem.empty() ? state.facts.problem : state.problem;
    return problem.empty() ? text : text + " (" + problem + ")";
}

} // namespace tessaview
