#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tessaview {

/// How far a scan has come on one of its levels, from the outermost in.
enum class ScanLevel : std::uint8_t {
    Satellite,      ///< of the selected satellites
    NitEntry,       ///< a transponder of the satellite's list
    NitSection,     ///< a section of the NIT that is followed
    TransportStream ///< an entry of that section
};
inline constexpr std::size_t kScanLevelCount = 4;

/// What stands in the box of a level: "3 of 12".
std::string scanProgressText(std::size_t number, std::size_t total);

/// Follows a scan; called on its thread, but for what it says.
struct ScanProgress {
    /// The scan turns to the `number`th of `total`, from 1; what the satellite list says about
    /// `total` may be wrong.
    virtual void reached(ScanLevel level, std::size_t number, std::size_t total) = 0;
    /// How much of a stream the driver has read, 0 to 100 per cent; nothing when it reads none or
    /// does not tell. Called on a thread of its own, at most some times a second.
    virtual void hasRead(std::optional<unsigned> percent) = 0;
    /// A scan of one satellite was started without one: "You must select a satellite to scan".
    virtual void askForSatellite() = 0;

protected:
    ~ScanProgress() = default;
};

} // namespace tessaview
