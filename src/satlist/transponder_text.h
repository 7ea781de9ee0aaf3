#pragma once

#include "satlist/list_access.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

// Transponder entries as the "Transponder list" dialog shows and takes them.

namespace tessaview {

/// The choices for a polarization and a FEC, in the order of their values.
inline constexpr std::array<const char*, 4> kPolarizationTexts{"H", "V", "L", "R"};
inline constexpr std::array<const char*, 8> kFecTexts{"not defined", "1/2", "2/3", "3/4",
                                                      "5/6",         "7/8", "8/9", "no coding"};

/// "013E 2B5C P 10719000 V": NID, TSID, 'P' when added by the user, kHz, polarization.
std::string transponderLine(const TransponderEntry& entry);
/// What the line has no room for: "Symbol rate 27500.0 kS/s, FEC 3/4".
std::string transponderRate(const TransponderEntry& entry);
/// The symbol rate in kS/s, as "27500.0"; it is stored in units of 100 symbols/s.
std::string symbolRateText(std::int32_t symbolRate);
/// Below it, in units of 100 symbols/s, a symbol rate is rather a mistake than a transponder's:
/// 100,000 symbols/s.
inline constexpr std::int32_t kLeastSymbolRate = 1000;
/// The NID and TSID that a line begins with.
std::optional<std::pair<std::int32_t, std::int32_t>> keyOfLine(const std::string& line);

/// A typed identifier: one to four hexadecimal digits, with "0x" before them or not.
std::optional<std::int32_t> parseIdentifier(std::string_view typed);
/// A typed decimal number of 32 bits.
std::optional<std::uint32_t> parseDecimal(std::string_view typed);

} // namespace tessaview
