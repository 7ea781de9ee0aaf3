#include "tuning/tuning_text.h"

#include "platform/format.h"
#include "tuning/words.h"

namespace tessaview {

namespace {

constexpr const char* kNotKnown = "frequency not known";

double megahertzOf(const Tuning& tuning)
{
    return static_cast<double>(frequencyOf(tuning)) / kMegahertz;
}

/// A frequency without zeros that say nothing: "12187.5", "474".
std::string shortMegahertz(const Tuning& tuning)
{
    std::string text = formatted("%.3f", megahertzOf(tuning));
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

/// " H" of a satellite.
std::string polarizationWord(const Tuning& tuning)
{
    const auto* const satellite = std::get_if<SatelliteTuning>(&tuning);
    return satellite ? std::string{' ', polarizationLetter(satellite->polarization)} : "";
}

/// " 27500"; nothing of a kind that has none.
std::string symbolRateWord(const Tuning& tuning)
{
    return typeOf(tuning) == TunerType::Terrestrial
               ? ""
               : formatted(" %u", static_cast<unsigned>(symbolRateOf(tuning) / kKilo));
}

} // namespace

std::string frequencyText(const Tuning& tuning)
{
    if (!hasFrequency(tuning))
        return isGiven(tuning) ? kNotKnown : "";
    if (typeOf(tuning) != TunerType::Satellite)
        return formatted("%.3f MHz", megahertzOf(tuning));
    return formatted("%u MHz", static_cast<unsigned>(frequencyOf(tuning) / kMegahertz)) +
           polarizationWord(tuning);
}

std::string parametersText(const Tuning& tuning)
{
    if (!hasFrequency(tuning))
        return "";
    const std::string rate = symbolRateWord(tuning);
    return frequencyText(tuning) + (rate.empty() ? "" : rate + " kS/s");
}

std::string tuningName(const Tuning& tuning)
{
    if (!hasFrequency(tuning))
        return isGiven(tuning) ? "a frequency that is not known" : "";
    return shortMegahertz(tuning) + " MHz" + polarizationWord(tuning);
}

std::string tuningSummary(const Tuning& tuning)
{
    if (!hasFrequency(tuning))
        return isGiven(tuning) ? kNotKnown : "";
    return shortMegahertz(tuning) + polarizationWord(tuning) + symbolRateWord(tuning);
}

} // namespace tessaview
