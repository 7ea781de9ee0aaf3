#include "drivers/linuxdvb/dish.h"

#include "platform/format.h"
#include "platform/number.h"

#include <sstream>

namespace tessaview {

namespace {

// A universal LNB, in MHz.
constexpr unsigned kLowOscillator = 9750;
constexpr unsigned kHighOscillator = 10600;
constexpr unsigned kBandEdge = 11700;

constexpr std::uint32_t kUnitsPerMegahertz = kMegahertz / kSatelliteUnit;
constexpr std::uint32_t kKilohertzPerUnit = kSatelliteUnit / kKilo;

// DiSEqC bus specification: a command from the master, no answer wanted, to any LNB or switch.
constexpr std::uint8_t kFraming = 0xE0;
constexpr std::uint8_t kAnySwitch = 0x10;
constexpr std::uint8_t kWriteCommitted = 0x38;
constexpr std::uint8_t kWriteUncommitted = 0x39;
constexpr std::uint8_t kSetAll = 0xF0; // the upper half says which of the lower four bits count

constexpr unsigned kCommittedPositions = 4;
constexpr unsigned kUncommittedPositions = 16;

struct KindName {
    Lnb::Kind kind;
    std::string_view name;
};
constexpr std::array kKindNames{
    KindName{Lnb::Kind::Universal, "universal"}, KindName{Lnb::Kind::SingleLo, "single"},
    KindName{Lnb::Kind::Wide, "wide"}, KindName{Lnb::Kind::Default, "default"}};

bool isHighBand(const Lnb& lnb, const SatelliteTuning& tuning)
{
    return !lnb.hasOneOscillator() && tuning.frequency >= kBandEdge * kUnitsPerMegahertz;
}

unsigned oscillatorOf(const Lnb& lnb, bool highBand)
{
    if (lnb.hasOneOscillator())
        return lnb.oscillator;
    return highBand ? kHighOscillator : kLowOscillator;
}

/// Takes a number that follows a word; at most `most`.
bool takeNumber(std::istringstream& words, unsigned most, unsigned& number)
{
    std::string word;
    words >> word;
    if (word.ends_with(';'))
        word.pop_back();
    const auto value = wholeNumber<unsigned>(word);
    if (!value || *value > most)
        return false;
    number = *value;
    return true;
}

bool takeLnb(std::istringstream& words, Lnb& lnb)
{
    std::string word;
    words >> word;
    if (word.ends_with(';'))
        word.pop_back();
    for (const KindName& each : kKindNames) {
        if (word != each.name)
            continue;
        lnb.kind = each.kind;
        return !lnb.hasOneOscillator() || takeNumber(words, kHighestOscillator, lnb.oscillator);
    }
    return false;
}

} // namespace

std::string storedText(const Dish& dish)
{
    std::string text(kKindNames[static_cast<std::size_t>(dish.lnb.kind)].name);
    if (dish.lnb.hasOneOscillator())
        text += formatted(" %u", dish.lnb.oscillator);
    if (dish.position > 0)
        text += formatted("; diseqc %u", dish.position);
    if (dish.uncommitted > 0)
        text += formatted("; uncommitted %u", dish.uncommitted);
    return text;
}

std::optional<Dish> dishOf(std::string_view stored)
{
    Dish dish;
    std::istringstream words{std::string(stored)};
    if (!takeLnb(words, dish.lnb))
        return std::nullopt;
    for (std::string word; words >> word;) {
        const bool isCommitted = word == "diseqc";
        if (!isCommitted && word != "uncommitted")
            return std::nullopt;
        if (!takeNumber(words, isCommitted ? kCommittedPositions : kUncommittedPositions,
                        isCommitted ? dish.position : dish.uncommitted))
            return std::nullopt;
    }
    return dish;
}

DishPlan planFor(const Dish& dish, const SatelliteTuning& tuning)
{
    DishPlan plan;
    plan.hasTone = isHighBand(dish.lnb, tuning);
    const std::uint32_t oscillator = oscillatorOf(dish.lnb, plan.hasTone) * kUnitsPerMegahertz;
    // An oscillator above the band (C band) turns the band round.
    plan.frequency = (tuning.frequency > oscillator ? tuning.frequency - oscillator
                                                    : oscillator - tuning.frequency) *
                     kKilohertzPerUnit;
    plan.isHighVoltage = tuning.polarization == 0 || tuning.polarization == 2;
    if (dish.uncommitted > 0)
        plan.messages.push_back({kFraming, kAnySwitch, kWriteUncommitted,
                                 static_cast<std::uint8_t>(kSetAll | (dish.uncommitted - 1))});
    if (dish.position > 0)
        plan.messages.push_back(
            {kFraming, kAnySwitch, kWriteCommitted,
             static_cast<std::uint8_t>(kSetAll | (dish.position - 1) << 2 |
                                       (plan.isHighVoltage ? 2U : 0U) | (plan.hasTone ? 1U : 0U))});
    return plan;
}

} // namespace tessaview
