#include "drivers/capture/status_text.h"

#include "tuning/tuning_text.h"

namespace tessaview {

std::string statusText(const TunerState& state)
{
    std::string text = "no capture chosen";
    if (const Capture* const capture = state.capture()) {
        const std::string parameters = parametersText(capture->tuning);
        text = "capture " + capture->file.filename().string() +
               (parameters.empty() ? "" : " " + parameters) + " locked";
    }
    return state.problem.empty() ? text : text + " (" + state.problem + ")";
}

} // namespace tessaview
