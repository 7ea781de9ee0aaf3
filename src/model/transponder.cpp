#include "model/transponder.h"

#include "platform/format.h"
#include "si/texts/value_texts.h"
#include "tuning/words.h"

namespace tessaview {

namespace {

/// What follows the transport_stream_id.
std::string deliveryText(const Tuning& tuning)
{
    const auto in = [&](std::uint32_t unit) {
        return static_cast<unsigned>(frequencyOf(tuning) / unit);
    };
    if (!isGiven(tuning))
        return "Unknown";
    const auto* const satellite = std::get_if<SatelliteTuning>(&tuning);
    if (!satellite)
        return formatted("%u", in(kKilo));
    return formatted("%u%c %s %u", in(kMegahertz), polarizationLetter(satellite->polarization),
                     lib13818::fecInnerText(satellite->FEC_inner),
                     static_cast<unsigned>(symbolRateOf(tuning) / kKilo));
}

} // namespace

bool NeededTables::areThere() const
{
    return pat == State::There && nit == State::There && sdt == State::There;
}

std::string NeededTables::lack() const
{
    std::vector<std::string> parts;
    const auto add = [&parts](State state, const char* table) {
        if (state != State::There)
            parts.push_back(std::string("no ") + table +
                            (state == State::Undecodable ? " that can be decoded" : ""));
    };
    add(pat, "PAT");
    add(nit, "NIT");
    add(sdt, "SDT");
    std::string text;
    for (std::size_t i = 0; i < parts.size(); ++i)
        text += (i == 0 ? "" : i + 1 == parts.size() ? " and " : ", ") + parts[i];
    return text;
}

std::string transponderText(const Transponder& transponder)
{
    const bool isNamed = transponder.transport_stream_id <= kLastIdentifier;
    return (isNamed ? formatted("%04X - ", transponder.transport_stream_id)
                    : std::string("No table names it - ")) +
           deliveryText(transponder.tuning);
}

} // namespace tessaview
