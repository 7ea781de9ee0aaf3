#pragma once

#include "driver/tuner_driver.h"
#include "si/descriptors/descriptor_set.h"

#include <cstdint>
#include <optional>
#include <variant>

namespace tessaview {

/// What a tuner is or can be set to: the record of one of the kinds, or none. The index is that of
/// the `TunerType`.
using Tuning = std::variant<std::monostate, SatelliteTuning, CableTuning, TerrestrialTuning>;

/// The kind of tuner that a tuning is for; an unknown one, 0, for none.
inline TunerType typeOf(const Tuning& tuning)
{
    return static_cast<TunerType>(tuning.index());
}

inline bool isGiven(const Tuning& tuning)
{
    return tuning.index() != 0;
}

/// The kind of tuner that a code from outside means; nothing for an unknown one.
std::optional<TunerType> tunerTypeOf(std::uint32_t code);

// What the numbers of the records, and of a satellite list, count.
constexpr std::uint32_t kSatelliteUnit = 10'000; ///< Hz
constexpr std::uint32_t kCableUnit = 100;        ///< Hz
constexpr std::uint32_t kTerrestrialUnit = 10;   ///< Hz
constexpr std::uint32_t kSymbolRateUnit = 100;   ///< symbols/s

constexpr std::uint32_t kKilo = 1'000;          ///< Hz of a kHz, symbols/s of a kS/s
constexpr std::uint32_t kMegahertz = 1'000'000; ///< Hz

/// In Hz, as the record has it, also where that means "not known"; 0 for none.
std::uint64_t frequencyOf(const Tuning& tuning);
/// In symbols/s; 0 for a kind that has none.
std::uint64_t symbolRateOf(const Tuning& tuning);
/// The code for the inner code rate; 0, "not defined", for a kind that has none.
int innerFecOf(const Tuning& tuning);

/// Whether a tuning names a frequency. A NIT may leave that of a terrestrial stream open, with all
/// bits set (EN 300 468, 6.2.13.4); 0 is not known either.
bool hasFrequency(const Tuning& tuning);

/// How far two tunings of one kind are apart, in Hz. Nothing for different kinds or polarizations,
/// for different orbital positions where both name one, and where a frequency is not known.
std::optional<std::uint64_t> distanceOf(const Tuning& a, const Tuning& b);

/// The modulation of a satellite's record: the five bits of the satellite delivery system
/// descriptor (EN 300 468, 6.2.13.2).
struct SatelliteModulation {
    unsigned type = 0; ///< 0 not told, 1 QPSK, 2 8PSK
    bool isS2 = false;
    unsigned rollOff = 0; ///< 0 for 0.35, 1 for 0.25, 2 for 0.20

    static SatelliteModulation of(const SatelliteTuning& tuning);
    std::uint8_t code() const;
};

// The record that a delivery system descriptor describes. Frequencies and symbol rates
// are the digits as coded: the descriptors hold them as the nearest binary fractions, whose
// products with a power of ten may fall just short of the number meant, so they are rounded to it
// instead of being cut. Cutting further, to MHz or kHz, is integer division of the record's field.
// What does not fit a record's field is narrowed to its width, a number beyond it to its nearest.

SatelliteTuning tuningOf(const lib13818::DescriptorSatelliteDeliverySystem& descriptor);
CableTuning tuningOf(const lib13818::DescriptorCableDeliverySystem& descriptor);
TerrestrialTuning tuningOf(const lib13818::DescriptorTerrestrialDeliverySystem& descriptor);

/// That of the first delivery system descriptor for a kind of tuner; none without one or for an
/// unknown kind.
Tuning tuningIn(const lib13818::DescriptorSet& descriptors, TunerType type);

} // namespace tessaview
