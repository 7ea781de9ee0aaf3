#include "drivers/capture/tuning_match.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr std::uint64_t kSatelliteTolerance = 3 * kMegahertz;
constexpr std::uint64_t kGroundTolerance = kMegahertz / 2;

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

} // namespace

std::optional<std::size_t> findCapture(std::span<const Capture> captures, const Tuning& tuning,
                                       std::string_view satellite)
{
    const std::string wanted = comparable(satellite);
    const auto isFromThere = [&](const Capture& capture) {
        return comparable(capture.satellite) == wanted;
    };
    const bool isNamed =
        !wanted.empty() && std::any_of(captures.begin(), captures.end(), isFromThere);
    std::optional<std::size_t> found;
    std::uint64_t distance =
        typeOf(tuning) == TunerType::Satellite ? kSatelliteTolerance : kGroundTolerance;
    for (std::size_t i = 0; i < captures.size(); ++i) {
        const auto apart = distanceOf(captures[i].tuning, tuning);
        if (!apart || (isNamed && !isFromThere(captures[i])))
            continue;
        if (*apart < distance || (*apart == distance && !found)) {
            found = i;
            distance = *apart;
        }
    }
    return found;
}

} // namespace tessaview
