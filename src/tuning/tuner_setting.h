#pragma once

#include "tuning/tuning.h"

#include <string>

namespace tessaview {

/// What a tuner can be set to.
struct TunerSetting {
    Tuning tuning = {};
    std::string satellite = {}; ///< UTF-8; only with satellite parameters

    bool isGiven() const { return tessaview::isGiven(tuning); }
};

/// Sets a tuner; returns when it is set. Without parameters nothing is called, and it fails.
/// `owner` is for windows of the driver.
Status setTuner(ISetTuner& tuner, WindowHandle owner, const TunerSetting& setting);
/// What a tuner of a kind is set to now. After a failure `setting` stays as it is; for an unknown
/// kind it fails.
Status getSetting(ISetTuner& tuner, TunerType type, TunerSetting& setting);

} // namespace tessaview
