#pragma once

#include "drivers/linuxdvb/channel.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

/// The converter in the focus of a dish.
struct Lnb {
    enum class Kind {
        Universal, ///< 9750 MHz below 11700 MHz, 10600 MHz with a 22 kHz tone from there on
        SingleLo,  ///< one local oscillator
        Wide,      ///< one local oscillator for 10700 to 12750 MHz, no tone
        Default    ///< for a satellite: that of the settings
    };

    Kind kind = Kind::Universal;
    unsigned oscillator = 0; ///< MHz; where there is one

    bool hasOneOscillator() const { return kind == Kind::SingleLo || kind == Kind::Wide; }
    bool operator==(const Lnb&) const = default;
};

/// The oscillators that are offered first, in MHz.
constexpr unsigned kUsualSingleOscillator = 10600;
constexpr unsigned kUsualWideOscillator = 10410;
/// MHz; what an oscillator can be.
constexpr unsigned kHighestOscillator = 100000;

/// How a satellite is received.
struct Dish {
    Lnb lnb;
    unsigned position = 0;    ///< of a DiSEqC 1.0 switch: 1 to 4 for A to D, 0 for none
    unsigned uncommitted = 0; ///< of a DiSEqC 1.1 switch: 1 to 16, 0 for none

    bool operator==(const Dish&) const = default;
};

/// "universal", "wide 10410; diseqc 2; uncommitted 5": a dish as the settings keep it.
std::string storedText(const Dish& dish);
/// None for what is no such text.
std::optional<Dish> dishOf(std::string_view stored);

/// What has to be done at the dish, and what the receiver is then tuned to.
struct DishPlan {
    std::uint32_t frequency = 0;                       ///< behind the LNB, kHz
    bool isHighVoltage = false;                        ///< 18 V: horizontal and left
    bool hasTone = false;                              ///< 22 kHz
    std::vector<std::array<std::uint8_t, 4>> messages; ///< of DiSEqC, in their order
};

DishPlan planFor(const Dish& dish, const SatelliteTuning& tuning);

} // namespace tessaview
