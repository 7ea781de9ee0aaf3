#pragma once

#include "drivers/linuxdvb/device.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace tessaview {

/// A strength or quality as a receiver tells it: in one unit or the other, or not at all.
struct Level {
    std::optional<double> decibel;  ///< dBm for the strength, dB for the quality
    std::optional<double> relative; ///< 0 to 100 %

    /// "71 %", "12.4 dB"; empty when it is not told.
    std::string text(const char* decibelUnit) const;
};

/// What a receiver tells about what it receives.
struct SignalReport {
    std::uint32_t status = 0; ///< FE_HAS_...
    Level strength;
    Level quality;                           ///< carrier to noise
    std::optional<double> preBitErrorRate;   ///< before the inner code, since the last report
    std::optional<double> postBitErrorRate;  ///< behind the inner code, since the last report
    std::optional<std::uint64_t> bitErrors;  ///< a plain count, where there is no rate
    std::optional<std::uint64_t> lostBlocks; ///< that could not be corrected

    bool isLocked() const;
    /// "signal, carrier, lock"; "no signal"
    std::string statusText() const;
};

/// Asks an open frontend for its signal, by the statistics of API version 5 and, where a driver
/// has none, by the older calls.
class SignalMeter {
public:
    /// May be called from any thread. Throws DeviceError when not even the status is to be had.
    SignalReport measure(const Device& frontend);

private:
    struct Counters {
        std::uint64_t errors = 0;
        std::uint64_t total = 0;
        std::optional<double> rate; ///< the last that was known
    };
    static std::optional<double> rate(Counters& last, std::optional<std::uint64_t> errors,
                                      std::optional<std::uint64_t> total);

    std::mutex mutex_;
    Counters pre_;
    Counters post_;
};

} // namespace tessaview
