#include "satlist/transponder_text.h"

#include "platform/format.h"
#include "platform/number.h"
#include "tuning/tuning.h"
#include "tuning/words.h"

#include <cstdio>

namespace tessaview {

std::string transponderLine(const TransponderEntry& entry)
{
    const char letter = polarizationLetter(entry.polarization);
    return formatted("%04X %04X %c %lu %c", static_cast<unsigned>(entry.nid),
                     static_cast<unsigned>(entry.tsid), entry.flag > 0 ? 'P' : ' ',
                     static_cast<unsigned long>(frequencyOf(tuningOf(entry)) / kKilo),
                     letter == kNoPolarization ? 'R' : letter);
}

std::string symbolRateText(std::int32_t symbolRate)
{
    const auto units = static_cast<std::uint32_t>(symbolRate);
    return formatted("%u.%u", units / 10, units % 10);
}

std::string transponderRate(const TransponderEntry& entry)
{
    const bool isFecKnown = entry.fec >= 0 && entry.fec < static_cast<int>(kFecTexts.size());
    return formatted("Symbol rate %s kS/s, FEC %s", symbolRateText(entry.symbolRate).c_str(),
                     isFecKnown ? kFecTexts[static_cast<std::size_t>(entry.fec)]
                                : std::to_string(entry.fec).c_str());
}

std::optional<std::pair<std::int32_t, std::int32_t>> keyOfLine(const std::string& line)
{
    unsigned nid = 0;
    unsigned tsid = 0;
    if (std::sscanf(line.c_str(), "%x %x", &nid, &tsid) != 2)
        return std::nullopt;
    return std::pair{static_cast<std::int32_t>(nid), static_cast<std::int32_t>(tsid)};
}

std::optional<std::int32_t> parseIdentifier(std::string_view typed)
{
    if (typed.starts_with("0x") || typed.starts_with("0X"))
        typed.remove_prefix(2);
    return wholeNumber<std::uint16_t>(typed, 16);
}

std::optional<std::uint32_t> parseDecimal(std::string_view typed)
{
    return wholeNumber<std::uint32_t>(typed);
}

} // namespace tessaview
