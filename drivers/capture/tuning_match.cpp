#include "drivers/capture/tuning_match.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr std::uint32_t kSatelliteTolerance = 300;     // 10 kHz
constexpr std::uint32_t kCableTolerance = 5000;        // 100 Hz
constexpr std::uint32_t kTerrestrialTolerance = 50000; // 10 Hz

std::uint32_t frequencyOf(const SatelliteTuning& tuning)
{
    return tuning.frequency;
}

std::uint32_t frequencyOf(const CableTuning& tuning)
{
    return tuning.frequency;
}

std::uint32_t frequencyOf(const TerrestrialTuning& tuning)
{
    return tuning.centre_frequency;
}

constexpr std::uint32_t kUndefined = 0xFFFFFFFF;

bool isKnown(std::uint32_t frequency)
{
    return frequency != 0 && frequency != kUndefined;
}

/// The capture nearest in frequency among those that `fits(capture, its tuning)` admits.
template <class Tuning, class Fits>
std::optional<std::size_t> nearest(std::span<const Capture> captures, const Tuning& tuning,
                                   std::uint32_t tolerance, Fits fits)
{
    std::optional<std::size_t> found;
    if (!hasFrequency(tuning))
        return found;
    std::uint32_t distance = tolerance;
    for (std::size_t i = 0; i < captures.size(); ++i) {
        const auto* const own = std::get_if<Tuning>(&captures[i].tuning);
        if (!own || !hasFrequency(*own) || !fits(captures[i], *own))
            continue;
        const std::uint32_t a = frequencyOf(*own);
        const std::uint32_t b = frequencyOf(tuning);
        const std::uint32_t apart = std::max(a, b) - std::min(a, b);
        if (apart < distance || (apart == distance && !found)) {
            found = i;
            distance = apart;
        }
    }
    return found;
}

/// Names as people write them: without the blanks around them and without regard to case.
std::string comparable(std::string_view name)
{
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = name.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    std::string out(name.substr(first, name.find_last_not_of(kBlanks) - first + 1));
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return out;
}

bool sameOrbit(const SatelliteTuning& a, const SatelliteTuning& b)
{
    if (a.orbital_position == 0 || b.orbital_position == 0)
        return true;
    return a.orbital_position == b.orbital_position && a.west_east_flag == b.west_east_flag;
}

} // namespace

bool hasFrequency(const SatelliteTuning& tuning)
{
    return isKnown(tuning.frequency);
}

bool hasFrequency(const CableTuning& tuning)
{
    return isKnown(tuning.frequency);
}

bool hasFrequency(const TerrestrialTuning& tuning)
{
    return isKnown(tuning.centre_frequency);
}

std::optional<std::size_t> findCapture(std::span<const Capture> captures,
                                       std::string_view satellite, const SatelliteTuning& tuning)
{
    const std::string wanted = comparable(satellite);
    const auto isFromThere = [&](const Capture& capture) {
        return comparable(capture.satellite) == wanted;
    };
    const bool isKnown =
        !wanted.empty() && std::any_of(captures.begin(), captures.end(), isFromThere);
    return nearest(captures, tuning, kSatelliteTolerance,
                   [&](const Capture& capture, const SatelliteTuning& own) {
                       return (!isKnown || isFromThere(capture)) &&
                              own.polarization == tuning.polarization && sameOrbit(own, tuning);
                   });
}

std::optional<std::size_t> findCapture(std::span<const Capture> captures, const CableTuning& tuning)
{
    return nearest(captures, tuning, kCableTolerance,
                   [](const Capture&, const CableTuning&) { return true; });
}

std::optional<std::size_t> findCapture(std::span<const Capture> captures,
                                       const TerrestrialTuning& tuning)
{
    return nearest(captures, tuning, kTerrestrialTolerance,
                   [](const Capture&, const TerrestrialTuning&) { return true; });
}

} // namespace tessaview
