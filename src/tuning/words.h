#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

// The words for the codes of tuning records, as people write them.

namespace tessaview {

struct Word {
    std::string_view text;
    std::int32_t code;
};

inline constexpr std::array<Word, 4> kPolarizationWords{{{"H", 0}, {"V", 1}, {"L", 2}, {"R", 3}}};
inline constexpr std::array<Word, 9> kCodeRateWords{{{"1/2", 1},
                                                     {"2/3", 2},
                                                     {"3/4", 3},
                                                     {"5/6", 4},
                                                     {"7/8", 5},
                                                     {"8/9", 6},
                                                     {"3/5", 7},
                                                     {"4/5", 8},
                                                     {"9/10", 9}}};
inline constexpr std::array<Word, 2> kSystemWords{{{"S", 0}, {"S2", 1}}};
inline constexpr std::array<Word, 2> kModulationWords{{{"QPSK", 1}, {"8PSK", 2}}};
inline constexpr std::array<Word, 3> kRollOffWords{{{"0.35", 0}, {"0.25", 1}, {"0.20", 2}}};
inline constexpr std::array<Word, 5> kCableModulationWords{
    {{"16QAM", 1}, {"32QAM", 2}, {"64QAM", 3}, {"128QAM", 4}, {"256QAM", 5}}};
inline constexpr std::array<Word, 4> kBandwidthWords{{{"8", 0}, {"7", 1}, {"6", 2}, {"5", 3}}};

inline std::optional<std::int32_t> codeOf(std::string_view word, std::span<const Word> words)
{
    for (const Word& each : words)
        if (word == each.text)
            return each.code;
    return std::nullopt;
}

constexpr char kNoPolarization = 'U';

/// The letter of a polarization, or that of none.
constexpr char polarizationLetter(std::int32_t polarization)
{
    return polarization >= 0 && polarization < 4
               ? kPolarizationWords[static_cast<std::size_t>(polarization)].text[0]
               : kNoPolarization;
}

} // namespace tessaview
